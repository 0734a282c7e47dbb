// The keys in the window: which widgets take the focus, Tab's order, the
// focus following the hand, and the ring shown only to the keyboard.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "forms/card_picture.h"
#include "forms/qt_platform.h"
#include "forms/table_keyboard.h"
#include "forms_test_support.h"
#include "game/card_table.h"
#include "game/hand_setup.h"

namespace trickhaven {
namespace {

using E = TableEventKind;

class TableKeysTest : public ::testing::Test {
protected:
    void SetUp() override {
        log.Listen(table);
        LoadCardTable(g);
        for (int card = 1; card <= CardCount; ++card) Card(g, card).Place = PlaceStock;
        table.SetGame(g);
        table.show();
        QApplication::setActiveWindow(&table);
    }

    QWidget* Picture(int card) {
        return FindControl(table, qPrintable(QString("PicCard%1").arg(card)));
    }
    QWidget* Ring() { return table.Surface()->findChild<FocusRing*>(); }
    QWidget* Focused() { return table.Surface()->focusWidget(); }

    // The player's hand laid out in a row, face up.
    void Deal(std::initializer_list<int> mine) {
        int left = 2500;
        for (const int card : mine) {
            Card(g, card).Place = PlacePlayerHand;
            table.SetCardImage(card, card);
            table.MoveCard(card, left, 10080);
            left += 600;
        }
        QApplication::processEvents();
    }
    void Press(Qt::Key key, QWidget* at = nullptr) {
        QTest::keyClick(at != nullptr ? at : table.Surface()->focusWidget(), key);
        QApplication::processEvents();
    }
    void Click(QWidget* widget) {
        QTest::mouseClick(widget, Qt::LeftButton);
        QApplication::processEvents();
    }

    PinochleTable table;
    QtPlatform platform{"."};
    Game g{table, platform};
    EventLog log;
};

TEST_F(TableKeysTest, OnlyTheHandsCardsTakeTheFocusTheKeysWalkAndPlayThemAndTheRingIsTheKeys) {
    Deal({25, 3, 40});
    Card(g, 7).Place = PlacePlayed;
    table.SetCardImage(7, 7);
    QApplication::processEvents();
    for (int card = 1; card <= CardCount; ++card) {
        const bool mine = card == 25 || card == 3 || card == 40;
        EXPECT_EQ(Picture(card)->focusPolicy() == Qt::StrongFocus, mine) << card;
    }
    Click(Picture(3));
    EXPECT_FALSE(Ring()->isVisible());
    Press(Qt::Key_Home, Picture(40));
    EXPECT_EQ(Focused(), Picture(25));
    ASSERT_TRUE(Ring()->isVisible());
    EXPECT_TRUE(Ring()->geometry().contains(Picture(25)->geometry()));
    Press(Qt::Key_Right);
    EXPECT_EQ(Focused(), Picture(3));
    Press(Qt::Key_End);
    Press(Qt::Key_Right);
    EXPECT_EQ(Focused(), Picture(40));
    Press(Qt::Key_Left);
    Click(Picture(3));
    EXPECT_FALSE(Ring()->isVisible());
    EXPECT_FALSE(table.Keyboard().KeyboardInUse());
    Press(Qt::Key_Right, Picture(25));
    // A card played: the focus takes the one now in its place.
    Card(g, 3).Place = PlacePlayed;
    table.MoveCard(3, 7800, 6540);
    table.MoveCard(40, 3100, 10080);
    QApplication::processEvents();
    EXPECT_EQ(Focused(), Picture(40));
    // The last card goes and then the whole hand.
    Card(g, 40).Place = PlacePlayed;
    table.SetCardVisible(40, false);
    QApplication::processEvents();
    EXPECT_EQ(Focused(), Picture(25));
    Card(g, 25).Place = PlacePlayed;
    table.MoveCard(25, 7800, 6540);
    QApplication::processEvents();
    Press(Qt::Key_Return, Picture(25));
    EXPECT_EQ(log.events, (std::vector<TableEvent>(2, {E::CardClick, 3})));
}

// A panel takes the focus on its first button; Enter or Space on each stop
// of Tab's round gives the mouse's click, and Escape the offer's Cancel; a
// button shows its focus to the keyboard only.
TEST_F(TableKeysTest,
       PanelsTakeTheFocusTabGoesRoundTheShownControlsAndEachKeyClicksAsTheMouseDoes) {
    Deal({25, 3});
    QWidget* sort = FindControl(table, "CmdSort");
    for (const auto& [shown, first] : {std::pair{TableControl::CmdSort, "PicCard25"},
                                       std::pair{TableControl::LblKnock, "PicCard25"},
                                       std::pair{TableControl::FramDeclare, "CmdDBezique"},
                                       std::pair{TableControl::FramMarriage, "CmdMarriage1"}}) {
        table.SetControlVisible(shown, true);
        QApplication::processEvents();
        EXPECT_EQ(Focused()->objectName(), first);
    }
    const QImage designed = sort->grab().toImage();
    std::vector<QString> round;
    for (std::size_t step = 0; step < 17; ++step) {
        Press(Qt::Key_Tab);
        QWidget* stop = Focused();
        round.push_back(stop->objectName());
        EXPECT_TRUE(stop != sort || sort->grab().toImage() != designed);
        Press(step % 2 == 0 ? Qt::Key_Return : Qt::Key_Space);
        Click(stop);
        EXPECT_TRUE(stop->hasFocus());
        EXPECT_TRUE(stop != sort || sort->grab().toImage() == designed);
        ASSERT_EQ(log.events.size(), 2 * step + 2) << round.back().toStdString();
        EXPECT_TRUE(log.events[2 * step] == log.events[2 * step + 1]) << round.back().toStdString();
    }
    EXPECT_EQ(round, (std::vector<QString>{"CmdMarriage2", "CmdMarriage3", "CmdMarriage4",
                                           "PicCard25", "CmdSort", "LblKnock", "CmdDBezique",
                                           "CmdBezique", "CmdSequence", "CmdFours3", "CmdFours0",
                                           "CmdFours1", "CmdFours2", "cmdDec7Trumps",
                                           "CmdMakeMarriage4", "CmdCancel", "CmdMarriage1"}));
    Press(Qt::Key_K);
    EXPECT_TRUE(log.events.back() == TableEvent{E::KnockClick});
    Press(Qt::Key_Escape);
    EXPECT_TRUE(log.events.back() == TableEvent{E::CancelClick});
    // The reminder comes up on its O.K, which Escape presses.
    table.SetControlVisible(TableControl::FramMeldHelp, true);
    QApplication::processEvents();
    EXPECT_EQ(Focused()->objectName(), "Command1");
    Press(Qt::Key_Escape);
    EXPECT_TRUE(log.events.back() == TableEvent{E::ReminderOkClick});
}

}  // namespace
}  // namespace trickhaven
