#include "forms/help_pages.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <array>
#include <tuple>

namespace trickhaven {
namespace {

// Pages one and two print their lines at every repaint; page three printed
// itself once when it loaded and only shows that print again.
TEST(HelpPageTest, RepaintingPrintsPagesOneAndTwoOnceMoreButPageThreeOnlyWhenItLoads) {
    CardArt art;
    FrmHelp first{art};
    FrmHelp2 second{art};
    FrmHelp3 third{art};
    for (HelpPage* page : std::array<HelpPage*, 3>{&first, &second, &third}) {
        const int lines = static_cast<int>(page->Lines().size());
        const int perPaint = page == &third ? 0 : lines;
        for (int paints = 0; paints <= 2; ++paints) {
            EXPECT_EQ(page->LinesPrinted(), lines - perPaint + paints * perPaint)
                << page->windowTitle().toStdString() << " painted " << paints;
            page->grab();
        }
        EXPECT_EQ(page->PrintPositionY(), lines * page->LineHeight());
    }
}

// Each button hides its own page and brings up the next; a page loads once.
TEST(HelpNavigationTest, ButtonsHideTheirPageAndShowTheNext) {
    struct Step {
        int page;  // 0: the Rules entry of the menu
        const char* button;
        std::array<bool, 3> up;
    };
    const Step steps[] = {
        {0, "", {true, false, false}},
        {1, "CmdGioHelp2", {false, true, false}},
        {2, "CmdPage3", {false, false, true}},
        {3, "CmdBack2", {false, true, false}},
        {2, "CmdBackPage1", {true, false, false}},
        {1, "CmdExitHelp", {false, false, false}},
        {0, "", {true, false, false}},
        {1, "CmdGioHelp2", {false, true, false}},
        {2, "CmdExtPage2", {false, false, false}},
        {0, "", {true, false, false}},
        {1, "CmdGioHelp2", {false, true, false}},
        {2, "CmdPage3", {false, false, true}},
        {0, "", {true, false, true}},
        {3, "CmdExit3", {true, false, false}},
    };
    HelpPages help;
    std::array<HelpPage*, 3> loaded{};
    for (const Step& step : steps) {
        SCOPED_TRACE(step.page == 0 ? "Pinochle Rules" : step.button);
        if (step.page == 0) {
            help.ShowFirstPage();
        } else {
            ASSERT_TRUE(help.Page(step.page) && help.Page(step.page)->isVisible());
            help.Page(step.page)->findChild<QAbstractButton*>(step.button)->click();
        }
        for (std::size_t page = 0; page < 3; ++page) {
            HelpPage* shown = help.Page(static_cast<int>(page) + 1);
            EXPECT_EQ(shown && shown->isVisible(), step.up[page]) << "page " << page + 1;
            loaded[page] = loaded[page] ? loaded[page] : shown;
            EXPECT_EQ(shown, loaded[page]) << "page " << page + 1 << " loaded again";
        }
    }
}

// A page reads as a dialog named by its title that says its words and holds
// its buttons; Escape leaves as its exit button does, Enter and Space press
// the focused button, which shows its focus once a key was pressed.
TEST(HelpKeysTest, EscapeLeavesEachPageEnterAndSpacePressTheFocusedButtonWhichShowsItsFocus) {
    struct Step {
        int page;
        const char* focused;  // the button given the focus, or none
        Qt::Key key;
        std::array<bool, 3> up;
    };
    const Step steps[] = {
        {1, nullptr, Qt::Key_Escape, {false, false, false}},
        {1, "CmdGioHelp2", Qt::Key_Return, {false, true, false}},
        {2, "CmdPage3", Qt::Key_Space, {false, false, true}},
        {3, nullptr, Qt::Key_Escape, {false, false, false}},
        {1, "CmdGioHelp2", Qt::Key_Enter, {false, true, false}},
        {2, nullptr, Qt::Key_Escape, {false, false, false}},
    };
    HelpPages help;
    for (const Step& step : steps) {
        if (step.page == 1) help.ShowFirstPage();
        HelpPage* page = help.Page(step.page);
        SCOPED_TRACE(page->windowTitle().toStdString());
        ASSERT_TRUE(page->isVisible());
        QApplication::setActiveWindow(page);
        QAccessibleInterface* read = QAccessible::queryAccessibleInterface(page);
        EXPECT_EQ(std::tuple(read->role(), read->text(QAccessible::Name)),
                  std::tuple(QAccessible::Dialog, page->windowTitle()));
        EXPECT_TRUE(read->text(QAccessible::Description).startsWith(page->Lines().front().simplified()));
        const QList<QAbstractButton*> buttons = page->findChildren<QAbstractButton*>();
        ASSERT_EQ(read->childCount(), buttons.size());
        for (int i = 0; i < read->childCount(); ++i) {
            EXPECT_EQ(std::tuple(read->child(i)->role(), read->child(i)->text(QAccessible::Name)),
                      std::tuple(QAccessible::PushButton, buttons.at(i)->text().remove('&')));
        }
        if (step.focused != nullptr) {
            auto* button = page->findChild<QAbstractButton*>(step.focused);
            button->setFocus();
            QTest::mouseClick(page, Qt::LeftButton, {}, QPoint(1, 1));  // the mouse hides it
            const QImage unfocused = button->grab().toImage();
            QTest::keyClick(button, Qt::Key_Shift);
            EXPECT_NE(button->grab().toImage(), unfocused) << "the focus does not show";
        }
        QTest::keyClick(page->focusWidget() != nullptr ? page->focusWidget() : page, step.key);
        for (std::size_t shown = 0; shown < 3; ++shown) {
            HelpPage* other = help.Page(static_cast<int>(shown) + 1);
            EXPECT_EQ(other != nullptr && other->isVisible(), step.up[shown]) << shown + 1;
        }
    }
}

}  // namespace
}  // namespace trickhaven
