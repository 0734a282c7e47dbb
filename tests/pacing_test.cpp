// The waits, the only source of time; the paces of the deal are read in the
// deal's tests.
#include "game/pacing.h"

#include <gtest/gtest.h>

#include "headless/headless_game.h"
#include "headless/player_policy.h"

namespace trickhaven {
namespace {

TEST(WaitDelay, AZeroWaitServesNothingAndAHandlerThatSetsThePaceMovesTheEnd) {
    HeadlessGame hg;
    Game& g = hg.game;
    WaitDelay(g);
    EXPECT_EQ(hg.platform.rounds, 0);
    g.DelayMs = 1000;
    hg.table.SetCaption(TableLabel::CmdSort, "Sort Same");
    // The sort lays the row afresh and puts DelayMs back to GameSpeed.
    hg.platform.script.push_back({TableEventKind::SortClick});
    WaitDelay(g);
    EXPECT_EQ(hg.platform.TickCount(), 100);
    // A wait nested in a handler moves DelayStart, so the wait it interrupted
    // runs its length again from where the nested one began.
    hg.platform.script.push_back({TableEventKind::KnockClick});
    hg.platform.policy = [rounds = 0](Game& game) mutable -> std::optional<TableEvent> {
        if (++rounds == 1) {
            game.DelayMs = 50;
            WaitDelay(game);
            game.DelayMs = 100;
        }
        return std::nullopt;
    };
    WaitDelay(g);
    EXPECT_EQ(hg.platform.TickCount(), 100 + 1 + 100);
}

// The Expert thinks inside the robot's own pause: given the time it took,
// the next wait is that much shorter, and every card of a hand is played at
// the moment it would have been had it thought in no time.
TEST(WaitDelay, TheExpertsThinkingComesOutOfTheRobotsPause) {
    auto cardTimes = [](std::int32_t thinkingMs) {
        HeadlessGame hg(9);
        PlayerPolicy player(PolicyKind::Greedy, 9);
        std::vector<std::int32_t> times;
        bool handOver = false;
        int decisions = 0;
        hg.game.onThinking = [&](bool starting) {
            if (!starting) hg.platform.SetClock(hg.platform.TickCount() + thinkingMs);
            decisions += starting ? 1 : 0;
        };
        hg.game.onPlay = [&](const Game&, const PlayLogEvent& e) {
            if (e.kind == PlayLogKind::Card) times.push_back(hg.platform.TickCount());
            handOver = handOver || e.kind == PlayLogKind::HandEnd;
        };
        hg.table.answerDeluxe = [&](const MessageRecord& m) { return player.Answer(m); };
        hg.platform.script.push_back({TableEventKind::MenuExpert});
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.platform.policy = [&](Game& g) { return player.Next(g); };
        hg.platform.stopWhen = [&](const Game&) { return handOver; };
        hg.Run();
        EXPECT_GT(decisions, 12);
        return times;
    };
    const std::vector<std::int32_t> atOnce = cardTimes(0);
    EXPECT_EQ(atOnce.size(), 48U);
    EXPECT_EQ(cardTimes(90), atOnce);
}

}  // namespace
}  // namespace trickhaven
