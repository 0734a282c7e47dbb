// The target tests, the knock, the end of a hand and of a game.
#include "round_one/game_end.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "game/session.h"
#include "tests/headless/headless_game.h"
#include "tests/headless/player_policy.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

const char* const PlayOrExit = "Click on Play for another game or Exit to leave the game.";

void LayScores(Game& g, bool roundOne, int player, int robot) {
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
template <typename Routine>
SessionRequest Unwound(Game& g, Routine routine) {
    try {
        routine(g);
    } catch (const GameAbandoned&) {
    }
    return g.Request;
}

std::string FileText(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

bool KnockShows(const HeadlessGame& hg) {
    return hg.table.IsControlVisible(TableControl::LblKnock);
}

TEST(Knock, PlayerAtTargetGetsTheLabelAndWinsByClickingIt) {
    HeadlessGame hg;
    Game& g = hg.game;
    LayScores(g, true, 1000, 990);
    CheckTarget(g);
    EXPECT_TRUE(KnockShows(hg));
    EXPECT_TRUE(hg.table.Messages().empty());
    EXPECT_EQ(Unwound(g, LblKnock_Click), SessionRequest::NewGame);
    EXPECT_EQ(hg.platform.sounds, std::vector<std::string>{"knock.wav"});
    EXPECT_FALSE(KnockShows(hg));
    EXPECT_FALSE(g.GameOn);
    EXPECT_EQ(g.GameStats[1], 1);
    ASSERT_EQ(hg.table.Messages().size(), 1U);
    const MessageRecord& won = hg.table.Messages()[0];
    EXPECT_EQ(won.text, std::string("Player well done, you won that game with points 1000 against "
                                    "990 for Lorinda") +
                            PlayOrExit);
    EXPECT_EQ(won.buttons, (std::array<std::string, 3>{"Play", "Exit", ""}));
    EXPECT_EQ(won.icon, 1);
    EXPECT_EQ(won.title, "Play again?");
}

TEST(Knock, LabelStandsWhenBothAreOverAndAKnockThenWinsNothing) {
    HeadlessGame hg;
    Game& g = hg.game;
    LayScores(g, true, 1000, 990);
    CheckTarget(g);
    g.OpponentTotal = 1040;
    CheckTarget(g);
    EXPECT_TRUE(KnockShows(hg));
    EXPECT_TRUE(hg.platform.sounds.empty());
    const std::int32_t before = hg.platform.TickCount();
    EXPECT_EQ(Unwound(g, LblKnock_Click), SessionRequest::None);
    EXPECT_EQ(hg.platform.TickCount() - before, 2 * (g.GameSpeed + 300));
    EXPECT_EQ(hg.platform.sounds, std::vector<std::string>{"knock.wav"});
    EXPECT_FALSE(KnockShows(hg));
    EXPECT_TRUE(g.PlayerKnocked);
    EXPECT_TRUE(g.GameOn);
    EXPECT_EQ(g.DelayMs, g.GameSpeed);
    EXPECT_TRUE(hg.table.Messages().empty());
}

TEST(Knock, RobotAtTargetKnocksAndWins) {
    HeadlessGame hg;
    Game& g = hg.game;
    LayScores(g, true, 980, 1000);
    hg.table.answerDeluxe = [](const MessageRecord&) { return 1; };
    const std::int32_t before = hg.platform.TickCount();
    EXPECT_EQ(Unwound(g, CheckTarget), SessionRequest::Quit);
    EXPECT_EQ(hg.platform.TickCount() - before, g.GameSpeed + 300);
    EXPECT_EQ(hg.platform.sounds, std::vector<std::string>{"knock.wav"});
    EXPECT_FALSE(KnockShows(hg));
    EXPECT_EQ(g.GameStats[2], 1);
    ASSERT_EQ(hg.table.Messages().size(), 1U);
    EXPECT_EQ(hg.table.Messages()[0].text,
              std::string("Player unfortunately, you lost that game with points 980 against 1000 "
                          "for Lorinda") +
                  PlayOrExit);
    // "Exit" still saves the record, and writes no All.dat.
    EXPECT_EQ(FileText(hg.folder / "Data.dat"), "0,1,100,\"Player\",\"Lorinda\",1000\r\n");
    EXPECT_FALSE(std::filesystem::exists(hg.folder / "All.dat"));
}

TEST(Knock, NoLabelNoKnockAndNoneInRoundTwo) {
    HeadlessGame hg;
    Game& g = hg.game;
    LayScores(g, true, 1000, 990);
    LblKnock_Click(g);
    EXPECT_TRUE(hg.platform.sounds.empty());
    EXPECT_FALSE(g.PlayerKnocked);

    LayScores(g, false, 1000, 990);
    hg.table.SetControlVisible(TableControl::LblKnock, true);
    LblKnock_Click(g);
    EXPECT_TRUE(hg.platform.sounds.empty());
    EXPECT_FALSE(g.PlayerKnocked);
    ASSERT_EQ(hg.table.Messages().size(), 1U);
    const MessageRecord& refused = hg.table.Messages()[0];
    EXPECT_EQ(refused.text,
              "Player Sorry, you must knock during Round 1. Lorinda might catch you up on Trick "
              "Scores");
    EXPECT_EQ(refused.buttons[0], "Oh Right");
    EXPECT_EQ(refused.icon, 3);
    EXPECT_EQ(refused.title, "Can't Knock Now");
}

struct HandEnd {
    int player, robot;
    int target;           // after the test
    const char* verdict;  // "won", "lost" or none
};

TEST(TargetAtHandEnd, BothOverRaisesByTwoFiftyAndTheNewTargetDecides) {
    const std::vector<HandEnd> cases{
        {1040, 1300, 1250, "lost"},  {1300, 1100, 1250, "won"}, {1400, 1300, 1250, nullptr},
        {1000, 1000, 1250, nullptr}, {999, 1000, 1000, "lost"}, {1000, 999, 1000, "won"},
    };
    for (const HandEnd& c : cases) {
        SCOPED_TRACE(std::to_string(c.player) + " against " + std::to_string(c.robot));
        HeadlessGame hg;
        Game& g = hg.game;
        LayScores(g, false, c.player, c.robot);
        const SessionRequest request = Unwound(g, CheckTarget);
        EXPECT_EQ(g.TargetScore, c.target);
        const auto& messages = hg.table.Messages();
        const bool raised = c.target != 1000;
        ASSERT_EQ(messages.size(), (raised ? 1U : 0U) + (c.verdict ? 1U : 0U));
        if (raised) {
            EXPECT_EQ(hg.table.Title(), "Target Score:- 1250");
            EXPECT_EQ(messages[0].text,
                      "As you are both over target score it will increase by 250 and another "
                      "hand played.");
            EXPECT_EQ(messages[0].buttons[0], "O.K");
            EXPECT_EQ(messages[0].title, "Both over target");
        }
        EXPECT_EQ(request, c.verdict ? SessionRequest::NewGame : SessionRequest::None);
        EXPECT_EQ(g.GameStats[1], c.verdict && std::string(c.verdict) == "won" ? 1 : 0);
        EXPECT_EQ(g.GameStats[2], c.verdict && std::string(c.verdict) == "lost" ? 1 : 0);
    }
}

TEST(TargetAtHandEnd, RisesAgainAtTheNextHandEnd) {
    HeadlessGame hg;
    Game& g = hg.game;
    LayScores(g, false, 1400, 1300);
    CheckTarget(g);
    g.PlayerTotal = 1550;
    g.OpponentTotal = 1600;
    CheckTarget(g);
    EXPECT_EQ(g.TargetScore, 1500);
    EXPECT_EQ(hg.table.Title(), "Target Score:- 1500");
    EXPECT_EQ(hg.table.Messages().size(), 2U);
    EXPECT_TRUE(g.GameOn);
}

struct HandScores {
    int playerMelds, playerTricks, robotMelds, robotTricks;
    const char* text;
    const char* title;
};

TEST(EndOfHand, TotalsGrowAndTheHandIsTold) {
    const std::vector<HandScores> cases{
        {60, 150, 40, 100,
         "Player Game not over, but you won that hand with points 210 against 140", "Hand Won"},
        {0, 90, 20, 160,
         "Player Game not over, but unfortunately you lost that hand with points 90 against 180",
         "Hand Lost"},
        {20, 110, 0, 130, "Player Game not over, but the hand was a draw with 130 against 130",
         "Draw"},
    };
    for (const HandScores& c : cases) {
        SCOPED_TRACE(c.title);
        HeadlessGame hg;
        Game& g = hg.game;
        LayScores(g, false, 300 + c.playerMelds, 200 + c.robotMelds);
        g.PlayerTotalMelds = static_cast<std::int16_t>(c.playerMelds);
        g.PlayerTotalTricks = static_cast<std::int16_t>(c.playerTricks);
        g.OpponentTotalMelds = static_cast<std::int16_t>(c.robotMelds);
        g.OpponentTotalTricks = static_cast<std::int16_t>(c.robotTricks);
        EndOfHand(g);
        const int player = 300 + c.playerMelds + c.playerTricks;
        const int robot = 200 + c.robotMelds + c.robotTricks;
        EXPECT_EQ(g.PlayerTotal, player);
        EXPECT_EQ(hg.table.Caption(TableLabel::LblTotalScoreP), std::to_string(player));
        EXPECT_EQ(hg.table.Caption(TableLabel::LblTotScoreC), std::to_string(robot));
        const auto& messages = hg.table.Messages();
        ASSERT_EQ(messages.size(), 2U);
        EXPECT_EQ(messages[0].text, c.text);
        EXPECT_EQ(messages[0].title, c.title);
        EXPECT_EQ(messages[0].buttons, (std::array<std::string, 3>{"Right", "", ""}));
        EXPECT_EQ(messages[1].text, "Your total score is " + std::to_string(player) + " against " +
                                        std::to_string(robot));
        EXPECT_EQ(messages[1].buttons[0], "O.K");
        EXPECT_EQ(messages[1].title, "Total Scores");
    }
}

TEST(EndOfHand, TrickPointsThatReachTheTargetEndTheGameWithoutHandMessages) {
    HeadlessGame hg;
    Game& g = hg.game;
    LayScores(g, false, 900, 700);
    g.PlayerTotalTricks = 130;
    g.OpponentTotalTricks = 120;
    EXPECT_EQ(Unwound(g, EndOfHand), SessionRequest::NewGame);
    ASSERT_EQ(hg.table.Messages().size(), 1U);
    EXPECT_EQ(hg.table.Messages()[0].title, "Play again?");
    EXPECT_NE(hg.table.Messages()[0].text.find(" points 1030 against 820 for "), std::string::npos);
    EXPECT_EQ(FileText(hg.folder / "Data.dat"), "1,0,100,\"Player\",\"Lorinda\",1000\r\n");
}

// The robot reaches the target by a meld after the first trick: it knocks
// then, before either side draws, and the game is lost with the totals as
// they stand.
TEST(KnockInPlay, RobotKnocksBeforeAnyDraw) {
    HeadlessGame hg(5);
    PlayerPolicy player(PolicyKind::First, 5);
    int stockAtTheEnd = -1;
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.policy = [&](Game& g) -> std::optional<TableEvent> {
        if (g.RoundOneOn && g.TrickCount == 1 && g.OpponentTotal < 1000) {
            g.OpponentTotal = 1000;
        }
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

}  // namespace
}  // namespace trickhaven
