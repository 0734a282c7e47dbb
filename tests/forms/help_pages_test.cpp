#include "forms/help_pages.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <array>

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

}  // namespace
}  // namespace trickhaven
