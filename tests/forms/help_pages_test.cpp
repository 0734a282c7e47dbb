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

// Each button, clicked or pressed by Enter or Space, hides its page and shows
// the next, Escape leaves as the exit button does, a page loads once; a page
// reads as a dialog with its words and buttons; a key shows the focus.
TEST(HelpNavigationTest, ButtonsClickedOrPressedByKeysAndEscapeHideTheirPageAndShowTheNext) {
    struct Step {
        int page;            // 0: the Rules entry of the menu
        const char* button;  // none: Escape
        Qt::Key key;         // Key_unknown: a click
        std::array<bool, 3> up;
    };
    constexpr Qt::Key click = Qt::Key_unknown;
    const Step steps[] = {
        {0, "", click, {true, false, false}},
        {1, "CmdGioHelp2", click, {false, true, false}},
        {2, "CmdPage3", Qt::Key_Space, {false, false, true}},
        {3, "CmdBack2", click, {false, true, false}},
        {2, "CmdBackPage1", Qt::Key_Return, {true, false, false}},
        {1, "CmdExitHelp", click, {false, false, false}},
        {0, "", click, {true, false, false}},
        {1, nullptr, Qt::Key_Escape, {false, false, false}},
        {0, "", click, {true, false, false}},
        {1, "CmdGioHelp2", Qt::Key_Enter, {false, true, false}},
        {2, "CmdExtPage2", click, {false, false, false}},
        {0, "", click, {true, false, false}},
        {1, "CmdGioHelp2", click, {false, true, false}},
        {2, nullptr, Qt::Key_Escape, {false, false, false}},
        {0, "", click, {true, false, false}},
        {1, "CmdGioHelp2", click, {false, true, false}},
        {2, "CmdPage3", click, {false, false, true}},
        {0, "", click, {true, false, true}},
        {3, nullptr, Qt::Key_Escape, {true, false, false}},
        {1, "CmdGioHelp2", click, {false, true, false}},
        {2, "CmdPage3", click, {false, false, true}},
        {3, "CmdExit3", click, {false, false, false}},
    };
    HelpPages help;
    std::array<HelpPage*, 3> loaded{};
    for (const Step& step : steps) {
        SCOPED_TRACE(step.page == 0 ? "Pinochle Rules" : step.button ? step.button : "Escape");
        if (step.page == 0) {
            help.ShowFirstPage();
        } else {
            HelpPage* page = help.Page(step.page);
            ASSERT_TRUE(page && page->isVisible());
            QAccessibleInterface* read = QAccessible::queryAccessibleInterface(page);
            EXPECT_EQ(std::tuple(read->role(), read->text(QAccessible::Name)),
                      std::tuple(QAccessible::Dialog, page->windowTitle()));
            EXPECT_TRUE(read->text(QAccessible::Description)
                            .startsWith(page->Lines().front().simplified()));
            const QList<QAbstractButton*> buttons = page->findChildren<QAbstractButton*>();
            ASSERT_EQ(read->childCount(), buttons.size());
            for (int i = 0; i < read->childCount(); ++i) {
                EXPECT_EQ(
                    std::tuple(read->child(i)->role(), read->child(i)->text(QAccessible::Name)),
                    std::tuple(QAccessible::PushButton, buttons.at(i)->text().remove('&')));
            }
            auto* button = step.button ? page->findChild<QAbstractButton*>(step.button) : nullptr;
            if (step.key == click) {
                button->click();
            } else if (button == nullptr) {
                QTest::keyClick(page, step.key);
            } else {
                QApplication::setActiveWindow(page);
                button->setFocus();
                QTest::mouseClick(page, Qt::LeftButton, {}, QPoint(1, 1));  // the mouse hides it
                const QImage unfocused = button->grab().toImage();
                QTest::keyClick(button, Qt::Key_Shift);
                EXPECT_NE(button->grab().toImage(), unfocused) << "the focus does not show";
                QTest::keyClick(button, step.key);
            }
        }
        for (std::size_t page = 0; page < 3; ++page) {
            HelpPage* shown = help.Page(static_cast<int>(page) + 1);
            EXPECT_EQ(shown && shown->isVisible(), step.up[page]) << "page " << page + 1;
            loaded[page] = loaded[page] ? loaded[page] : shown;
            EXPECT_EQ(shown, loaded[page]) << "page " << page + 1 << " loaded again";
        }
    }
}

}  // namespace
}  // namespace trickhaven
