// What the logic asks of the table, and the clicks the table hands back.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <functional>

#include "forms/card_art.h"
#include "forms/card_picture.h"
#include "forms/table_status_bar.h"
#include "forms_test_support.h"

namespace trickhaven {

namespace {

using E = TableEventKind;

class TableViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        log.Listen(table);
        table.show();
    }

    QWidget* Card(int card) {
        return FindControl(table, qPrintable(QString("PicCard%1").arg(card)));
    }

    PinochleTable table;
    EventLog log;
};

TEST_F(TableViewTest, ACardClickWithEitherButtonSendsTheCardButAPressReleasedOffItDoesNot) {
    QTest::mouseClick(Card(7), Qt::LeftButton);
    QTest::mouseClick(Card(31), Qt::RightButton);
    QTest::mousePress(Card(5), Qt::LeftButton);
    QTest::mouseRelease(Card(5), Qt::LeftButton, {}, QPoint(-20, -20));
    EXPECT_EQ(log.events, (std::vector<TableEvent>{{E::CardClick, 7}, {E::CardClick, 31}}));
}

TEST_F(TableViewTest, PanelButtonsAndTheKnockSendTheirEvents) {
    const std::pair<const char*, TableEvent> clicks[] = {
        {"CmdDBezique", {E::DoublePinochleClick}},
        {"CmdBezique", {E::PinochleClick}},
        {"CmdSequence", {E::RunClick}},
        {"CmdFours0", {E::FoursClick, 0}},
        {"CmdFours1", {E::FoursClick, 1}},
        {"CmdFours2", {E::FoursClick, 2}},
        {"CmdFours3", {E::FoursClick, 3}},
        {"cmdDec7Trumps", {E::DixClick}},
        {"CmdMakeMarriage4", {E::MakeMarriageClick}},
        {"CmdCancel", {E::CancelClick}},
        {"CmdMarriage1", {E::MarriageClick, 1}},
        {"CmdMarriage2", {E::MarriageClick, 2}},
        {"CmdMarriage3", {E::MarriageClick, 3}},
        {"CmdMarriage4", {E::MarriageClick, 4}},
        {"Command1", {E::ReminderOkClick}},
        {"CmdSort", {E::SortClick}},
        {"LblKnock", {E::KnockClick}},
    };
    for (TableControl control :
         {TableControl::FramDeclare, TableControl::FramMarriage, TableControl::FramMeldHelp,
          TableControl::CmdSort, TableControl::LblKnock}) {
        table.SetControlVisible(control, true);
        EXPECT_TRUE(table.IsControlVisible(control));
    }
    for (const auto& [name, event] : clicks) {
        log.events.clear();
        QTest::mouseClick(FindControl(table, name), Qt::LeftButton);
        EXPECT_EQ(log.events, std::vector<TableEvent>{event}) << name;
    }
}

TEST_F(TableViewTest, CardsKeepTheirTwipsShowFacesOrBacksAndHide) {
    table.MoveCard(12, 2507, 10080);
    EXPECT_EQ(table.CardLeft(12), 2507);
    EXPECT_EQ(table.CardTop(12), 10080);
    EXPECT_EQ(Card(12)->pos(), QPoint(167, 672));
    table.SetCardImage(12, 43);
    EXPECT_EQ(Card(12)->size(), QSize(71, 96));
    EXPECT_EQ(Card(12)->accessibleName(), "Queen of Spades");
    table.SetCardImage(12, CardBackImage);
    EXPECT_EQ(Card(12)->size(), QSize(72, 98));
    EXPECT_EQ(Card(12)->accessibleName(), "card back");
    table.SetCardVisible(12, false);
    EXPECT_FALSE(Card(12)->isVisible());
    table.SetCardVisible(12, true);
    EXPECT_TRUE(Card(12)->isVisible());
}

TEST_F(TableViewTest, WhatIsBroughtToFrontLastCoversTheOthers) {
    table.MoveCard(1, 3000, 3000);
    table.MoveCard(2, 3000, 3000);
    for (int card : {1, 2, 1}) {
        table.BringCardToFront(card);
        EXPECT_EQ(table.Surface()->childAt(QPoint(210, 210)), Card(card));
    }
    table.SetControlVisible(TableControl::FramDeclare, true);
    table.SetControlVisible(TableControl::FramMeldHelp, true);
    for (const auto& [control, name] : {std::pair{TableControl::FramMeldHelp, "FramMeldHelp"},
                                        std::pair{TableControl::FramDeclare, "FramDeclare"}}) {
        table.BringControlToFront(control);
        QWidget* top = table.Surface()->childAt(QPoint(300, 100));
        QWidget* panel = FindControl(table, name);
        EXPECT_TRUE(top == panel || panel->isAncestorOf(top)) << name;
    }
}

TEST_F(TableViewTest, CaptionsReadBackAsWritten) {
    for (int k = 0; k <= static_cast<int>(TableLabel::LblTotScoreC); ++k) {
        const auto label = static_cast<TableLabel>(k);
        table.SetCaption(label, std::to_string(101 + k));
        EXPECT_EQ(table.Caption(label), std::to_string(101 + k));
    }
    EXPECT_EQ(qobject_cast<QLabel*>(FindControl(table, "LblTotScoreC"))->text(), "116");
    table.SetCaption(TableLabel::CmdSort, "Sort Suits");
    EXPECT_EQ(table.Caption(TableLabel::CmdSort), "Sort Suits");
    EXPECT_EQ(qobject_cast<QAbstractButton*>(FindControl(table, "CmdSort"))->text(), "Sort Suits");
}

TEST_F(TableViewTest, StatusPanelsShowTheirTextsAndTheTrumpPicture) {
    for (int panel = 1; panel <= 4; ++panel) {
        table.SetPanelText(panel, "text " + std::to_string(panel));
        const auto* shown = table.findChild<StatusPanel*>(QString("StatusBar1Panel%1").arg(panel));
        ASSERT_NE(shown, nullptr);
        EXPECT_EQ(shown->Text(), QString("text %1").arg(panel));
    }
    const auto* trumps = table.findChild<StatusPanel*>("StatusBar1Panel1");
    const qreal ratio = table.devicePixelRatioF();
    EXPECT_EQ(trumps->Picture().toImage(), CardArt::TrumpPanelPicture(ratio).toImage());
    table.SetPanelPicture(53);
    EXPECT_EQ(trumps->Picture().toImage(), CardArt().Image(53, ratio).toImage());
}

// Answers the box that the next call opens, once it is up.
void AnswerNextBox(const std::function<void(QWidget&)>& answer) {
    QTimer::singleShot(0, [answer] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        answer(*box);
    });
}

TEST_F(TableViewTest, TheDeluxeMessageRingsAndHoldsTheTableUntilAnswered) {
    int rings = 0;
    table.SetMessageRing([&rings] { ++rings; });
    table.MoveCard(3, 3000, 6000);
    // A click as the screen delivers it, so that a modal box can stop it.
    const auto clickCardThree = [this] {
        const QPoint spot = WindowSpot(table, *Card(3), Card(3)->rect().center());
        QTest::mouseClick(table.windowHandle(), Qt::LeftButton, {}, spot);
    };
    clickCardThree();
    ASSERT_EQ(log.events, (std::vector<TableEvent>{{E::CardClick, 3}}));
    log.events.clear();
    AnswerNextBox([&clickCardThree](QWidget& box) {
        EXPECT_NE(qobject_cast<MFormDeluxe*>(&box), nullptr);
        clickCardThree();
        QTest::mouseClick(box.findChild<QWidget*>("Label1_1"), Qt::LeftButton);
    });
    EXPECT_EQ(table.ShowDeluxeMessage("Leave?", "Stay", "Go", "", 2, "Really Exit?"), 1);
    EXPECT_EQ(rings, 1);
    EXPECT_TRUE(log.events.empty());
}

}  // namespace

}  // namespace trickhaven
