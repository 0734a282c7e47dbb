// The waits, the only source of time; the paces of the deal are read in the
// deal's tests.
#include "game/pacing.h"

#include <gtest/gtest.h>

#include "headless/headless_game.h"

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

}  // namespace
}  // namespace trickhaven
