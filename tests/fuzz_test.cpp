// Any sequence of clicks and menu commands, the data files failing under the
// game, leaves the table whole: the chaos player's runs break no rule, and
// the rules themselves catch a table that is wrong.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "data/data_file.h"
#include "headless/headless_game.h"
#include "tests/table_fixtures.h"
#include "tools/sim/json_text.h"
#include "tools/sim/simulation.h"
#include "tools/sim/table_checks.h"

namespace trickhaven {
namespace {

SimOptions ChaosRun(std::uint64_t seed, long games) {
    SimOptions options;
    options.policy = "chaos";
    options.games = games;
    options.seed = seed;
    options.speed = 0;
    return options;
}

std::string Notes(const SimReport& report) {
    std::string all;
    for (const std::string& note : report.notes) all += note + "\n";
    return all;
}

class ChaosSeeds : public testing::TestWithParam<std::uint64_t> {};

TEST_P(ChaosSeeds, AnyClicksLeaveEveryRuleStandingAndTheGamesFinish) {
    const SimReport report = Simulate(ChaosRun(GetParam(), 4));
    EXPECT_EQ(report.violations, 0) << Notes(report);
    EXPECT_EQ(report.games, 4);
    EXPECT_EQ(report.playerWins + report.robotWins, 4);
    EXPECT_GT(report.injected, 100);
    EXPECT_EQ(report.sessions, 1);
}

INSTANTIATE_TEST_SUITE_P(Seeds, ChaosSeeds, testing::Values(1U, 2U, 3U, 5U, 8U, 13U));

TEST(ChaosFaults, EveryFailedWriteLeavesDataDatAsItWasAndPlayGoesOn) {
    const auto folder =
        std::filesystem::temp_directory_path() /
        ("trickhaven-failing-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()));
    std::filesystem::create_directories(folder);
    const std::string before = "3,4,25,\"Ann, the \",\"Bot\",500\r\n";
    ASSERT_TRUE(WriteFileWhole(folder / "Data.dat", before));
    SimOptions options = ChaosRun(21, 3);
    options.dataDir = folder;
    options.failWrites = true;
    const SimReport report = Simulate(options);
    EXPECT_EQ(report.violations, 0) << Notes(report);
    EXPECT_EQ(report.games, 3);
    EXPECT_EQ(FileBytes(folder / "Data.dat"), before);
    EXPECT_FALSE(std::filesystem::exists(folder / "All.dat"));
    // The run clears away what it put in the way of the writes.
    EXPECT_FALSE(std::filesystem::exists(folder / "Data.dat.tmp"));
    std::filesystem::remove_all(folder);
}

TEST(ChaosFaults, AnExitAnsweredNowAndThenRestartsTheProgramWithItsData) {
    long exits = 0;
    for (const std::uint64_t seed : {11U, 14U, 202U}) {
        SimOptions options = ChaosRun(seed, 4);
        options.allowExit = true;
        const SimReport report = Simulate(options);
        EXPECT_EQ(report.violations, 0) << Notes(report);
        EXPECT_EQ(report.games, 4);
        EXPECT_EQ(report.sessions, report.exitsTaken + 1);
        exits += report.exitsTaken;
    }
    EXPECT_GT(exits, 0);
}

// A table laid for the first trick of Round One: twelve cards each, the up
// card, the rest in the stock, the player to lead.
struct FirstTrick {
    FirstTrick() {
        ClearTable(g);
        for (int card = 1; card <= 24; ++card) {
            Card(g, card).Place = card % 2 == 1 ? PlacePlayerHand : PlaceOpponentHand;
        }
        g.UpCard = 25;
        Card(g, g.UpCard).Place = PlaceUpCard;
        g.TrumpSuit = Card(g, g.UpCard).Suit;
        g.GameOn = true;
        g.RoundOneOn = true;
        g.TrickCount = 1;
        g.HandNumber = 1;
        g.Leader = ThePlayer;
        g.Dealer = TheRobot;
        g.StockLeft = 24;
    }

    // The player leads card a, the robot answers with b.
    void Play(int a, int b) {
        checks.OnPlay(g, CardPlayed(ThePlayer, a));
        Card(g, a).Place = PlacePlayed;
        checks.OnPlay(g, CardPlayed(TheRobot, b));
        Card(g, b).Place = PlacePlayed;
    }

    HeadlessGame hg;
    Game& g = hg.game;
    TableChecks checks;
};

TEST(TableChecks, AFairTrickPassesAndEachKindOfWrongTrickIsCaught) {
    const int aceOfDiamonds = CardIndex(Ace, Diamonds);    // the player's
    const int otherAce = aceOfDiamonds + 1;                // the robot's
    const int tenOfDiamonds = CardIndex(Ten, Diamonds);    // the player's
    const int nineOfDiamonds = CardIndex(Nine, Diamonds);  // the player's
    struct Case {
        const char* name;
        int winner;
        int points;
        bool replay;  // the player's card played once more
        bool fault;
    };
    const Case cases[] = {
        {"the leader's Ace holds against the equal Ace", ThePlayer, 22, false, false},
        {"the trick given to the wrong side", TheRobot, 22, false, true},
        {"the trick valued wrong", ThePlayer, 21, false, true},
        {"a card played twice", ThePlayer, 22, true, true},
    };
    for (const Case& c : cases) {
        FirstTrick table;
        table.Play(aceOfDiamonds, otherAce);
        table.checks.OnPlay(table.g, TrickTaken(c.winner, c.points));
        if (c.replay) table.checks.OnPlay(table.g, CardPlayed(ThePlayer, aceOfDiamonds));
        EXPECT_EQ(table.checks.violations > 0, c.fault) << c.name;
    }
    FirstTrick fromStock;
    fromStock.checks.OnPlay(fromStock.g, CardPlayed(ThePlayer, 30));
    EXPECT_EQ(fromStock.checks.violations, 1) << "a card played from the stock";
    FirstTrick wrongLeader;
    wrongLeader.checks.OnPlay(wrongLeader.g, CardPlayed(TheRobot, otherAce));
    EXPECT_EQ(wrongLeader.checks.violations, 1) << "the robot leading the player's trick";
    FirstTrick shortHand;
    Card(shortHand.g, tenOfDiamonds).Place = PlaceStock;
    shortHand.checks.OnPlay(shortHand.g, CardPlayed(ThePlayer, nineOfDiamonds));
    EXPECT_EQ(shortHand.checks.violations, 1) << "a lead from eleven cards";
}

TEST(TableChecks, RoundTwoHoldsBothSidesToSuitAndTrump) {
    // Trumps Hearts. The robot holds a Diamond and a Heart; the player leads
    // a Diamond.
    const int led = CardIndex(King, Diamonds);
    const int robotDiamond = CardIndex(Queen, Diamonds);
    const int robotClub = CardIndex(Queen, Clubs);
    const int robotHeart = CardIndex(Queen, Hearts);
    for (const auto& [answer, violations] :
         {std::pair{robotDiamond, 0L}, std::pair{robotClub, 1L}, std::pair{robotHeart, 1L}}) {
        HeadlessGame hg;
        Game& g = hg.game;
        ClearTable(g);
        for (int card = 1; card <= CardCount; ++card) Card(g, card).Place = PlacePlayed;
        PlaceCards(g, PlacePlayerHand, {led, CardIndex(Nine, Spades)});
        PlaceCards(g, PlaceOpponentHand, {robotDiamond, robotHeart});
        if (answer == robotClub) {
            Card(g, robotHeart).Place = PlacePlayed;
            Card(g, robotClub).Place = PlaceOpponentHand;
        }
        g.GameOn = true;
        g.RoundTwoOn = true;
        g.TrickCount = 23;
        g.Leader = ThePlayer;
        g.TrumpSuit = Hearts;
        TableChecks checks;
        checks.OnPlay(g, CardPlayed(ThePlayer, led));
        Card(g, led).Place = PlacePlayed;
        checks.OnPlay(g, CardPlayed(TheRobot, answer));
        EXPECT_EQ(checks.violations, violations) << "robot answers card " << answer;
    }
}

TEST(TableChecks, FlagsThatNothingCanReleaseAreCaught) {
    struct Case {
        const char* name;
        void (*spoil)(Game&);
    };
    const Case cases[] = {
        {"a meld awaited with no panel up", [](Game& g) { g.MeldAwaited = true; }},
        {"a card awaited with the game over", [](Game& g) { g.GameOn = false; }},
        {"a card in no place", [](Game& g) { Card(g, 40).Place = 0; }},
        {"both rounds at once", [](Game& g) { g.RoundTwoOn = true; }},
    };
    for (const Case& c : cases) {
        FirstTrick table;
        table.g.PlayerMayPlay = true;
        table.checks.OnRound(table.g);
        ASSERT_EQ(table.checks.violations, 0) << c.name;
        c.spoil(table.g);
        table.checks.OnRound(table.g);
        EXPECT_GE(table.checks.violations, 1) << c.name;
    }
}

TEST(TableChecks, APlayedCardThatLeavesThePileIsCaught) {
    FirstTrick table;
    Card(table.g, 3).Place = PlacePlayed;
    table.checks.OnRound(table.g);
    EXPECT_EQ(table.checks.violations, 0);
    Card(table.g, 3).Place = PlacePlayerHand;
    table.checks.OnRound(table.g);
    EXPECT_GE(table.checks.violations, 1);
}

TEST(TableChecks, DataFilesThatDoNotReadBackAreCaught) {
    HeadlessGame hg;
    TableChecks checks;
    ASSERT_TRUE(WriteFileWhole(hg.folder / "Data.dat", "0,0,100,\"P\",\"L\",1000\r\n"));
    checks.CheckDataFiles(hg.folder, std::nullopt);
    EXPECT_EQ(checks.violations, 0);
    ASSERT_TRUE(WriteFileWhole(hg.folder / "All.dat", "0,0,100,\"P"));
    checks.CheckDataFiles(hg.folder, std::nullopt);
    EXPECT_EQ(checks.violations, 1);
    checks.CheckDataFiles(hg.folder, std::string("something else"));
    EXPECT_EQ(checks.violations, 3);
}

TEST(JsonText, EscapesAndRepairsWhatANameMayHold) {
    const std::pair<std::string, std::string> cases[] = {
        {"plain", "\"plain\""},
        {"say \"hi\"", "\"say \\\"hi\\\"\""},
        {"a\\b", "\"a\\\\b\""},
        {"two\r\nlines\t", "\"two\\r\\nlines\\t\""},
        {std::string("nul\0x", 5), "\"nul\\u0000x\""},
        {"\x1f", "\"\\u001f\""},
        {"Zo\xC3\xAB \xE5\x90\x8D \xF0\x9F\x82\xA1",
         "\"Zo\xC3\xAB \xE5\x90\x8D \xF0\x9F\x82\xA1\""},
        {"\xFF", "\"\xEF\xBF\xBD\""},
        {"cut \xC3", "\"cut \xEF\xBF\xBD\""},
        {"\xC0\xAF", "\"\xEF\xBF\xBD\xEF\xBF\xBD\""},                  // overlong slash
        {"\xED\xA0\x80", "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\""},  // a surrogate
        {"\xF4\x90\x80\x80", "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\""},
    };
    for (const auto& [text, json] : cases) {
        EXPECT_EQ(JsonString(text), json) << text;
    }
}

}  // namespace
}  // namespace trickhaven
