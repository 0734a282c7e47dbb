#include "round_one/game_end.h"

#include <string>

#include "data/data_file.h"
#include "data/robot_file.h"
#include "data/saved_game.h"
#include "game/pacing.h"
#include "game/session.h"
#include "table/deal.h"

namespace trickhaven {

namespace {

constexpr std::int16_t TargetRise = 250;

std::string Digits(int number) {
    return std::to_string(number);
}

bool OnlyPlayerAtTarget(const Game& g, int target) {
    return g.PlayerTotal >= target && g.OpponentTotal < target;
}

bool OnlyRobotAtTarget(const Game& g, int target) {
    return g.OpponentTotal >= target && g.PlayerTotal < target;
}

// The knock is a sound and a pause a little longer than the game's pace.
void SoundKnock(Game& g) {
    g.platform.PlaySound("knock.wav");
    g.DelayMs = static_cast<std::int16_t>(g.GameSpeed + 300);
}

void RoundOneTargetTests(Game& g, int target) {
    if (OnlyPlayerAtTarget(g, target)) {
        WaitDelay(g);
        g.view.SetControlVisible(TableControl::LblKnock, true);
    }
    if (g.PlayerKnocked) {
        g.view.SetControlVisible(TableControl::LblKnock, false);
        if (OnlyPlayerAtTarget(g, target)) {
            GameWon(g);
            return;
        }
    }
    if (OnlyRobotAtTarget(g, target)) {
        SoundKnock(g);
        WaitDelay(g);
        g.DelayMs = g.GameSpeed;
        GameLost(g);
    }
}

void RoundTwoTargetTests(Game& g, int target) {
    if (g.PlayerTotal >= target && g.OpponentTotal >= target) {
        // Both over: the target moves on, once per hand, and the new target
        // decides.
        g.TargetScore = static_cast<std::int16_t>(g.TargetScore + TargetRise);
        target = g.TargetScore;
        g.view.SetTitle("Target Score:- " + Digits(g.TargetScore));
        SaveStanding(g);
        g.MessageChoice = static_cast<std::int16_t>(g.view.ShowDeluxeMessage(
            "As you are both over target score it will increase by 250 and another hand played.",
            "O.K", "", "", 1, "Both over target"));
    }
    if (OnlyRobotAtTarget(g, target)) {
        GameLost(g);
    }
    if (OnlyPlayerAtTarget(g, target)) {
        GameWon(g);
    }
}

// The end of a game, won or lost: count it, ask, save the record whatever
// the answer, then start afresh or leave.
void EndGame(Game& g, int winner, const std::string& verdict) {
    if (!g.GameOn) {
        return;
    }
    LogPlay(g, GameOver(winner));
    // Games against the Expert are counted apart: GameStats, and Data.dat
    // with them, stay the Classic robot's.
    const bool expert = g.Robot == RobotKind::Expert;
    ++(expert ? g.ExpertStats : g.GameStats)[static_cast<std::size_t>(winner)];
    const std::string message = g.PlayerName + verdict + Digits(g.PlayerTotal) + " against " +
                                Digits(g.OpponentTotal) + " for " + g.OpponentName +
                                "Click on Play for another game or Exit to leave the game.";
    g.MessageChoice = static_cast<std::int16_t>(
        g.view.ShowDeluxeMessage(message, "Play", "Exit", "", 1, "Play again?"));
    SaveData(g);
    if (expert) SaveRobotFile(g);
    // Decided and answered: there is nothing left to go on with.
    DropSavedGame(g);
    if (g.MessageChoice == 0) {
        g.GameOn = false;
        Abandon(g, SessionRequest::NewGame);
    }
    Abandon(g, SessionRequest::Quit);
}

}  // namespace

void CheckTarget(Game& g) {
    if (!g.GameOn) {
        return;
    }
    const int target = g.TargetScore;
    if (g.RoundOneOn) {
        RoundOneTargetTests(g, target);
        return;
    }
    if (g.RoundTwoOn) {
        RoundTwoTargetTests(g, target);
    }
}

void LblKnock_Click(Game& g) {
    if (!g.view.IsControlVisible(TableControl::LblKnock)) {
        return;
    }
    if (g.RoundTwoOn) {
        g.MessageChoice = static_cast<std::int16_t>(g.view.ShowDeluxeMessage(
            g.PlayerName +
                " Sorry, you must knock during Round 1. Lorinda might catch you up on Trick Scores",
            "Oh Right", "", "", 3, "Can't Knock Now"));
        return;
    }
    SoundKnock(g);
    WaitDelay(g);
    WaitDelay(g);
    g.PlayerKnocked = true;
    g.DelayMs = g.GameSpeed;
    CheckTarget(g);
}

void GameWon(Game& g) {
    EndGame(g, ThePlayer, " well done, you won that game with points ");
}

void GameLost(Game& g) {
    EndGame(g, TheRobot, " unfortunately, you lost that game with points ");
}

void EndOfHand(Game& g) {
    g.PlayerTotal = static_cast<std::int16_t>(g.PlayerTotal + g.PlayerTotalTricks);
    g.OpponentTotal = static_cast<std::int16_t>(g.OpponentTotal + g.OpponentTotalTricks);
    g.view.SetCaption(TableLabel::LblTotalScoreP, Digits(g.PlayerTotal));
    g.view.SetCaption(TableLabel::LblTotScoreC, Digits(g.OpponentTotal));
    // The next hand's seed is drawn now, before the standing is saved with
    // it: a hand left unfinished is dealt again exactly as it was.
    ChooseDealSeed(g);
    SaveStanding(g);
    LogPlay(g, HandOver());
    CheckTarget(g);
    if (!g.GameOn) {
        return;
    }
    const int player = g.PlayerTotalMelds + g.PlayerTotalTricks;
    const int robot = g.OpponentTotalMelds + g.OpponentTotalTricks;
    const std::string scores = Digits(player) + " against " + Digits(robot);
    std::string message;
    std::string title;
    if (player > robot) {
        message = g.PlayerName + " Game not over, but you won that hand with points " + scores;
        title = "Hand Won";
    } else if (player < robot) {
        message = g.PlayerName +
                  " Game not over, but unfortunately you lost that hand with points " + scores;
        title = "Hand Lost";
    } else {
        message = g.PlayerName + " Game not over, but the hand was a draw with " + scores;
        title = "Draw";
    }
    g.MessageChoice =
        static_cast<std::int16_t>(g.view.ShowDeluxeMessage(message, "Right", "", "", 1, title));
    g.MessageChoice = static_cast<std::int16_t>(g.view.ShowDeluxeMessage(
        "Your total score is " + Digits(g.PlayerTotal) + " against " + Digits(g.OpponentTotal),
        "O.K", "", "", 1, "Total Scores"));
}

}  // namespace trickhaven
