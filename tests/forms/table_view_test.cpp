// What the logic asks of the table, and the clicks the table hands back.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QSignalSpy>
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

TEST_F(TableViewTest, ACardClickWithEitherButtonSendsTheCard) {
    QTest::mouseClick(Card(7), Qt::LeftButton);
    QTest::mouseClick(Card(31), Qt::RightButton);
    EXPECT_EQ(log.events, (std::vector<TableEvent>{{E::CardClick, 7}, {E::CardClick, 31}}));
}

TEST_F(TableViewTest, APressReleasedOffTheCardIsNoClick) {
    QTest::mousePress(Card(5), Qt::LeftButton);
    QTest::mouseRelease(Card(5), Qt::LeftButton, {}, QPoint(-20, -20));
    EXPECT_TRUE(log.events.empty());
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
    }
    for (const auto& [name, event] : clicks) {
        log.events.clear();
        QTest::mouseClick(FindControl(table, name), Qt::LeftButton);
        EXPECT_EQ(log.events, std::vector<TableEvent>{event}) << name;
    }
}

TEST_F(TableViewTest, AltWithTheMarkedLetterClicksTheButton) {
    table.SetControlVisible(TableControl::CmdSort, true);
    table.SetControlVisible(TableControl::FramMeldHelp, true);
    QApplication::setActiveWindow(&table);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&table));
    const auto press = [this](Qt::Key letter, std::size_t events) {
        QTest::keyClick(&table, letter, Qt::AltModifier);
        // A mnemonic shows the button pressed for a moment before it clicks.
        EXPECT_TRUE(QTest::qWaitFor([&] { return log.events.size() == events; }, 2000));
    };
    press(Qt::Key_S, 1);
    press(Qt::Key_O, 2);
    EXPECT_EQ(log.events, (std::vector<TableEvent>{{E::SortClick}, {E::ReminderOkClick}}));

    // "C&ancel" and "&About" share the letter; the shown panel wins, every time.
    QSignalSpy about(&table, &PinochleTable::aboutRequested);
    table.SetControlVisible(TableControl::FramDeclare, true);
    press(Qt::Key_A, 3);
    press(Qt::Key_A, 4);
    EXPECT_EQ(log.events.back(), TableEvent{E::CancelClick});
    EXPECT_EQ(about.count(), 0);
    table.SetControlVisible(TableControl::FramDeclare, false);
    QTest::keyClick(&table, Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(about.count(), 1);
}

TEST_F(TableViewTest, CardsKeepTheirTwipsAndShowTheirPictures) {
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

TEST_F(TableViewTest, TheLastCardBroughtToFrontCoversTheOthers) {
    table.MoveCard(1, 3000, 3000);
    table.MoveCard(2, 3000, 3000);
    const QPoint spot(210, 210);
    table.BringCardToFront(1);
    EXPECT_EQ(table.Surface()->childAt(spot), Card(1));
    table.BringCardToFront(2);
    EXPECT_EQ(table.Surface()->childAt(spot), Card(2));
}

TEST_F(TableViewTest, ControlsShowHideAndComeToTheFront) {
    const TableControl controls[] = {TableControl::FramDeclare,  TableControl::FramMarriage,
                                     TableControl::FramMeldHelp, TableControl::LblKnock,
                                     TableControl::LblStock,     TableControl::CmdSort};
    for (TableControl control : controls) {
        table.SetControlVisible(control, true);
        EXPECT_TRUE(table.IsControlVisible(control));
        table.SetControlVisible(control, false);
        EXPECT_FALSE(table.IsControlVisible(control));
    }
    table.SetControlVisible(TableControl::FramDeclare, true);
    table.SetControlVisible(TableControl::FramMeldHelp, true);
    const QPoint overlap(300, 100);
    QWidget* reminder = FindControl(table, "FramMeldHelp");
    QWidget* declare = FindControl(table, "FramDeclare");
    table.BringControlToFront(TableControl::FramMeldHelp);
    QWidget* top = table.Surface()->childAt(overlap);
    EXPECT_TRUE(top == reminder || reminder->isAncestorOf(top));
    table.BringControlToFront(TableControl::FramDeclare);
    top = table.Surface()->childAt(overlap);
    EXPECT_TRUE(top == declare || declare->isAncestorOf(top));
}

TEST_F(TableViewTest, CaptionsReadBackAsWritten) {
    for (int k = 0; k <= static_cast<int>(TableLabel::LblTotScoreC); ++k) {
        const auto label = static_cast<TableLabel>(k);
        const std::string text = std::to_string(101 + k);
        table.SetCaption(label, text);
        EXPECT_EQ(table.Caption(label), text);
    }
    table.SetCaption(TableLabel::CmdSort, "Sort Suits");
    EXPECT_EQ(table.Caption(TableLabel::CmdSort), "Sort Suits");
    EXPECT_EQ(qobject_cast<QAbstractButton*>(FindControl(table, "CmdSort"))->text(), "Sort Suits");
    EXPECT_EQ(qobject_cast<QLabel*>(FindControl(table, "LblTotScoreC"))->text(), "116");
}

TEST_F(TableViewTest, NameLabelsTakeTheWidthOfTheirText) {
    auto* name = qobject_cast<QLabel*>(FindControl(table, "LblBotsName"));
    table.SetCaption(TableLabel::LblBotsName, "Bartholomew the Robot");
    EXPECT_GE(name->contentsRect().width(), name->fontMetrics().boundingRect(name->text()).width());
    const int longWidth = name->width();
    table.SetCaption(TableLabel::LblBotsName, "Al");
    EXPECT_LT(name->width(), longWidth);
    EXPECT_GE(name->contentsRect().width(), name->fontMetrics().boundingRect("Al").width());

    QWidget* figure = FindControl(table, "LblTotScoreC");
    const int figureWidth = figure->width();
    table.SetCaption(TableLabel::LblTotScoreC, "12345678");
    EXPECT_EQ(figure->width(), figureWidth);
}

TEST_F(TableViewTest, StatusPanelsShowTheirTextsAndTheTrumpPicture) {
    for (int panel = 1; panel <= 4; ++panel) {
        table.SetPanelText(panel, "text " + std::to_string(panel));
        const auto* shown =
            table.Surface()->findChild<StatusPanel*>(QString("StatusBar1Panel%1").arg(panel));
        ASSERT_NE(shown, nullptr);
        EXPECT_EQ(shown->Text(), QString("text %1").arg(panel));
    }
    const auto* trumps = table.Surface()->findChild<StatusPanel*>("StatusBar1Panel1");
    const qreal ratio = table.devicePixelRatioF();
    EXPECT_EQ(trumps->Picture().toImage(), CardArt::TrumpPanelPicture(ratio).toImage());
    table.SetPanelPicture(53);
    CardArt art;
    EXPECT_EQ(trumps->Picture().toImage(), art.Image(53, ratio).toImage());
}

// Answers the box that the next call opens, once it is up.
void AnswerNextBox(const std::function<void(QWidget&)>& answer) {
    QTimer::singleShot(0, [answer] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        answer(*box);
    });
}

TEST_F(TableViewTest, TheInputBoxGivesTheTextOrNothingOnCancel) {
    AnswerNextBox([](QWidget& box) {
        auto& input = dynamic_cast<QInputDialog&>(box);
        EXPECT_EQ(input.windowTitle(), "Your Name");
        EXPECT_EQ(input.labelText(), "Type your name");
        EXPECT_EQ(input.textValue(), "");
        input.setTextValue("Lorinda");
        input.accept();
    });
    EXPECT_EQ(table.AskInput("Type your name", "Your Name"), "Lorinda");
    AnswerNextBox([](QWidget& box) {
        auto& input = dynamic_cast<QInputDialog&>(box);
        input.setTextValue("Lorinda");
        input.reject();
    });
    EXPECT_EQ(table.AskInput("Type your name", "Your Name"), "");
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
