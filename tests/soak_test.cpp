// Hundreds of hands in one process cost nothing per hand: the stack stands
// at the same depth at the same point of play, and memory stays put.
#include <gtest/gtest.h>

#include "tools/sim/process_probe.h"
#include "tools/sim/simulation.h"

namespace trickhaven {
namespace {

#if defined(__SANITIZE_ADDRESS__)
// The address sanitizer holds freed memory back for a while.
constexpr long kAllowedGrowthKiB = 64 * 1024;
#else
constexpr long kAllowedGrowthKiB = 1024;
#endif

constexpr long kRareNestingBytes = 4096;

TEST(Soak, ThreeHundredHandsLeaveStackAndMemoryWhereThirtyLeftThem) {
    SimOptions options;
    options.policy = "greedy";
    options.games = 1000000;
    options.hands = 300;
    options.seed = 42;
    options.speed = 0;
    options.checkpoints = {30, 300};
    options.stackBase = StackMark();
    const SimReport report = Simulate(options);
    ASSERT_EQ(report.violations, 0);
    EXPECT_GE(report.hands, 300);
    ASSERT_EQ(report.checkpoints.size(), 2U);
    const Checkpoint& early = report.checkpoints[0];
    const Checkpoint& late = report.checkpoints[1];
    EXPECT_EQ(early.hands, 30);
    EXPECT_EQ(late.hands, 300);
    EXPECT_GT(early.stackDepth, 0);
    EXPECT_EQ(late.stackDepth, early.stackDepth);
    // Rare paths may still reach a little deeper later on; a hand that
    // nested in the one before would add hundreds of bytes a hand.
    EXPECT_LT(late.deepestStack - early.deepestStack, kRareNestingBytes);
    EXPECT_LT(late.residentKiB - early.residentKiB, kAllowedGrowthKiB);
}

TEST(Soak, ALongRunOfGamesKeepsNoHistoryOnTheTable) {
    // Games rather than hands: every game's end, new game and message path
    // runs over and over.
    SimOptions options;
    options.policy = "random";
    options.games = 40;
    options.seed = 9;
    options.speed = 0;
    options.checkpoints = {10, 100};
    options.stackBase = StackMark();
    const SimReport report = Simulate(options);
    ASSERT_EQ(report.violations, 0);
    EXPECT_EQ(report.games, 40);
    ASSERT_EQ(report.checkpoints.size(), 2U);
    EXPECT_EQ(report.checkpoints[1].stackDepth, report.checkpoints[0].stackDepth);
    EXPECT_LT(report.checkpoints[1].residentKiB - report.checkpoints[0].residentKiB,
              kAllowedGrowthKiB);
}

}  // namespace
}  // namespace trickhaven
