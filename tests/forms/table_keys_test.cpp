// The keys in the window: which widgets take the focus, Tab's order, the
// focus following the hand, the ring shown only to the keyboard, and the
// message box answering Enter, Escape and Tab.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "forms/card_picture.h"
#include "forms/mform_deluxe.h"
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

    // The player's hand laid out in a row, face up, the robot's face down.
    void Deal(std::initializer_list<int> mine, std::initializer_list<int> robots) {
        int left = 2500;
        for (const int card : mine) {
            Card(g, card).Place = PlacePlayerHand;
            table.SetCardImage(card, card);
            table.MoveCard(card, left, 10080);
            left += 600;
        }
        left = 2500;
        for (const int card : robots) {
            Card(g, card).Place = PlaceOpponentHand;
            table.SetCardImage(card, CardBackImage);
            table.MoveCard(card, left, 120);
            left += 600;
        }
        QApplication::processEvents();
    }
    void Press(Qt::Key key, QWidget* at = nullptr) {
        QTest::keyClick(at != nullptr ? at : table.Surface()->focusWidget(), key);
        QApplication::processEvents();
    }

    PinochleTable table;
    QtPlatform platform{"."};
    Game g{table, platform};
    EventLog log;
};

TEST_F(TableKeysTest, OnlyTheHandsCardsAndTheShownControlsTakeTheFocusAndKeysWalkAndPlayThem) {
    Deal({25, 3, 40}, {13, 14});
    Card(g, 7).Place = PlacePlayed;
    table.SetCardImage(7, 7);
    QApplication::processEvents();
    for (int card = 1; card <= CardCount; ++card) {
        const bool mine = card == 25 || card == 3 || card == 40;
        EXPECT_EQ(Picture(card)->focusPolicy() == Qt::StrongFocus, mine) << card;
    }
    Press(Qt::Key_Home, Picture(40));
    EXPECT_EQ(Focused(), Picture(25));
    Press(Qt::Key_Right);
    EXPECT_EQ(Focused(), Picture(3));
    Press(Qt::Key_End);
    Press(Qt::Key_Right);
    EXPECT_EQ(Focused(), Picture(40));
    Press(Qt::Key_Left);
    Press(Qt::Key_Return);
    Press(Qt::Key_Space);
    Press(Qt::Key_K);  // no knock to be made
    EXPECT_EQ(log.events, (std::vector<TableEvent>{{E::CardClick, 3}, {E::CardClick, 3}}));
}

TEST_F(TableKeysTest, TabGoesRoundTheHandSortKnockAndTheOpenPanelAndEnterOrSpaceClicks) {
    Deal({25, 3}, {});
    table.SetControlVisible(TableControl::CmdSort, true);
    table.SetControlVisible(TableControl::LblKnock, true);
    table.SetControlVisible(TableControl::FramMarriage, true);
    QApplication::processEvents();
    Press(Qt::Key_Home, Picture(3));
    std::vector<QString> round;
    for (int step = 0; step < 7; ++step) {
        Press(Qt::Key_Tab);
        round.push_back(Focused()->objectName());
    }
    EXPECT_EQ(round, (std::vector<QString>{"CmdSort", "LblKnock", "CmdMarriage1", "CmdMarriage2",
                                           "CmdMarriage3", "CmdMarriage4", "PicCard25"}));
    Press(Qt::Key_Backtab);
    Press(Qt::Key_Return);
    Press(Qt::Key_Backtab);
    Press(Qt::Key_Space);
    Press(Qt::Key_K);
    EXPECT_EQ(log.events,
              (std::vector<TableEvent>{
                  {E::MarriageClick, Spades}, {E::MarriageClick, Hearts}, {E::KnockClick}}));
}

TEST_F(TableKeysTest, AfterACardIsPlayedTheFocusTakesTheCardNowInItsPlaceNeverOneOutOfPlay) {
    Deal({25, 3, 40}, {});
    Press(Qt::Key_Right, Picture(25));
    ASSERT_EQ(Focused(), Picture(3));
    // The card flies to the trick and the row closes up.
    Card(g, 3).Place = PlacePlayed;
    table.MoveCard(3, 7800, 6540);
    table.MoveCard(40, 3100, 10080);
    QApplication::processEvents();
    EXPECT_EQ(Focused(), Picture(40));
    // The last card goes and then the whole hand: the focus leaves no card
    // out of play with a focus to take.
    Card(g, 40).Place = PlacePlayed;
    table.SetCardVisible(40, false);
    QApplication::processEvents();
    EXPECT_EQ(Focused(), Picture(25));
    Card(g, 25).Place = PlacePlayed;
    table.MoveCard(25, 7800, 6540);
    QApplication::processEvents();
    EXPECT_EQ(Picture(25)->focusPolicy(), Qt::NoFocus);
    Press(Qt::Key_Return, Picture(25));
    EXPECT_TRUE(log.events.empty());
}

TEST_F(TableKeysTest, TheRingShowsOnlyOnceAKeyIsPressedAndGoesWithTheMouse) {
    Deal({25, 3}, {});
    QTest::mouseClick(Picture(3), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_FALSE(Ring()->isVisible());
    Press(Qt::Key_Left, Picture(3));
    ASSERT_TRUE(Ring()->isVisible());
    EXPECT_TRUE(Ring()->geometry().contains(Picture(25)->geometry()));
    EXPECT_TRUE(table.Keyboard().KeyboardInUse());
    QTest::mouseClick(Picture(3), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_FALSE(Ring()->isVisible());
    EXPECT_FALSE(table.Keyboard().KeyboardInUse());
    EXPECT_EQ(log.events, (std::vector<TableEvent>{{E::CardClick, 3}, {E::CardClick, 3}}));
}

TEST_F(TableKeysTest, AButtonShowsItsFocusToTheKeyboardAndLooksAsDesignedAfterTheMouse) {
    Deal({25}, {});
    table.SetControlVisible(TableControl::CmdSort, true);
    QApplication::processEvents();
    QWidget* sort = FindControl(table, "CmdSort");
    const QImage designed = sort->grab().toImage();
    Press(Qt::Key_Tab, Picture(25));
    ASSERT_EQ(Focused(), sort);
    EXPECT_NE(sort->grab().toImage(), designed);
    QTest::mouseClick(sort, Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_TRUE(sort->hasFocus());
    EXPECT_EQ(sort->grab().toImage(), designed);
    EXPECT_EQ(log.events, (std::vector<TableEvent>{{E::SortClick}}));
}

TEST(MessageKeysInTheBox, EnterEscapeTabAndSpaceClickTheirButtonsAndTheFocusShowsOnlyToKeys) {
    struct Case {
        QString button0, button1;
        std::vector<Qt::Key> keys;
        int choice;
    };
    const Case cases[] = {
        {"Yes Exit", "Carry On", {Qt::Key_Return}, 0},
        {"Yes Exit", "Carry On", {Qt::Key_Escape}, 1},
        {"No Continue", "Yes New Game", {Qt::Key_Tab, Qt::Key_Escape}, 0},
        {"Stock Card", "Up Card", {Qt::Key_Tab, Qt::Key_Space}, 1},
        {"Stock Card", "Up Card", {Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Enter}, 0},
    };
    for (const Case& c : cases) {
        MFormDeluxe form;
        form.Prepare("Which?", c.button0, c.button1, {}, 1, "Make choice");
        form.show();
        EXPECT_FALSE(form.KeyFocusShown());
        for (const Qt::Key key : c.keys) {
            if (!form.isVisible()) break;
            QTest::keyClick(&form, key);
            if (form.isVisible()) {
                EXPECT_TRUE(form.KeyFocusShown()) << c.button0.toStdString();
            }
        }
        EXPECT_FALSE(form.isVisible()) << c.button0.toStdString();
        EXPECT_EQ(form.Choice(), c.choice) << c.button0.toStdString();
    }
}

}  // namespace
}  // namespace trickhaven
