// What a screen reader finds on the table: the player's cards as buttons
// that say when they cannot be played, the other cards as pictures, each
// score figure with its side and row, and the notice that speaks play.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <map>
#include <tuple>

#include "forms/qt_platform.h"
#include "forms/table_access.h"
#include "forms_test_support.h"
#include "game/table_talk.h"
#include "tests/table_fixtures.h"

// Texts in failures as text.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace trickhaven {

namespace {

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

class ScreenReaderTest : public ::testing::Test {
protected:
    void SetUp() override {
        log.Listen(table);
        table.SetTalk(talk);
        table.show();
    }

    QAccessibleInterface* Read(const char* name) {
        return QAccessible::queryAccessibleInterface(FindControl(table, name));
    }

    PinochleTable table;
    TableTalk talk;
    EventLog log;
    SpokenNotice* notice = table.findChild<SpokenNotice*>();
};

TEST_F(ScreenReaderTest, HandCardsArePressableButtonsThatSayWhenTheyCannotBePlayed) {
    constexpr int Queen = 7, Ten = 3, Waiting = 5, Robots = 20, OnTable = 30;
    // Only while the game waits for his card is a card said not to play.
    std::map<int, CardStanding> standing{{Queen, {true, true, true}},
                                         {Ten, {true, false, true}},
                                         {Waiting, {true, false, false}},
                                         {Robots, {}},
                                         {OnTable, {}}};
    table.SetCardReading([&](int card) { return standing[card]; });
    for (const int card : {Queen, Ten, Waiting, OnTable}) table.SetCardImage(card, card);
    // The card, its role, name, description and whether a press clicks it.
    using Row = std::tuple<int, QAccessible::Role, QString, QString, bool>;
    for (const auto& [card, role, name, description, presses] : std::vector<Row>{
             {Queen, QAccessible::PushButton, "Queen of Diamonds", "", true},
             {Ten, QAccessible::PushButton, "Ten of Diamonds", "cannot be played now", true},
             {Waiting, QAccessible::PushButton, "King of Diamonds", "", true},
             {Robots, QAccessible::Graphic, "card back", "", false},
             {OnTable, QAccessible::Graphic, "King of Hearts", "", false}}) {
        SCOPED_TRACE(card);
        QAccessibleInterface* read = Read(qPrintable(QString("PicCard%1").arg(card)));
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(std::tuple(read->role(), read->text(QAccessible::Name),
                             read->text(QAccessible::Description)),
                  std::tuple(role, name, description));
        auto* actions = read->actionInterface();
        ASSERT_NE(actions, nullptr);
        EXPECT_EQ(actions->actionNames().contains(QAccessibleActionInterface::pressAction()),
                  presses);
        log.events.clear();
        actions->doAction(QAccessibleActionInterface::pressAction());
        const std::vector<TableEvent> click{{TableEventKind::CardClick, card}};
        EXPECT_EQ(log.events, presses ? click : std::vector<TableEvent>());
    }
    // The standing is asked afresh: a card played leaves the buttons.
    standing[Queen] = {};
    EXPECT_EQ(Read("PicCard7")->role(), QAccessible::Graphic);
}

// The player's cards, and which cannot play while the game waits for one.
TEST_F(ScreenReaderTest, TheGameTellsWhichCardsAreThePlayersAndWhichCannotPlayWhileItWaits) {
    QtPlatform platform(".");
    Game g(table, platform);
    ClearTable(g);
    g.GameOn = g.RoundTwoOn = g.PlayerMayPlay = true;
    g.Leader = TheRobot;
    g.LeadSuit = Hearts;
    const int heart = CardIndex(King, Hearts), club = CardIndex(Ace, Clubs);
    PlaceCards(g, PlacePlayerHand, {heart, club});
    PlaceCards(g, PlaceOpponentHand, {CardIndex(Ten, Hearts)});
    EXPECT_TRUE(ReadCard(g, heart).playable && !ReadCard(g, heart).CannotPlay());
    EXPECT_TRUE(ReadCard(g, club).playersCard && ReadCard(g, club).CannotPlay());
    EXPECT_FALSE(ReadCard(g, CardIndex(Ten, Hearts)).playersCard);
    g.PlayerMayPlay = false;
    EXPECT_FALSE(ReadCard(g, heart).playable || ReadCard(g, club).CannotPlay()) << "out of turn";
}

TEST_F(ScreenReaderTest, EachScoreFigureSaysItsSideAndRowAndFollowsNamesAndScores) {
    table.SetCaption(TableLabel::LblBName, "Lorinda");
    table.SetCaption(TableLabel::LblPname, "Ada");
    using Row = std::tuple<TableLabel, QString>;
    for (const auto& [label, said] :
         std::vector<Row>{{TableLabel::LblLastTrickP, "Ada, last trick, 1"},
                          {TableLabel::LblTotTricksP, "Ada, total tricks, 2"},
                          {TableLabel::LblLastMeldP, "Ada, last meld, 3"},
                          {TableLabel::LblTotalMeldsP, "Ada, total melds, 4"},
                          {TableLabel::LblTotalScoreP, "Ada, total score, 5"},
                          {TableLabel::LblLastTrickC, "Lorinda, last trick, 6"},
                          {TableLabel::LblTotTricskC, "Lorinda, total tricks, 7"},
                          {TableLabel::LbllLastMeldC, "Lorinda, last meld, 8"},
                          {TableLabel::LblTotMeldsC, "Lorinda, total melds, 9"},
                          {TableLabel::LblTotScoreC, "Lorinda, total score, 240"}}) {
        table.SetCaption(label, said.section(", ", 2).toStdString());
        // What is drawn is the figure alone.
        EXPECT_EQ(std::tuple(Read(LabelName(label))->text(QAccessible::Name), table.Caption(label)),
                  std::tuple(said, said.section(", ", 2).toStdString()));
    }
    table.SetCaption(TableLabel::LblBName, "Bea");
    EXPECT_EQ(Read("LblTotScoreC")->text(QAccessible::Name), "Bea, total score, 240");
}

TEST_F(ScreenReaderTest, WhatHappensIsToldAtOnceAsANotificationAndBeforeAMessageOpens) {
    NoticeWatch watch;
    notice->installEventFilter(&watch);
    table.SetPanelText(2, "Lorinda to lead a card.");
    table.SetPanelText(3, "Tricks 1");
    table.SetPanelText(1, "Spades are Trumps");
    EXPECT_TRUE(watch.shown.empty()) << "spoken at the next round of events, not at once";
    QCoreApplication::processEvents();
    table.SetPanelText(2, "Player please click card you wish to play.");
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(watch.shown, (std::vector<QString>{"Lorinda to lead a card. Spades are Trumps.",
                                                 "Player please click card you wish to play."}));
    QAccessibleInterface* read = QAccessible::queryAccessibleInterface(notice);
    EXPECT_EQ(std::tuple(read->role(), read->text(QAccessible::Name)),
              std::tuple(QAccessible::Notification,
                         QString("Player please click card you wish to play.")));
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
