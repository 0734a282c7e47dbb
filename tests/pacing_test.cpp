// The waits and pumps: the only source of time, and the points where
// clicks and menu commands come in.
#include "game/pacing.h"

#include <gtest/gtest.h>

#include <limits>

#include "game/session.h"
#include "headless/headless_game.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

TEST(WaitDelay, EndsAfterItsLengthAndAZeroWaitServesNothing) {
    HeadlessGame hg;
    Game& g = hg.game;
    g.DelayMs = 100;
    const std::int32_t start = hg.platform.TickCount();
    WaitDelay(g);
    EXPECT_EQ(hg.platform.TickCount() - start, 100);
    EXPECT_EQ(g.DelayStart, start);

    const long rounds = hg.platform.rounds;
    g.DelayMs = 0;
    WaitDelay(g);
    EXPECT_EQ(hg.platform.rounds, rounds);
    EXPECT_EQ(hg.platform.TickCount() - start, 100);
}

TEST(WaitDelay, AWaitAcrossTheWrapOfTheTickCountEndsOnTime) {
    HeadlessGame hg;
    Game& g = hg.game;
    hg.platform.SetClock(std::numeric_limits<std::int32_t>::max() - 40);
    g.DelayMs = 100;
    WaitDelay(g);
    EXPECT_EQ(hg.platform.TickCount(), std::numeric_limits<std::int32_t>::min() + 59);
    EXPECT_EQ(hg.platform.rounds, 1);
}

TEST(WaitDelay, AHandlerThatChangesDelayMsChangesTheWaitItInterrupted) {
    HeadlessGame hg;
    Game& g = hg.game;
    ClearTable(g);
    g.GameSpeed = 100;
    g.DelayMs = 1000;
    hg.table.SetCaption(TableLabel::CmdSort, "Sort Same");
    // The sort lays the row afresh and puts DelayMs back to GameSpeed.
    hg.platform.script.push_back({TableEventKind::SortClick});
    const std::int32_t start = hg.platform.TickCount();
    WaitDelay(g);
    EXPECT_EQ(g.DelayMs, 100);
    EXPECT_EQ(hg.platform.TickCount() - start, 100);
}

TEST(WaitDelay, AMenuCommandIsServedInsideTheWaitAndLeavesItsLength) {
    HeadlessGame hg;
    Game& g = hg.game;
    g.GameSpeed = 100;
    g.DelayMs = 300;
    hg.platform.script.push_back({TableEventKind::MenuFast});
    const std::int32_t start = hg.platform.TickCount();
    WaitDelay(g);
    EXPECT_EQ(g.GameSpeed, 25);
    EXPECT_EQ(g.DelayMs, 300) << "the new pace waits for the next routine that sets DelayMs";
    EXPECT_EQ(hg.platform.TickCount() - start, 300);
    ASSERT_EQ(hg.table.Messages().size(), 1U);
    EXPECT_EQ(hg.table.Messages()[0].kind, "plain");
    EXPECT_EQ(hg.table.Messages()[0].title, "Trickhaven");
    EXPECT_EQ(FileBytes(hg.folder / "Data.dat").substr(0, 7), "0,0,25,");
}

TEST(WaitDealSound, StartsTheCardSoundThenWaits) {
    HeadlessGame hg;
    hg.game.DelayMs = 40;
    const std::int32_t start = hg.platform.TickCount();
    WaitDealSound(hg.game);
    ASSERT_EQ(hg.platform.sounds, std::vector<std::string>{"carddeal1.wav"});
    EXPECT_EQ(hg.platform.TickCount() - start, 40);
}

TEST(SpeedCommands, SetTheSpeedStoreItAndSayHow) {
    struct Case {
        TableEventKind command;
        int speed;
        std::string message;
    };
    const std::vector<Case> cases{
        {TableEventKind::MenuSlow, 250,
         " The cards should now play slowly, but it will depend on the speed of your computer "
         "to a degree."},
        {TableEventKind::MenuFast, 25,
         " The cards should now play faster, but it will depend on the speed of your computer "
         "to a degree."},
        {TableEventKind::MenuMedium, 100,
         " The cards should now play at a medium speed, but it will depend on the speed of "
         "your computer to a degree."},
    };
    HeadlessGame hg;
    for (const Case& c : cases) {
        HandleEvent(hg.game, {c.command});
        EXPECT_EQ(hg.game.GameSpeed, c.speed);
        EXPECT_EQ(hg.table.Messages().back().text, c.message);
        EXPECT_EQ(FileBytes(hg.folder / "Data.dat"),
                  "0,0," + std::to_string(c.speed) + ",\"Player\",\"\",0\r\n");
    }
}

TEST(Pump, ServesUntilAHandlerClearsTheFlagAndNeverWaitsForNothing) {
    HeadlessGame hg;
    Game& g = hg.game;
    g.PlayerMayPlay = true;
    int served = 0;
    hg.platform.policy = [&](Game& game) -> std::optional<TableEvent> {
        if (++served == 3) {
            game.PlayerMayPlay = false;
        }
        return TableEvent{TableEventKind::MenuReminder};
    };
    PumpWhile(g, g.PlayerMayPlay);
    EXPECT_EQ(served, 3);
    EXPECT_TRUE(hg.table.IsControlVisible(TableControl::FramMeldHelp));

    hg.platform.policy = nullptr;
    g.MeldAwaited = true;
    EXPECT_THROW(PumpWhile(g, g.MeldAwaited), TableStuck);
}

TEST(Pump, ARequestForANewGameUnwindsTheWaitThatServedIt) {
    HeadlessGame hg;
    Game& g = hg.game;
    g.GameOn = true;
    g.DelayMs = 500;
    hg.table.answerDeluxe = [](const MessageRecord&) { return 1; };
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    EXPECT_THROW(WaitDelay(g), GameAbandoned);
    EXPECT_EQ(g.Request, SessionRequest::NewGame);
    EXPECT_FALSE(g.GameOn);
    EXPECT_LT(hg.platform.TickCount(), 500) << "the rest of the wait is not waited";
}

}  // namespace
}  // namespace trickhaven
