#include "forms/help_pages.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <array>
#include <vector>

#include "forms/twips.h"

namespace trickhaven {
namespace {

const QColor kNavy(0, 0, 128);
const QColor kInk(192, 255, 255);

QAbstractButton* Button(QWidget* page, const char* name) {
    auto* button = page->findChild<QAbstractButton*>(QString::fromLatin1(name));
    EXPECT_NE(button, nullptr) << name;
    return button;
}

class HelpPageTest : public ::testing::Test {
protected:
    HelpPage& Page(int page) {
        return page == 1 ? first : page == 2 ? static_cast<HelpPage&>(second) : third;
    }

    CardArt art;
    FrmHelp first{art};
    FrmHelp2 second{art};
    FrmHelp3 third{art};
};

TEST_F(HelpPageTest, PagesAreCaptionedWindowsWithoutCloseBoxInTheirSizeColoursAndFont) {
    struct Case {
        int page;
        const char* title;
        int width, height;
        double points;
    };
    const Case cases[] = {{1, "Pinochle Help Page 1", 11310, 9945, 13.5},
                          {2, "Bezique Help Page Two", 12120, 10590, 12},
                          {3, "Bezique Help Page 3", 12030, 11460, 12}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.title);
        HelpPage& page = Page(c.page);
        EXPECT_TRUE(page.isWindow());
        EXPECT_EQ(page.windowTitle(), QString::fromLatin1(c.title));
        EXPECT_EQ(page.size(), QSize(TwipsToPixels(c.width), TwipsToPixels(c.height)));
        const Qt::WindowFlags flags = page.windowFlags();
        EXPECT_TRUE(flags.testFlag(Qt::WindowTitleHint));
        EXPECT_FALSE(flags.testFlag(Qt::WindowCloseButtonHint));
        EXPECT_FALSE(flags.testFlag(Qt::WindowSystemMenuHint));
        EXPECT_EQ(page.font().family(), QStringLiteral("Times New Roman"));
        EXPECT_TRUE(page.font().bold());
        EXPECT_EQ(page.font().pixelSize(), PointsToPixels(c.points));
        EXPECT_EQ(page.grab().toImage().pixelColor(3, 3), kNavy);
    }
}

TEST_F(HelpPageTest, ButtonsStandWhereDesignedWithCaptionsToolTipsAndMnemonics) {
    struct Case {
        int page;
        const char* name;
        int left, top, width, height;
        double points;
        const char* caption;
        const char* toolTip;
        const char* mnemonic;
    };
    const Case cases[] = {
        {1, "CmdExitHelp", 4200, 9360, 1692, 372, 13.5, "E&xit", "", "Alt+X"},
        {1, "CmdGioHelp2", 6120, 9360, 1692, 372, 13.5, "Page &2 Help", "", "Alt+2"},
        {2, "CmdBackPage1", 5160, 10200, 1572, 372, 13.5, "Page 1 Help",
         "Click for first page of help", ""},
        {2, "CmdExtPage2", 7080, 10200, 1572, 372, 13.5, "Exit Help",
         "Click here to leave Help file", ""},
        {2, "CmdPage3", 9240, 10200, 1572, 372, 13.5, "Page 3 Help",
         "Click to go to last help page", ""},
        {3, "CmdBack2", 4200, 11040, 1692, 372, 12, "Return Page 2", "Click to return to page 2",
         ""},
        {3, "CmdExit3", 6360, 11040, 1572, 372, 12, "Exit Help", "Exit all Help files", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QAbstractButton* button = Button(&Page(c.page), c.name);
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(button->geometry(), TwipsToPixels(c.left, c.top, c.width, c.height));
        EXPECT_EQ(button->text(), QString::fromLatin1(c.caption));
        EXPECT_EQ(button->toolTip(), QString::fromLatin1(c.toolTip));
        EXPECT_EQ(button->shortcut(), QKeySequence(QString::fromLatin1(c.mnemonic)));
        EXPECT_EQ(button->font().pixelSize(), PointsToPixels(c.points));
        EXPECT_EQ(button->palette().color(QPalette::Button), kInk);
    }
}

struct Block {
    int emptyBefore;
    int lines;
    const char* opening;
};

// Each block after its empty lines, every line of it indented by five blanks
// and not blank, then the closing empty lines.
void ExpectBlocks(const QStringList& text, const std::vector<Block>& blocks, int emptyAfter) {
    int index = 0;
    for (const Block& block : blocks) {
        SCOPED_TRACE(block.opening);
        for (int i = 0; i < block.emptyBefore; ++i, ++index) {
            EXPECT_EQ(text.value(index, QStringLiteral("<missing>")), QString()) << index;
        }
        EXPECT_TRUE(text.value(index).startsWith(QString::fromLatin1(block.opening))) << index;
        for (int i = 0; i < block.lines; ++i, ++index) {
            EXPECT_TRUE(text.value(index).startsWith(QStringLiteral("     "))) << index;
            EXPECT_FALSE(text.value(index).trimmed().isEmpty()) << index;
        }
    }
    for (int i = 0; i < emptyAfter; ++i, ++index) {
        EXPECT_EQ(text.value(index, QStringLiteral("<missing>")), QString()) << index;
    }
    EXPECT_EQ(text.size(), index);
}

TEST_F(HelpPageTest, PagesPrintTheirBlocksAtTheLinesThatLeaveRoomForThePictures) {
    ExpectBlocks(Page(1).Lines(),
                 {{3, 4, "     Welcome to Pinochle"},
                  {1, 1, "     THE PACK:"},
                  {1, 1, "     RANK OF CARDS:"},
                  {6, 2, "     THE SHUFFLE AND CUT:"},
                  {1, 3, "     THE DEAL:"},
                  {1, 2, "     OBJECT OF THE GAME:"},
                  {1, 3, "     SCORING:"}},
                 1);
    ExpectBlocks(Page(2).Lines(),
                 {{2, 1, "     SCORING:"},
                  {0, 4, "     There are two ways of scoring points."},
                  {3, 1, "     The other declarations are:"},
                  {1, 9, "      Marriage"}},
                 0);
    ExpectBlocks(Page(3).Lines(),
                 {{0, 2, "     Points for each trick won"},
                  {1, 2, "     THE PLAY: Non-Dealer leads."},
                  {1, 2, "     The player winning the trick,"},
                  {1, 2, "     After making any declaration"},
                  {1, 4, "     A card may not be used twice"},
                  {1, 2, "     When the stock contains only one"},
                  {1, 3, "     All the declared cards"},
                  {1, 4, "     The normal Target Score is 1000"},
                  {1, 3, "     To play the cards"},
                  {1, 1, "     The computer will guide you"},
                  {1, 1, "     From the Options menu"}},
                 0);
}

TEST_F(HelpPageTest, RepaintingPrintsPagesOneAndTwoOnceMoreButPageThreeOnlyWhenItLoads) {
    for (int number : {1, 2, 3}) {
        SCOPED_TRACE(number);
        HelpPage& page = Page(number);
        const int lines = static_cast<int>(page.Lines().size());
        // Page 3 printed itself when it loaded and only keeps that print.
        const int perPaint = number == 3 ? 0 : lines;
        const int before = page.LinesPrinted();
        if (number == 3) {
            EXPECT_EQ(before, lines);
        }
        const QImage first = page.grab().toImage();
        EXPECT_EQ(page.LinesPrinted(), before + perPaint);
        EXPECT_EQ(page.PrintPositionY(), lines * page.LineHeight());
        if (number == 3) {
            page.show();
            page.hide();
        }
        const QImage second = page.grab().toImage();
        EXPECT_EQ(page.LinesPrinted(), before + 2 * perPaint);
        EXPECT_EQ(page.PrintPositionY(), lines * page.LineHeight());
        EXPECT_EQ(first, second);
    }
}

class HelpNavigationTest : public ::testing::Test {
protected:
    void Click(int page, const char* button) {
        ASSERT_NE(help.Page(page), nullptr);
        ASSERT_TRUE(help.Page(page)->isVisible()) << button;
        Button(help.Page(page), button)->click();
    }
    bool Up(int page) const { return help.Page(page) && help.Page(page)->isVisible(); }

    HelpPages help;
};

TEST_F(HelpNavigationTest, ButtonsHideTheirPageAndShowTheNext) {
    struct Step {
        int page;
        const char* button;
        std::array<bool, 3> up;
    };
    const Step steps[] = {
        {1, "CmdGioHelp2", {false, true, false}},  {2, "CmdPage3", {false, false, true}},
        {3, "CmdBack2", {false, true, false}},     {2, "CmdBackPage1", {true, false, false}},
        {1, "CmdExitHelp", {false, false, false}},
    };
    help.ShowFirstPage();
    EXPECT_TRUE(Up(1));
    EXPECT_EQ(help.Page(2), nullptr);
    std::array<HelpPage*, 3> loaded{};
    for (const Step& step : steps) {
        SCOPED_TRACE(step.button);
        Click(step.page, step.button);
        for (int page = 1; page <= 3; ++page) {
            EXPECT_EQ(Up(page), step.up[static_cast<std::size_t>(page - 1)]) << "page " << page;
            HelpPage*& first = loaded[static_cast<std::size_t>(page - 1)];
            first = first ? first : help.Page(page);
            EXPECT_EQ(help.Page(page), first) << "page " << page << " loaded again";
        }
    }
}

TEST_F(HelpNavigationTest, ExitLeavesNoPageAndFirstPageAlwaysComesBackFirst) {
    for (const auto& [exit, last] : {std::pair{"CmdExtPage2", 2}, std::pair{"CmdExit3", 3}}) {
        SCOPED_TRACE(exit);
        help.ShowFirstPage();
        Click(1, "CmdGioHelp2");
        if (last == 3) {
            Click(2, "CmdPage3");
        }
        Click(last, exit);
        EXPECT_FALSE(Up(1) || Up(2) || Up(3));
        help.ShowFirstPage();
        EXPECT_TRUE(Up(1));
        EXPECT_FALSE(Up(2) || Up(3));
        Click(1, "CmdExitHelp");
    }
    // Asked again while page 3 is up, page 1 opens beside it.
    help.ShowFirstPage();
    Click(1, "CmdGioHelp2");
    Click(2, "CmdPage3");
    help.ShowFirstPage();
    EXPECT_TRUE(Up(1) && Up(3));
    EXPECT_FALSE(Up(2));
}

}  // namespace
}  // namespace trickhaven
