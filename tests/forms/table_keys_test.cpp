// The table as the keyboard and a screen reader meet it: which widgets take
// the focus, Tab's order, the focus following the hand, the ring shown only
// to the keyboard, the review's letters and Alt+S; the player's cards as
// buttons that say when they cannot be played, the other cards as pictures,
// each score figure with its side and row, and the notice that speaks play.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <tuple>

#include "forms/about_box.h"
#include "forms/card_picture.h"
#include "forms/help_pages.h"
#include "forms/qt_platform.h"
#include "forms/table_access.h"
#include "forms/table_keyboard.h"
#include "forms_test_support.h"
#include "game/table_review.h"
#include "game/table_talk.h"
#include "tests/table_fixtures.h"

// Texts in failures as text.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace trickhaven {
namespace {

using E = TableEventKind;
using T = TableEvent;

// Each text the notice shows as it comes into view, which is when a screen
// reader speaks it.
struct NoticeWatch : QObject {
    std::vector<QString> shown;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show) {
            shown.push_back(static_cast<QWidget*>(watched)->accessibleName());
        }
        return false;
    }
};

// A round of events as the game's waits serve them: the loop blocks until
// the wait's end.
void WaitAsTheGameDoes() {
    QTimer::singleShot(1, [] {});
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

class TableKeysTest : public ::testing::Test {
protected:
    void SetUp() override {
        log.Listen(table);
        ClearTable(g);
        table.SetTalk(talk);
        table.SetGame(g);
        table.show();
        QApplication::setActiveWindow(&table);
    }

    QWidget* Picture(int card) {
        return FindControl(table, qPrintable(QString("PicCard%1").arg(card)));
    }
    QWidget* Ring() { return table.Surface()->findChild<FocusRing*>(); }
    QWidget* Focused() { return table.Surface()->focusWidget(); }
    QAccessibleInterface* Read(const char* name) {
        return QAccessible::queryAccessibleInterface(FindControl(table, name));
    }

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
    TableTalk talk;
    EventLog log;
    SpokenNotice* notice = table.findChild<SpokenNotice*>();
};
using ScreenReaderTest = TableKeysTest;

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

// The review's letters and K are plain keys, and R opens the robot's menu:
// no other caption of the table, its panels, its menus, the help pages or the
// About box marks one.
TEST_F(TableKeysTest, NoCaptionMarksAReviewLetterOrTheRobotsMenusLetter) {
    CardArt art;
    FrmHelp help(art);
    FrmHelp2 help2(art);
    FrmHelp3 help3(art);
    FrmAbout about;
    QStringList captions;
    for (QWidget* form :
         std::initializer_list<QWidget*>{table.Surface(), &help, &help2, &help3, &about}) {
        for (const auto* button : form->findChildren<QAbstractButton*>()) {
            captions << button->text();
        }
        for (const auto* label : form->findChildren<QLabel*>()) captions << label->text();
    }
    const QAction* robots = table.menuBar()->actions().back();
    for (const QAction* action : table.menuBar()->findChildren<QAction*>()) {
        if (action != robots) captions << action->text();
    }
    const QString plain =
        ReviewLetters + QString("K") + QKeySequence::mnemonic(robots->text()).toString().back();
    int marked = 0;
    for (const QString& caption : captions) {
        const QKeySequence mark = QKeySequence::mnemonic(caption);
        if (mark.isEmpty()) continue;
        ++marked;
        EXPECT_FALSE(plain.contains(QKeySequence(mark[0].key()).toString()))
            << caption.toStdString();
    }
    EXPECT_GE(marked, 7) << "the marked captions were found";
}

// A panel takes the focus on its first button; Enter or Space on each stop
// of Tab's round gives the mouse's click, and Escape the offer's Cancel; a
// button shows its focus to the keyboard only.
TEST_F(TableKeysTest, PanelsTakeTheFocusTabGoesRoundTheShownControlsAndEachKeyClicksAsTheMouse) {
    Deal({25, 3});
    QWidget* sort = FindControl(table, "CmdSort");
    for (const auto& [shown, first] : {std::pair{TableControl::CmdSort, "PicCard25"},
                                       std::pair{TableControl::LblKnock, "PicCard25"},
                                       std::pair{TableControl::FramDeclare, "CmdDBezique"},
                                       std::pair{TableControl::FramMarriage, "CmdMarriage1"}}) {
        table.SetControlVisible(shown, true);
        QApplication::processEvents();
        EXPECT_TRUE(table.IsControlVisible(shown));
        EXPECT_EQ(Focused()->objectName(), first);
    }
    // A review letter is spoken at once wherever the focus is, and clicks
    // nothing; Alt+S presses the sort button.
    TableReview review;
    table.SetReview(review);
    for (QWidget* at : {Picture(3), FindControl(table, "CmdCancel")}) {
        notice->setAccessibleName("");
        Press(Qt::Key_L, at);
        EXPECT_TRUE(notice->isVisible() && notice->accessibleName() == "Nothing told yet.");
    }
    table.SetCaption(TableLabel::CmdSort, "Sort Suits");
    QTest::keyClick(Picture(3), Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(log.events, std::vector<T>{T{E::SortClick}});
    log.events.clear();
    const QImage designed = sort->grab().toImage();
    std::vector<QString> round;
    std::vector<T> clicks;
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
        clicks.push_back(log.events.back());
    }
    EXPECT_EQ(round, (std::vector<QString>{"CmdMarriage2", "CmdMarriage3", "CmdMarriage4",
                                           "PicCard25", "CmdSort", "LblKnock", "CmdDBezique",
                                           "CmdBezique", "CmdSequence", "CmdFours3", "CmdFours0",
                                           "CmdFours1", "CmdFours2", "cmdDec7Trumps",
                                           "CmdMakeMarriage4", "CmdCancel", "CmdMarriage1"}));
    EXPECT_EQ(clicks,
              (std::vector<T>{T{E::MarriageClick, 2}, T{E::MarriageClick, 3},
                              T{E::MarriageClick, 4}, T{E::CardClick, 25}, T{E::SortClick},
                              T{E::KnockClick}, T{E::DoublePinochleClick}, T{E::PinochleClick},
                              T{E::RunClick}, T{E::FoursClick, 3}, T{E::FoursClick, 0},
                              T{E::FoursClick, 1}, T{E::FoursClick, 2}, T{E::DixClick},
                              T{E::MakeMarriageClick}, T{E::CancelClick}, T{E::MarriageClick, 1}}));
    Press(Qt::Key_K);
    EXPECT_TRUE(log.events.back() == TableEvent{E::KnockClick});
    Press(Qt::Key_Escape);
    EXPECT_TRUE(log.events.back() == TableEvent{E::CancelClick});
    // The reminder comes up on its O.K, which Escape presses.
    table.SetControlVisible(TableControl::FramMeldHelp, true);
    QApplication::processEvents();
    EXPECT_EQ(Focused()->objectName(), "Command1");
    log.events.clear();
    Press(Qt::Key_Escape);
    Click(Focused());
    EXPECT_EQ(log.events, std::vector<TableEvent>(2, {E::ReminderOkClick}));
}

// The player's cards are buttons a press clicks; only while the game waits
// for his card is one that would not play said not to, and a card played
// leaves the buttons.
TEST_F(ScreenReaderTest, HandCardsArePressableButtonsThatSayWhenTheyCannotBePlayed) {
    const int heart = CardIndex(King, Hearts), club = CardIndex(Ace, Clubs),
              robots = CardIndex(Ten, Hearts), onTable = CardIndex(Queen, Diamonds);
    g.GameOn = g.RoundTwoOn = g.PlayerMayPlay = true;
    g.Leader = TheRobot;
    g.LeadSuit = Hearts;
    PlaceCards(g, PlacePlayerHand, {heart, club});
    PlaceCards(g, PlaceOpponentHand, {robots});
    PlaceCards(g, PlacePlayed, {onTable});
    for (const int card : {heart, club, onTable}) table.SetCardImage(card, card);
    // The card, its role, name and description; a button's press clicks it.
    using Row = std::tuple<int, QAccessible::Role, QString, QString>;
    const auto expectRead = [&](const std::vector<Row>& rows) {
        for (const auto& [card, role, name, description] : rows) {
            SCOPED_TRACE(card);
            QAccessibleInterface* read = Read(qPrintable(QString("PicCard%1").arg(card)));
            EXPECT_EQ(std::tuple(read->role(), read->text(QAccessible::Name),
                                 read->text(QAccessible::Description)),
                      std::tuple(role, name, description));
            const bool presses = role == QAccessible::PushButton;
            auto* actions = read->actionInterface();
            EXPECT_EQ(actions->actionNames().contains(QAccessibleActionInterface::pressAction()),
                      presses);
            log.events.clear();
            actions->doAction(QAccessibleActionInterface::pressAction());
            const std::vector<TableEvent> click{{E::CardClick, card}};
            EXPECT_EQ(log.events, presses ? click : std::vector<TableEvent>());
        }
    };
    expectRead({{heart, QAccessible::PushButton, "King of Hearts", ""},
                {club, QAccessible::PushButton, "Ace of Clubs", "cannot be played now"},
                {robots, QAccessible::Graphic, "card back", ""},
                {onTable, QAccessible::Graphic, "Queen of Diamonds", ""}});
    g.PlayerMayPlay = false;
    expectRead({{club, QAccessible::PushButton, "Ace of Clubs", ""}});
    // The focused card heard between waits is told again as the game comes
    // to wait for a card it cannot be, and again once it can.
    Picture(club)->setFocus();
    WaitAsTheGameDoes();
    for (const auto& [lead, told] : {std::pair{Hearts, "Ace of Clubs cannot be played now."},
                                     std::pair{Clubs, "Ace of Clubs can be played now."}}) {
        g.LeadSuit = lead;
        g.PlayerMayPlay = true;
        WaitAsTheGameDoes();
        EXPECT_EQ(notice->accessibleName(), told);
    }
    Card(g, heart).Place = PlacePlayed;
    EXPECT_EQ(Read(qPrintable(QString("PicCard%1").arg(heart)))->role(), QAccessible::Graphic);
}

// Every caption shows what it is given; a score figure is read with its side
// and row, and follows the names.
TEST_F(ScreenReaderTest, EachCaptionShowsItsTextAndEachScoreFigureSaysItsSideAndRow) {
    const QString rows[] = {"last trick", "total tricks", "last meld", "total melds",
                            "total score"};
    for (int k = 0; k <= static_cast<int>(TableLabel::LblTotScoreC); ++k) {
        const auto label = static_cast<TableLabel>(k);
        const QString shown = label == TableLabel::LblPname   ? "Ada"
                              : label == TableLabel::LblBName ? "Lorinda"
                                                              : QString::number(100 + k);
        table.SetCaption(label, shown.toStdString());
        const int row = k - static_cast<int>(TableLabel::LblLastTrickP);
        const QString said =
            row < 0 ? shown
                    : QString("%1, %2, %3").arg(row < 5 ? "Ada" : "Lorinda", rows[row % 5], shown);
        EXPECT_EQ(std::tuple(Read(LabelName(label))->text(QAccessible::Name), table.Caption(label)),
                  std::tuple(said, shown.toStdString()));
    }
    table.SetCaption(TableLabel::LblBName, "Bea");
    EXPECT_EQ(Read("LblTotScoreC")->text(QAccessible::Name), "Bea, total score, 115");
}

TEST_F(ScreenReaderTest, WhatHappensUntilThePlayerIsAwaitedAndEachMessageIsOneNotification) {
    NoticeWatch watch;
    notice->installEventFilter(&watch);
    g.GameOn = true;
    table.SetPanelText(2, "Lorinda to lead a card.");
    table.SetPanelText(3, "Tricks 1");
    table.SetPanelText(1, "Spades are Trumps");
    g.PlayerMayPlay = true;
    table.SetPanelText(2, "Player please click the card you wish to play");
    EXPECT_TRUE(watch.shown.empty()) << "spoken when the game stops to wait, not at once";
    WaitAsTheGameDoes();
    WaitAsTheGameDoes();
    EXPECT_EQ(watch.shown, (std::vector<QString>{"Lorinda to lead a card. Spades are Trumps."}));
    QAccessibleInterface* read = QAccessible::queryAccessibleInterface(notice);
    EXPECT_EQ(std::tuple(read->role(), read->text(QAccessible::Name)),
              std::tuple(QAccessible::Notification,
                         QString("Lorinda to lead a card. Spades are Trumps.")));
    // It takes no room on the table and no click.
    EXPECT_TRUE(notice->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_LE(notice->width() * notice->height(), 1);
    // What happened is told before a message, which is read from the box.
    table.SetPanelText(2, "Lorinda wins the trick.");
    QString spokenAtOpen;
    QTimer::singleShot(0, [&] {
        spokenAtOpen = notice->accessibleName();
        QTest::mouseClick(QApplication::activeModalWidget()->findChild<QWidget*>("Label1_0"),
                          Qt::LeftButton);
    });
    table.ShowDeluxeMessage("Your total score is 310 against 240", "O.K", "", "", 1,
                            "Total Scores");
    QCoreApplication::processEvents();
    EXPECT_EQ(spokenAtOpen, "Lorinda wins the trick.");
    EXPECT_EQ(watch.shown.back(), "Lorinda wins the trick.");
}

}  // namespace
}  // namespace trickhaven
