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

TEST(TableStartTest, OnlyTheDesignsVisibleControlsShow) {
    const std::pair<const char*, bool> controls[] = {
        {"LblBotsName", true},   {"LblPlayer0", true},    {"LblStock", true},
        {"LblKnock", false},     {"CmdSort", false},      {"Line3", true},
        {"Frame1", true},        {"FrameTricks", true},   {"FramDeclare", false},
        {"FramMarriage", false}, {"FramMeldHelp", false}, {"StatusBar1", true},
    };
    for (const auto& [name, visible] : controls) {
        QWidget* control = FindControl(DesignTable(), name);
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(!control->isHidden(), visible) << name;
    }
}

// A screen reader finds a name for every control a player can see or click.
TEST(TableStartTest, EveryControlHasAnAccessibleName) {
    PinochleTable& table = DesignTable();
    int named = 0;
    // The controls of the table; lines and outlines only decorate it.
    for (QWidget* control : table.Surface()->findChildren<QWidget*>()) {
        const QString name = control->objectName();
        if (name.isEmpty() || name.startsWith("qt_") || name.startsWith("Line") ||
            name.startsWith("Shape")) {
            continue;
        }
        QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(control);
        ASSERT_NE(reader, nullptr) << control->objectName().toStdString();
        EXPECT_FALSE(reader->text(QAccessible::Name).trimmed().isEmpty())
            << control->objectName().toStdString();
        ++named;
    }
    EXPECT_GT(named, 100);
    table.SetCardImage(7, 7);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(FindControl(table, "PicCard7"))
                  ->text(QAccessible::Name),
              "Queen of Diamonds");
    table.SetCardImage(7, CardBackImage);
}

TEST(TableStartTest, AllCardsLieFaceDownOnTheDesignPile) {
    PinochleTable& table = DesignTable();
    for (int card = 1; card <= 48; ++card) {
        const auto* picture =
            table.Surface()->findChild<CardPicture*>(QString("PicCard%1").arg(card));
        ASSERT_NE(picture, nullptr) << card;
        EXPECT_TRUE(picture->isVisible()) << card;
        EXPECT_EQ(table.CardLeft(card), 9000);
        EXPECT_EQ(table.CardTop(card), 2880);
        EXPECT_EQ(picture->pos(), QPoint(600, 192)) << card;
        EXPECT_EQ(picture->size(), QSize(72, 98)) << card;
        EXPECT_EQ(picture->accessibleName(), "card back");
    }
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

using E = TableEventKind;

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

void ExpectAlwaysAvailable(const QAction& action) {
    EXPECT_TRUE(action.isEnabled()) << action.text().toStdString();
    EXPECT_TRUE(action.isVisible()) << action.text().toStdString();
    EXPECT_FALSE(action.isCheckable()) << action.text().toStdString();
}

TEST(TableMenuTest, EntriesStandInTheDesignsOrderWithTheirShortcuts) {
    const QList<QAction*> top = DesignTable().menuBar()->actions();
    ASSERT_EQ(top.size(), static_cast<qsizetype>(Menu.size()));
    for (std::size_t k = 0; k < Menu.size(); ++k) {
        const QAction& entry = *top[static_cast<qsizetype>(k)];
        EXPECT_EQ(entry.text(), Menu[k].caption);
        ExpectAlwaysAvailable(entry);
        const QList<QAction*> items =
            entry.menu() != nullptr ? entry.menu()->actions() : QList<QAction*>{};
        ASSERT_EQ(items.size(), static_cast<qsizetype>(Menu[k].items.size())) << Menu[k].caption;
        for (std::size_t i = 0; i < Menu[k].items.size(); ++i) {
            const QAction& item = *items[static_cast<qsizetype>(i)];
            EXPECT_EQ(item.text(), Menu[k].items[i].caption);
            EXPECT_EQ(item.shortcut(), QKeySequence(Menu[k].items[i].shortcut))
                << item.text().toStdString();
            ExpectAlwaysAvailable(item);
        }
    }
}

TEST(TableMenuTest, EveryCommandSendsItsEventAndHelpAndAboutStayInTheForms) {
    PinochleTable table;
    EventLog log;
    log.Listen(table);
    QSignalSpy help(&table, &PinochleTable::helpRequested);
    QSignalSpy about(&table, &PinochleTable::aboutRequested);

    const QList<QAction*> top = table.menuBar()->actions();
    for (std::size_t k = 0; k < Menu.size(); ++k) {
        QAction* entry = top[static_cast<qsizetype>(k)];
        std::vector<std::pair<QAction*, std::optional<E>>> commands;
        if (entry->menu() == nullptr) {
            commands.emplace_back(entry, Menu[k].event);
        } else {
            const QList<QAction*> items = entry->menu()->actions();
            for (std::size_t i = 0; i < Menu[k].items.size(); ++i) {
                commands.emplace_back(items[static_cast<qsizetype>(i)], Menu[k].items[i].event);
            }
        }
        for (const auto& [action, event] : commands) {
            log.events.clear();
            action->trigger();
            if (event) {
                EXPECT_EQ(log.events, std::vector<TableEvent>{TableEvent{*event}})
                    << action->text().toStdString();
            } else {
                EXPECT_TRUE(log.events.empty()) << action->text().toStdString();
            }
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
    EXPECT_EQ(log.events, std::vector<TableEvent>{TableEvent{TableEventKind::CloseBox}});
    EXPECT_TRUE(table.isVisible());
    for (int card = 1; card <= 48; ++card) {
        EXPECT_TRUE(
            table.Surface()->findChild<QWidget*>(QString("PicCard%1").arg(card))->isVisible());
    }
}

}  // namespace

}  // namespace trickhaven
