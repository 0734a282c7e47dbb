// Many hands in one process cost nothing per hand, at every speed and under
// any clicks: the stack stands at the same depth at the same point of play,
// and memory stays put.
#include <gtest/gtest.h>

#include "tools/sim/process_probe.h"
#include "tools/sim/simulation.h"

namespace trickhaven {
namespace {

#if defined(__SANITIZE_ADDRESS__)
// The address sanitizer holds up to 256 MiB of freed memory back, with its
// shadow beside it.
constexpr long kAllowedGrowthKiB = 384 * 1024;
#else
constexpr long kAllowedGrowthKiB = 1024;
#endif

// Rare paths may still reach a little deeper later on; a hand that nested
// in the one before would add hundreds of bytes a hand.
constexpr long kRareNestingBytes = 4096;

class SoakAtSpeed : public testing::TestWithParam<int> {};

TEST_P(SoakAtSpeed, ManyHandsLeaveStackAndMemoryWhereTheFirstLeftThem) {
    SimOptions options;
    options.policy = "chaos";
    options.games = 1000000;
    options.hands = 120;
    options.seed = 42;
    options.speed = GetParam();
    options.checkpoints = {20, 120};
    options.stackBase = StackMark();
    const SimReport report = Simulate(options);
    ASSERT_EQ(report.violations, 0);
    ASSERT_EQ(report.checkpoints.size(), 2U);
    const Checkpoint& early = report.checkpoints[0];
    const Checkpoint& late = report.checkpoints[1];
    EXPECT_GT(report.games, 20);
    EXPECT_GT(early.stackDepth, 0);
    EXPECT_EQ(late.stackDepth, early.stackDepth);
    EXPECT_LT(late.deepestStack - early.deepestStack, kRareNestingBytes);
    EXPECT_LT(late.residentKiB - early.residentKiB, kAllowedGrowthKiB);
}

INSTANTIATE_TEST_SUITE_P(Speeds, SoakAtSpeed, testing::Values(0, 25, 100, 250));

}  // namespace
}  // namespace trickhaven
