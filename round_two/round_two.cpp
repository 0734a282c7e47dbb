#include "round_two/round_two.h"

#include <string>

#include "game/pacing.h"
#include "robot/round_two_choice.h"
#include "round_one/game_end.h"
#include "round_one/trick_cycle.h"
#include "table/score_panel.h"

namespace trickhaven {

namespace {

constexpr int LastTrickOfHand = 24;

void PromptPlayerLead(Game& g) {
    g.view.SetPanelText(2, g.PlayerName + " your lead, please click card to play");
}

void AnnounceRobotCard(Game& g, int card) {
    g.view.SetPanelText(2, g.OpponentName + " plays " + Card(g, card).Name);
}

void PlayerLeadsTrick(Game& g) {
    PromptPlayerLead(g);
    WaitDelay(g);
    // After a won trick PlayerMayPlay is already up, so a click made during
    // the waits before this pump counts as the lead.
    PumpWhile(g, g.PlayerMayPlay);
    WaitDelay(g);
    g.FollowCard = ChooseRoundTwoCard(g);
    g.FollowSuit = Card(g, g.FollowCard).Suit;
    AnnounceRobotCard(g, g.FollowCard);
    OpponentPlaysCard(g, g.FollowCard);
}

void RobotLeadsTrick(Game& g) {
    WaitDelay(g);
    g.LeadCard = ChooseRoundTwoCard(g);
    g.LeadSuit = Card(g, g.LeadCard).Suit;
    AnnounceRobotCard(g, g.LeadCard);
    WaitDelay(g);
    OpponentPlaysCard(g, g.LeadCard);
    // The same words as for a lead, though here the player answers.
    PromptPlayerLead(g);
    WaitDelay(g);
    g.PlayerMayPlay = true;
    PumpWhile(g, g.PlayerMayPlay);
}

void BookTrick(Game& g) {
    const int points = TrickValue(g);
    LogPlay(g, TrickTaken(TrickWinner(g), points));
    if (TrickWinner(g) == ThePlayer) {
        g.PlayerLastTrick = static_cast<std::int16_t>(points);
        ShowTrickScore(g, ThePlayer);
        g.view.SetPanelText(2, g.PlayerName + " 's trick score is " + std::to_string(points));
        GatherTrick(g, ThePlayer);
        g.PlayerMayPlay = true;
        g.Leader = ThePlayer;
        g.view.SetPanelText(2, g.PlayerName + " your turn, please click card to play");
    } else {
        g.OpponentLastTrick = static_cast<std::int16_t>(points);
        ShowTrickScore(g, TheRobot);
        g.view.SetPanelText(2, g.OpponentName + " 's trick score is " + std::to_string(points));
        GatherTrick(g, TheRobot);
        g.PlayerMayPlay = false;
        g.Leader = TheRobot;
    }
}

}  // namespace

void ContinueRoundTwo(Game& g) {
    if (!g.GameOn) {
        return;
    }
    do {
        ++g.TrickCount;
        g.view.SetPanelText(3, "Tricks " + std::to_string(g.TrickCount));
        if (g.Leader == ThePlayer) {
            PlayerLeadsTrick(g);
        } else {
            RobotLeadsTrick(g);
        }
        BookTrick(g);
        WaitDelay(g);
    } while (g.TrickCount < LastTrickOfHand);
    EndOfHand(g);
}

}  // namespace trickhaven
