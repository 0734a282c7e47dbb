// The target tests, the knock, the end of a hand and of a game.
#include "round_one/game_end.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <tuple>

#include "game/session.h"
#include "headless/headless_game.h"
#include "headless/player_policy.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

// A game at the given totals against a target of 1000.
struct ScoresTable {
    ScoresTable(bool roundOne, int player, int robot) : g(hg.game) {
        ClearTable(g);
        g.GameOn = true;
        g.RoundOneOn = roundOne;
        g.RoundTwoOn = !roundOne;
        g.OpponentName = "Lorinda";
        g.TargetScore = 1000;
        g.PlayerTotal = static_cast<std::int16_t>(player);
        g.OpponentTotal = static_cast<std::int16_t>(robot);
    }
    // Runs a routine that may end the game; gives what the session is asked.
    SessionRequest Unwound(void (*routine)(Game&)) {
        try {
            routine(g);
        } catch (const GameAbandoned&) {
        }
        return g.Request;
    }
    bool KnockShows() const { return hg.table.IsControlVisible(TableControl::LblKnock); }
    const std::vector<MessageRecord>& Messages() const { return hg.table.Messages(); }
    HeadlessGame hg;
    Game& g;
};

// The player wins by clicking the label and plays on; the robot knocks at
// once and the player leaves. Both answers save the record.
TEST(Knock, TheOneSideAtTargetKnocksAndWins) {
    for (const bool robot : {false, true}) {
        SCOPED_TRACE(robot ? "robot" : "player");
        ScoresTable t(true, robot ? 980 : 1000, robot ? 1000 : 990);
        t.hg.table.answerDeluxe = [robot](const MessageRecord&) { return robot ? 1 : 0; };
        SessionRequest request = t.Unwound(CheckTarget);
        std::int32_t before = 0;
        if (!robot) {
            EXPECT_TRUE(t.KnockShows() && t.Messages().empty() && t.hg.platform.sounds.empty());
            before = t.hg.platform.TickCount();
            request = t.Unwound(LblKnock_Click);
        }
        EXPECT_EQ(request, robot ? SessionRequest::Quit : SessionRequest::NewGame);
        // The knock's pause; the player's knock has two, and the label's own.
        const int pause = t.g.GameSpeed + 300;
        EXPECT_EQ(t.hg.platform.TickCount() - before, robot ? pause : 2 * pause + t.g.GameSpeed);
        EXPECT_EQ(t.hg.platform.sounds, std::vector<std::string>{"knock.wav"});
        EXPECT_FALSE(t.KnockShows());
        EXPECT_EQ(t.g.GameStats[robot ? 2 : 1], 1);
        ASSERT_EQ(t.Messages().size(), 1U);
        const MessageRecord& end = t.Messages()[0];
        EXPECT_EQ(end.text,
                  std::string("Player ") +
                      (robot ? "unfortunately, you lost that game with points 980 against 1000"
                             : "well done, you won that game with points 1000 against 990") +
                      " for LorindaClick on Play for another game or Exit to leave the game.");
        EXPECT_EQ(end.buttons, (std::array<std::string, 3>{"Play", "Exit", ""}));
        EXPECT_EQ(std::tuple(end.icon, end.title), std::tuple(1, "Play again?"));
        std::ifstream data(t.hg.folder / "Data.dat", std::ios::binary);
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(data), {}),
                  std::string(robot ? "0,1" : "1,0") + ",100,\"Player\",\"Lorinda\",1000\r\n");
        EXPECT_FALSE(std::filesystem::exists(t.hg.folder / "All.dat"));
    }
}

TEST(Knock, LabelStandsWhenBothAreOverAndAKnockThenWinsNothing) {
    ScoresTable t(true, 1000, 990);
    CheckTarget(t.g);
    t.g.OpponentTotal = 1040;
    CheckTarget(t.g);
    EXPECT_TRUE(t.KnockShows());
    EXPECT_TRUE(t.hg.platform.sounds.empty());
    EXPECT_EQ(t.Unwound(LblKnock_Click), SessionRequest::None);
    EXPECT_FALSE(t.KnockShows());
    EXPECT_TRUE(t.g.PlayerKnocked && t.g.GameOn);
    EXPECT_EQ(t.g.DelayMs, t.g.GameSpeed);
    // With the label gone a click knocks no more; in Round Two it is refused.
    LblKnock_Click(t.g);
    EXPECT_TRUE(t.Messages().empty());
    t.g.RoundOneOn = false;
    t.g.RoundTwoOn = true;
    t.hg.table.SetControlVisible(TableControl::LblKnock, true);
    LblKnock_Click(t.g);
    EXPECT_EQ(t.hg.platform.sounds, std::vector<std::string>{"knock.wav"});
    ASSERT_EQ(t.Messages().size(), 1U);
    const MessageRecord& refused = t.Messages()[0];
    EXPECT_EQ(refused.text,
              "Player Sorry, you must knock during Round 1. Lorinda might catch you up on Trick "
              "Scores");
    EXPECT_EQ(std::tuple(refused.buttons[0], refused.icon, refused.title),
              std::tuple("Oh Right", 3, "Can't Knock Now"));
}

// The robot reaches the target by a meld after the first trick: it knocks
// then, before either side draws, and the game is lost.
TEST(Knock, RobotKnocksInPlayBeforeAnyDraw) {
    HeadlessGame hg(5);
    PlayerPolicy player(PolicyKind::First, 5);
    int stockAtTheEnd = -1;
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.policy = [&](Game& g) -> std::optional<TableEvent> {
        if (g.RoundOneOn && g.TrickCount == 1 && g.OpponentTotal < 1000) g.OpponentTotal = 1000;
        return player.Next(g);
    };
    hg.table.answerDeluxe = [&](const MessageRecord& m) {
        if (m.title != "Play again?") return player.Answer(m);
        stockAtTheEnd = hg.game.StockLeft;
        return 1;
    };
    EXPECT_FALSE(hg.Run());
    EXPECT_EQ(stockAtTheEnd, 24);
    EXPECT_EQ(hg.game.GameStats[2], 1);
    EXPECT_EQ(hg.platform.sounds.back(), "knock.wav");
}

TEST(TargetAtHandEnd, BothOverRaisesByTwoFiftyOnceAHandAndTheNewTargetDecides) {
    // The totals, the target after the test, who won (0: nobody yet).
    for (const auto& [player, robot, target, winner] :
         {std::tuple{1040, 1300, 1250, TheRobot}, std::tuple{1300, 1100, 1250, ThePlayer},
          std::tuple{1400, 1300, 1250, 0}, std::tuple{1000, 1000, 1250, 0},
          std::tuple{999, 1000, 1000, TheRobot}, std::tuple{1000, 999, 1000, ThePlayer}}) {
        SCOPED_TRACE(std::to_string(player) + " against " + std::to_string(robot));
        ScoresTable t(false, player, robot);
        const SessionRequest request = t.Unwound(CheckTarget);
        EXPECT_EQ(t.g.TargetScore, target);
        EXPECT_EQ(request, winner == 0 ? SessionRequest::None : SessionRequest::NewGame);
        EXPECT_EQ(std::tuple(t.g.GameStats[1], t.g.GameStats[2]),
                  std::tuple(winner == ThePlayer ? 1 : 0, winner == TheRobot ? 1 : 0));
        const bool raised = target != 1000;
        ASSERT_EQ(t.Messages().size(), (raised ? 1U : 0U) + (winner == 0 ? 0U : 1U));
        if (!raised) continue;
        EXPECT_EQ(t.hg.table.Title(), "Target Score:- 1250");
        EXPECT_EQ(t.Messages()[0].text,
                  "As you are both over target score it will increase by 250 and another hand "
                  "played.");
        EXPECT_EQ(std::tuple(t.Messages()[0].buttons[0], t.Messages()[0].title),
                  std::tuple("O.K", "Both over target"));
        if (winner != 0) continue;
        // Still both over at the next hand: it rises again.
        t.g.PlayerTotal = 1550;
        t.g.OpponentTotal = 1600;
        CheckTarget(t.g);
        EXPECT_EQ(std::tuple(t.g.TargetScore, t.hg.table.Title(), t.Messages().size(), t.g.GameOn),
                  std::tuple(1500, "Target Score:- 1500", 2U, true));
    }
}

TEST(EndOfHand, TotalsGrowAndTheHandIsToldUnlessTheGameEnds) {
    // Melds and tricks of each side, the hand's words and title; the last
    // hand reaches the target with its trick points.
    for (const auto& [melds, tricks, robotMelds, robotTricks, text, title] :
         {std::tuple{60, 150, 40, 100, "you won that hand with points 210 against 140", "Hand Won"},
          std::tuple{0, 90, 20, 160, "unfortunately you lost that hand with points 90 against 180",
                     "Hand Lost"},
          std::tuple{20, 110, 0, 130, "the hand was a draw with 130 against 130", "Draw"},
          std::tuple{600, 130, 500, 120, " points 1030 against 820 for ", "Play again?"}}) {
        SCOPED_TRACE(title);
        ScoresTable t(false, 300 + melds, 200 + robotMelds);
        t.g.PlayerTotalMelds = static_cast<std::int16_t>(melds);
        t.g.PlayerTotalTricks = static_cast<std::int16_t>(tricks);
        t.g.OpponentTotalMelds = static_cast<std::int16_t>(robotMelds);
        t.g.OpponentTotalTricks = static_cast<std::int16_t>(robotTricks);
        const SessionRequest request = t.Unwound(EndOfHand);
        const std::string player = std::to_string(300 + melds + tricks);
        const std::string robot = std::to_string(200 + robotMelds + robotTricks);
        EXPECT_EQ(std::tuple(std::to_string(t.g.PlayerTotal),
                             t.hg.table.Caption(TableLabel::LblTotalScoreP),
                             t.hg.table.Caption(TableLabel::LblTotScoreC)),
                  std::tuple(player, player, robot));
        if (std::string(title) == "Play again?") {
            EXPECT_EQ(request, SessionRequest::NewGame);
            ASSERT_EQ(t.Messages().size(), 1U);
            EXPECT_NE(t.Messages()[0].text.find(text), std::string::npos);
            continue;
        }
        ASSERT_EQ(t.Messages().size(), 2U);
        const MessageRecord& hand = t.Messages()[0];
        EXPECT_EQ(hand.text, std::string("Player Game not over, but ") + text);
        EXPECT_EQ(std::tuple(hand.buttons[0] + hand.buttons[1], hand.title),
                  std::tuple("Right", title));
        const MessageRecord& totals = t.Messages()[1];
        EXPECT_EQ(totals.text, "Your total score is " + player + " against " + robot);
        EXPECT_EQ(std::tuple(totals.buttons[0], totals.title), std::tuple("O.K", "Total Scores"));
    }
}

}  // namespace
}  // namespace trickhaven
