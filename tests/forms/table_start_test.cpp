// The table as the program opens it: what shows, the cards on their pile, the
// menu tree, and what every menu entry and the close box hand to the logic.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>

#include "forms/card_picture.h"
#include "forms_test_support.h"

namespace trickhaven {

namespace {

using E = TableEventKind;

TEST(TableStartTest, OnlyTheDesignsVisibleControlsShowAndAllCardsLieFaceDownOnThePile) {
    PinochleTable& table = DesignTable();
    const std::pair<const char*, bool> controls[] = {
        {"LblBotsName", true},   {"LblPlayer0", true},    {"LblStock", true},
        {"LblKnock", false},     {"CmdSort", false},      {"Line3", true},
        {"Frame1", true},        {"FrameTricks", true},   {"FramDeclare", false},
        {"FramMarriage", false}, {"FramMeldHelp", false}, {"StatusBar1", true},
    };
    for (const auto& [name, visible] : controls) {
        QWidget* control = FindControl(table, name);
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(!control->isHidden(), visible) << name;
    }
    for (int card = 1; card <= 48; ++card) {
        const auto* picture =
            table.Surface()->findChild<CardPicture*>(QString("PicCard%1").arg(card));
        ASSERT_NE(picture, nullptr) << card;
        EXPECT_TRUE(picture->isVisible()) << card;
        EXPECT_EQ(table.CardLeft(card), 9000);
        EXPECT_EQ(table.CardTop(card), 2880);
        EXPECT_EQ(picture->geometry(), QRect(600, 192, 72, 98)) << card;
        EXPECT_EQ(picture->accessibleName(), "card back");
    }
}

// A screen reader finds a name for every control; lines and outlines only
// decorate the table.
TEST(TableStartTest, EveryControlHasAnAccessibleName) {
    PinochleTable& table = DesignTable();
    int named = 0;
    for (QWidget* control : table.Surface()->findChildren<QWidget*>()) {
        const QString name = control->objectName();
        if (name.isEmpty() || name.startsWith("qt_") || name.startsWith("Line") ||
            name.startsWith("Shape")) {
            continue;
        }
        QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(control);
        ASSERT_NE(reader, nullptr) << name.toStdString();
        EXPECT_FALSE(reader->text(QAccessible::Name).trimmed().isEmpty()) << name.toStdString();
        ++named;
    }
    EXPECT_GT(named, 100);
}

struct MenuEntry {
    const char* caption;
    const char* shortcut;
    std::optional<TableEventKind> event;
};

struct TopEntry {
    const char* caption;
    std::vector<MenuEntry> items;
    std::optional<TableEventKind> event{};
};

const std::vector<TopEntry> Menu = {
    {"Play - F2", {{"New Game", "F2", E::MenuNewGame}, {"Exit -CtrlX", "Ctrl+X", E::MenuExit}}},
    {"Help - F1", {{"Pinochle Rules", "F1", std::nullopt}}},
    {"Change Names",
     {{"Change your Name", "", E::MenuYourName},
      {"Change Opponent Name", "", E::MenuOpponentName}}},
    {"Statistics",
     {{"View Game Statisitics", "", E::MenuViewStatistics},
      {"Delete Statistics", "", E::MenuDeleteStatistics}}},
    {"Change Target Score",
     {{"1000 - Normal", "", E::MenuTarget1000},
      {"750 ", "", E::MenuTarget750},
      {"500", "", E::MenuTarget500},
      {"300 - quick game", "", E::MenuTarget300}}},
    {"Melds Reminder", {}, E::MenuReminder},
    {"Select Speed",
     {{"Fast", "", E::MenuFast}, {"Medium", "", E::MenuMedium}, {"Slow", "", E::MenuSlow}}},
    {"&About", {}, std::nullopt},
};

// Help and About send no event: the forms open them.
TEST(TableMenuTest, EntriesStandInOrderWithTheirShortcutsAndEachSendsItsEvent) {
    PinochleTable table;
    EventLog log;
    log.Listen(table);
    QSignalSpy help(&table, &PinochleTable::helpRequested);
    QSignalSpy about(&table, &PinochleTable::aboutRequested);
    const QList<QAction*> top = table.menuBar()->actions();
    ASSERT_EQ(top.size(), static_cast<qsizetype>(Menu.size()));
    for (std::size_t k = 0; k < Menu.size(); ++k) {
        QAction* entry = top[static_cast<qsizetype>(k)];
        EXPECT_EQ(entry->text(), Menu[k].caption);
        std::vector<std::pair<QAction*, MenuEntry>> commands;
        if (entry->menu() == nullptr) {
            commands.emplace_back(entry, MenuEntry{Menu[k].caption, "", Menu[k].event});
        }
        const QList<QAction*> items = entry->menu() ? entry->menu()->actions() : QList<QAction*>{};
        ASSERT_EQ(items.size(), static_cast<qsizetype>(Menu[k].items.size())) << Menu[k].caption;
        for (std::size_t i = 0; i < Menu[k].items.size(); ++i) {
            commands.emplace_back(items[static_cast<qsizetype>(i)], Menu[k].items[i]);
        }
        for (const auto& [action, expected] : commands) {
            SCOPED_TRACE(expected.caption);
            EXPECT_EQ(action->text(), expected.caption);
            EXPECT_EQ(action->shortcut(), QKeySequence(expected.shortcut));
            EXPECT_TRUE(action->isEnabled() && action->isVisible());
            log.events.clear();
            action->trigger();
            EXPECT_EQ(log.events, expected.event
                                      ? std::vector<TableEvent>{TableEvent{*expected.event}}
                                      : std::vector<TableEvent>{});
        }
    }
    EXPECT_EQ(help.count(), 1);
    EXPECT_EQ(about.count(), 1);
}

TEST(TableCloseTest, TheCloseBoxOnlyAsksTheLogicAndTheWindowStays) {
    PinochleTable table;
    EventLog log;
    log.Listen(table);
    table.show();
    EXPECT_FALSE(table.close());
    EXPECT_EQ(log.events, std::vector<TableEvent>{TableEvent{E::CloseBox}});
    EXPECT_TRUE(table.isVisible());
    EXPECT_TRUE(table.Surface()->findChild<QWidget*>("PicCard48")->isVisible());
}

}  // namespace

}  // namespace trickhaven
