// Any sequence of clicks and menu commands, at every speed a player can
// choose and with the data files failing under the game, leaves the table
// whole, and the games come to an end.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "tools/sim/json_text.h"
#include "tools/sim/simulation.h"

namespace trickhaven {
namespace {

SimOptions ChaosRun(std::uint64_t seed, int speed, long games,
                    const std::string& robot = "classic") {
    SimOptions options;
    options.policy = "chaos";
    options.robot = robot;
    options.games = games;
    options.seed = seed;
    options.speed = speed;
    return options;
}

std::string Notes(const SimReport& report) {
    std::string all;
    for (const std::string& note : report.notes) all += note + "\n";
    return all;
}

// At speed 0 the game's own waits serve no click; at the others every wait
// does, and a trick won in Round Two already takes the next lead in its
// closing wait. Either robot plays.
class ChaosAtSpeed : public testing::TestWithParam<std::tuple<int, std::uint64_t, std::string>> {};

TEST_P(ChaosAtSpeed, AnyClicksAndKeysLeaveEveryRuleStandingAndTheGamesFinish) {
    const auto [speed, seed, robot] = GetParam();
    const SimReport report = Simulate(ChaosRun(seed, speed, 5, robot));
    EXPECT_EQ(report.violations, 0) << Notes(report);
    EXPECT_EQ(report.decisionMs.empty(), robot == "classic");
    EXPECT_EQ(report.playerWins + report.robotWins, 5);
    EXPECT_GT(report.injected, 100);
    EXPECT_GT(report.keysPressed, 1000);
    EXPECT_EQ(report.sessions, 1);
}

INSTANTIATE_TEST_SUITE_P(Speeds, ChaosAtSpeed,
                         testing::Combine(testing::Values(0, 25, 100, 250),
                                          testing::Values(1U, 2U, 3U),
                                          testing::Values("classic", "expert")));

// The Expert in both seats, the player's through his own clicks: whole,
// legal games at every speed, the same again from the same seed.
class ExpertAtSpeed : public testing::TestWithParam<int> {};

TEST_P(ExpertAtSpeed, ExpertAgainstExpertPlaysWholeGamesThatReplayExactly) {
    SimOptions options;
    options.policy = "expert";
    options.robot = "expert";
    options.games = 2;
    options.seed = 5;
    options.speed = GetParam();
    const SimReport first = Simulate(options);
    EXPECT_EQ(first.violations, 0) << Notes(first);
    EXPECT_EQ(first.playerWins + first.robotWins, 2);
    EXPECT_GT(first.playerMelds, 0);
    EXPECT_GT(first.robotMelds, 0);
    const SimReport again = Simulate(options);
    EXPECT_EQ(again.signature, first.signature);
    EXPECT_EQ(again.handPoints, first.handPoints);
}

INSTANTIATE_TEST_SUITE_P(Speeds, ExpertAtSpeed, testing::Values(0, 25, 100, 250));

TEST(ChaosFaults, EveryWriteFailingLeavesTheDataFilesAsTheyWereAndPlayGoesOn) {
    SimOptions options = ChaosRun(21, 100, 3);
    options.failWrites = true;
    const SimReport report = Simulate(options);
    EXPECT_EQ(report.violations, 0) << Notes(report);
    EXPECT_EQ(report.games, 3);
}

TEST(ChaosFaults, AnExitAnsweredNowAndThenRestartsTheProgramWithItsData) {
    long exits = 0;
    for (const std::uint64_t seed : {11U, 14U, 202U}) {
        SimOptions options = ChaosRun(seed, 25, 4);
        options.allowExit = true;
        const SimReport report = Simulate(options);
        EXPECT_EQ(report.violations, 0) << Notes(report);
        EXPECT_EQ(report.games, 4);
        EXPECT_EQ(report.sessions, report.exitsTaken + 1);
        exits += report.exitsTaken;
    }
    EXPECT_GT(exits, 0);
}

TEST(ChaosFaults, AGameTakenUpAtARestartStandsWhereItsLastHandLeftIt) {
    // Seeds whose exits come after hands with points, so that a standing
    // taken up is more than a fresh game.
    long takenUp = 0;
    for (const std::uint64_t seed : {3U, 10U}) {
        SimOptions options = ChaosRun(seed, 25, 24);
        options.allowExit = true;
        const SimReport report = Simulate(options);
        EXPECT_EQ(report.violations, 0) << Notes(report);
        takenUp += report.gamesTakenUp;
    }
    EXPECT_GT(takenUp, 4);
}

TEST(JsonText, EscapesAndRepairsWhatANameMayHold) {
    const std::pair<std::string, std::string> cases[] = {
        {"say \"hi\" a\\b", "\"say \\\"hi\\\" a\\\\b\""},
        {"two\r\nlines\t", "\"two\\r\\nlines\\t\""},
        {std::string("nul\0\x1f", 5), "\"nul\\u0000\\u001f\""},
        {"Zo\xC3\xAB \xF0\x9F\x82\xA1", "\"Zo\xC3\xAB \xF0\x9F\x82\xA1\""},
        {"cut \xC3", "\"cut \xEF\xBF\xBD\""},
        {"\xC0\xAF", "\"\xEF\xBF\xBD\xEF\xBF\xBD\""},                  // overlong slash
        {"\xED\xA0\x80", "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\""},  // a surrogate
    };
    for (const auto& [text, json] : cases) {
        EXPECT_EQ(JsonString(text), json) << text;
    }
}

}  // namespace
}  // namespace trickhaven
