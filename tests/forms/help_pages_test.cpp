#include "forms/help_pages.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QScreen>
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <vector>

#include "forms/twips.h"

namespace trickhaven {
namespace {

const QColor kNavy(0, 0, 128);
const QColor kInk(192, 255, 255);
const QString kIndent = QStringLiteral("     ");

std::unique_ptr<HelpPage> MakePage(int page, CardArt& art) {
    switch (page) {
        case 1:
            return std::make_unique<FrmHelp>(art);
        case 2:
            return std::make_unique<FrmHelp2>(art);
        default:
            return std::make_unique<FrmHelp3>(art);
    }
}

QAbstractButton* Button(QWidget* page, const char* name) {
    auto* button = page->findChild<QAbstractButton*>(QString::fromLatin1(name));
    EXPECT_NE(button, nullptr) << name;
    return button;
}

class HelpPageTest : public ::testing::Test {
protected:
    HelpPage& Page(int page) {
        auto& slot = pages_.at(static_cast<std::size_t>(page - 1));
        if (!slot) {
            slot = MakePage(page, art_);
        }
        return *slot;
    }

    CardArt art_;

private:
    std::array<std::unique_ptr<HelpPage>, 3> pages_;
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
        EXPECT_TRUE(flags.testFlag(Qt::CustomizeWindowHint));
        EXPECT_FALSE(flags.testFlag(Qt::WindowCloseButtonHint));
        EXPECT_FALSE(flags.testFlag(Qt::WindowSystemMenuHint));
        EXPECT_FALSE(page.isModal());
        EXPECT_EQ(page.font().family(), QStringLiteral("Times New Roman"));
        EXPECT_TRUE(page.font().bold());
        EXPECT_EQ(page.font().pixelSize(), PointsToPixels(c.points));
        EXPECT_EQ(page.LineHeight(), QFontMetrics(page.font()).height());
        // The first line is empty on pages 1 and 2 and starts with blanks on
        // page 3: the top left corner shows the background.
        const QImage shot = page.grab().toImage();
        EXPECT_EQ(shot.pixelColor(3, 3), kNavy);
        EXPECT_TRUE(shot.pixelColor(page.width() / 2, 0) == kNavy ||
                    shot.pixelColor(page.width() / 2, 0) == kInk);
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
        EXPECT_TRUE(button->font().bold());
        EXPECT_EQ(button->palette().color(QPalette::Button), kInk);
        const QImage face = button->grab().toImage();
        EXPECT_EQ(face.pixelColor(face.width() / 2, 3), kInk);
    }
}

// Rank and suit in the order of the card table.
enum Suit { D, C, H, S };
enum Rank { Ace, Ten, King, Queen, Jack, Nine };

struct PictureCase {
    const char* name;
    int left, top;
    Rank rank;
    Suit suit;
};

double Difference(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor p = a.pixelColor(x, y);
            const QColor q = b.pixelColor(x, y);
            sum += std::abs(p.red() - q.red()) + std::abs(p.green() - q.green()) +
                   std::abs(p.blue() - q.blue()) + std::abs(p.alpha() - q.alpha());
        }
    }
    return sum;
}

// The face that a small picture looks most like, as (rank, suit).
std::pair<int, int> NearestFace(CardArt& art, const QImage& picture) {
    std::pair<int, int> nearest{-1, -1};
    double best = 0;
    for (int suit = 0; suit < 4; ++suit) {
        for (int rank = 0; rank < 6; ++rank) {
            const QImage face =
                art.Image(suit * 12 + rank * 2 + 1, 1.0)
                    .toImage()
                    .scaled(picture.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                    .convertToFormat(picture.format());
            const double difference = Difference(face, picture);
            if (nearest.first < 0 || difference < best) {
                best = difference;
                nearest = {rank, suit};
            }
        }
    }
    return nearest;
}

void ExpectPictures(HelpPage& page, CardArt& art, const std::vector<PictureCase>& cases) {
    for (const PictureCase& c : cases) {
        SCOPED_TRACE(c.name);
        auto* picture = page.findChild<QLabel*>(QString::fromLatin1(c.name));
        ASSERT_NE(picture, nullptr);
        EXPECT_EQ(picture->geometry(), TwipsToPixels(c.left, c.top, 825, 825));
        const QPixmap face = picture->pixmap();
        ASSERT_FALSE(face.isNull());
        const QSize shown = face.deviceIndependentSize().toSize();
        EXPECT_TRUE(shown == QSize(55, 55).boundedTo(shown) && shown.height() == 55)
            << shown.width();
        const QImage image = face.toImage().convertToFormat(QImage::Format_ARGB32);
        EXPECT_EQ(NearestFace(art, image),
                  std::make_pair(static_cast<int>(c.rank), static_cast<int>(c.suit)));
    }
}

TEST_F(HelpPageTest, FirstPageShowsTheOrderOfTheCardsInOneRow) {
    ExpectPictures(Page(1), art_,
                   {{"Image1", 2160, 3600, Ace, D},
                    {"Image2", 3360, 3600, Ten, D},
                    {"Image3", 4680, 3600, King, D},
                    {"Image4", 5880, 3600, Queen, D},
                    {"Image5", 7080, 3600, Jack, D},
                    {"Image6", 8280, 3600, Nine, D}});
}

struct LabelCase {
    const char* name;
    int left, top, width, height;
    const char* caption;
};

TEST_F(HelpPageTest, SecondPageShowsEachMeldAboveItsLabelWithTheRightCardOnTop) {
    const LabelCase labels[] = {
        {"LblTrumps", 8400, 3000, 912, 240, "Trumps"},
        {"LblRM", 7080, 4080, 1632, 600, "Royal Marriage 40 points"},
        {"Label2", 9120, 4080, 1632, 600, "Common Marriage 20 points"},
        {"LblSequence", 6480, 5640, 2532, 372, "Trumps Run 150 points"},
        {"Label1", 3480, 7080, 2172, 492, "Any Four Aces 100 points"},
        {"LblDBezique", 6720, 7080, 2292, 492, "Double Pinochle  500 points"},
        {"LblBezique", 9600, 7080, 1632, 516, " Pinochle 40 points"},
        {"Lbl4kingss", 3720, 9000, 2172, 492, "Any Four Kings 80 points"},
        {"LblJacks", 6960, 8880, 2052, 492, "Any Four Jacks 40 points"},
        {"LblQueens", 9480, 8880, 1812, 492, "Any Four Queens 60 points"},
    };
    // The pictures above each label, left to right.
    const std::vector<PictureCase> groups[] = {
        {{"Image1", 8520, 2040, Ace, D}},
        {{"Image3", 7200, 3240, King, D}, {"Image4", 7920, 3240, Queen, D}},
        {{"Image19", 9240, 3240, King, H}, {"Image20", 9960, 3240, Queen, H}},
        {{"Image6", 6600, 4800, Ace, D},
         {"Image2", 6960, 4800, Ten, D},
         {"Image8", 7320, 4800, Jack, D},
         {"Image7", 7800, 4800, Queen, D},
         {"Image5", 8160, 4800, King, D}},
        {{"Image15", 3600, 6240, Ace, D},
         {"Image16", 4080, 6240, Ace, S},
         {"Image17", 4560, 6240, Ace, H},
         {"Image18", 5040, 6240, Ace, C}},
        {{"Image13", 6720, 6240, Queen, S},
         {"Image14", 7080, 6240, Jack, D},
         {"Image11", 7800, 6240, Queen, S},
         {"Image12", 8280, 6240, Jack, D}},
        {{"Image10", 9960, 6240, Queen, S}, {"Image9", 10320, 6240, Jack, D}},
        {{"Image25", 3720, 8160, King, D},
         {"Image28", 4200, 8160, King, H},
         {"Image27", 4680, 8160, King, C},
         {"Image26", 5160, 8160, King, S}},
        {{"Image24", 6960, 7920, Jack, C},
         {"Image23", 7440, 7920, Jack, D},
         {"Image21", 7800, 7920, Jack, H},
         {"Image22", 8280, 7920, Jack, S}},
        {{"Image31", 9480, 8040, Queen, S},
         {"Image30", 9840, 8040, Queen, H},
         {"Image29", 10200, 8040, Queen, S},
         {"Image32", 10560, 8040, Queen, D}},
    };
    HelpPage& page = Page(2);
    for (std::size_t g = 0; g < std::size(labels); ++g) {
        const LabelCase& l = labels[g];
        SCOPED_TRACE(l.name);
        auto* label = page.findChild<QLabel*>(QString::fromLatin1(l.name));
        ASSERT_NE(label, nullptr);
        const QRect design = TwipsToPixels(l.left, l.top, l.width, l.height);
        EXPECT_EQ(label->pos(), design.topLeft());
        EXPECT_EQ(label->width(), design.width());
        EXPECT_GE(label->height(), design.height());
        EXPECT_EQ(label->text(), QString::fromLatin1(l.caption));
        EXPECT_EQ(label->font().pixelSize(), PointsToPixels(11.25));
        EXPECT_TRUE(label->font().bold());
        EXPECT_TRUE(label->alignment().testFlag(Qt::AlignHCenter));
        EXPECT_EQ(label->palette().color(QPalette::WindowText), kInk);
        // The caption is not cut at the label's foot, though it may need
        // more lines than the design height.
        EXPECT_LE(label->heightForWidth(label->width()), label->height());
        const std::vector<PictureCase>& pictures = groups[g];
        ExpectPictures(page, art_, pictures);
        for (std::size_t i = 1; i < pictures.size(); ++i) {
            const PictureCase& right = pictures[i];
            if (right.left - pictures[i - 1].left >= 825) {
                continue;
            }
            const QPoint overlap(TwipsToPixels(right.left) + 1, TwipsToPixels(right.top) + 27);
            ASSERT_NE(page.childAt(overlap), nullptr) << right.name;
            EXPECT_EQ(page.childAt(overlap)->objectName(), QString::fromLatin1(right.name));
        }
    }
}

struct Block {
    int emptyBefore;
    int lines;
    const char* opening;
};

// Walks the page's lines: each block after its empty lines, every line of a
// block indented by five blanks and not blank, then the closing empty lines.
void ExpectBlocks(const QStringList& text, const std::vector<Block>& blocks, int emptyAfter) {
    int index = 0;
    for (const Block& block : blocks) {
        SCOPED_TRACE(block.opening);
        for (int i = 0; i < block.emptyBefore; ++i, ++index) {
            EXPECT_EQ(text.value(index, QStringLiteral("<missing>")), QString()) << index;
        }
        EXPECT_TRUE(text.value(index).startsWith(QString::fromLatin1(block.opening))) << index;
        for (int i = 0; i < block.lines; ++i, ++index) {
            EXPECT_TRUE(text.value(index).startsWith(kIndent)) << index;
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

TEST_F(HelpPageTest, SecondPageListsTheDeclarationsWordForWord) {
    const QStringList declarations = {
        "      Marriage (K, Q of the same suit) in trumps 40",
        "      Marriage (K, Q in any suit) 20",
        "      Sequence (A, 10, K, Q, J of trumps) 150",
        "      Pinochle (Queen of Spades and Jack of Diamonds) 40 ",
        "      Double Pinochle 500",
        "       4 Aces different suits 100",
        "      4 Kings different suits 80",
        "      4 Queens different suits 60",
        "      4 Jacks different suits 40",
    };
    const QStringList& text = Page(2).Lines();
    EXPECT_EQ(text.mid(text.size() - declarations.size()), declarations);
}

// Nothing wraps, so a line must end before the page's edge and before the
// pictures, captions and buttons that stand in the gaps.
TEST_F(HelpPageTest, NoLineRunsOffThePageOrUnderAControl) {
    for (int number = 1; number <= 3; ++number) {
        HelpPage& page = Page(number);
        const QFontMetrics metrics(page.font());
        const QStringList& text = page.Lines();
        for (int i = 0; i < text.size(); ++i) {
            if (text[i].isEmpty()) {
                continue;
            }
            SCOPED_TRACE(text[i].toStdString());
            const QRect line(0, i * page.LineHeight(), metrics.horizontalAdvance(text[i]),
                             page.LineHeight());
            EXPECT_LE(line.right(), page.width() - 1) << "page " << number;
            for (const QWidget* control : page.findChildren<QWidget*>()) {
                EXPECT_FALSE(line.intersects(control->geometry()))
                    << control->objectName().toStdString();
            }
        }
    }
}

// The rows of a page's image that hold text colour outside its controls.
std::vector<bool> InkRows(const QWidget& page, const QImage& shot) {
    std::vector<bool> rows(static_cast<std::size_t>(shot.height()), false);
    const QList<QWidget*> controls = page.findChildren<QWidget*>();
    for (int y = 0; y < shot.height(); ++y) {
        for (int x = 0; x < shot.width(); ++x) {
            const bool covered = std::any_of(controls.begin(), controls.end(), [&](QWidget* c) {
                return c->geometry().contains(x, y);
            });
            if (!covered && shot.pixelColor(x, y) == kInk) {
                rows[static_cast<std::size_t>(y)] = true;
                break;
            }
        }
    }
    return rows;
}

// Each printed line shows within its own band from the top, and nothing
// shows in the bands of empty lines or below the last line. A descender may
// reach one row below its line's height.
void ExpectPrintedOnceFromTheTop(const HelpPage& page, const QImage& shot) {
    const std::vector<bool> rows = InkRows(page, shot);
    const QStringList& text = page.Lines();
    const int h = page.LineHeight();
    const auto printed = [&](int line) { return line < text.size() && !text[line].isEmpty(); };
    std::vector<bool> lineInked(static_cast<std::size_t>(text.size()), false);
    for (int y = 0; y < shot.height(); ++y) {
        if (!rows[static_cast<std::size_t>(y)]) {
            continue;
        }
        const int line = y / h;
        if (printed(line)) {
            lineInked[static_cast<std::size_t>(line)] = true;
            continue;
        }
        EXPECT_TRUE(y % h == 0 && line > 0 && printed(line - 1)) << "ink at row " << y;
    }
    for (int i = 0; i < text.size(); ++i) {
        EXPECT_EQ(lineInked[static_cast<std::size_t>(i)], printed(i)) << "line " << i;
    }
}

TEST_F(HelpPageTest, RepaintingPrintsTheWholePageAgainInTheSamePlace) {
    for (int number : {1, 2}) {
        SCOPED_TRACE(number);
        HelpPage& page = Page(number);
        const int lines = static_cast<int>(page.Lines().size());
        const int before = page.LinesPrinted();
        const QImage first = page.grab().toImage();
        EXPECT_EQ(page.LinesPrinted(), before + lines);
        EXPECT_EQ(page.PrintPositionY(), lines * page.LineHeight());
        const QImage second = page.grab().toImage();
        EXPECT_EQ(page.LinesPrinted(), before + 2 * lines);
        EXPECT_EQ(page.PrintPositionY(), lines * page.LineHeight());
        EXPECT_EQ(first, second);
        ExpectPrintedOnceFromTheTop(page, second);
    }
}

TEST_F(HelpPageTest, ThirdPagePrintsOnceWhenItLoadsAndKeepsThatPrint) {
    HelpPage& page = Page(3);
    const int lines = static_cast<int>(page.Lines().size());
    EXPECT_EQ(page.LinesPrinted(), lines);
    EXPECT_EQ(page.PrintPositionY(), lines * page.LineHeight());
    const QImage first = page.grab().toImage();
    page.show();
    page.hide();
    const QImage second = page.grab().toImage();
    EXPECT_EQ(page.LinesPrinted(), lines);
    EXPECT_EQ(first, second);
    ExpectPrintedOnceFromTheTop(page, second);
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
    EXPECT_EQ(help.Page(3), nullptr);
    std::array<HelpPage*, 3> loaded{};
    for (const Step& step : steps) {
        SCOPED_TRACE(step.button);
        Click(step.page, step.button);
        for (int page = 1; page <= 3; ++page) {
            EXPECT_EQ(Up(page), step.up[static_cast<std::size_t>(page - 1)]) << "page " << page;
            HelpPage*& first = loaded[static_cast<std::size_t>(page - 1)];
            if (!first) {
                first = help.Page(page);
            }
            EXPECT_EQ(help.Page(page), first) << "page " << page << " loaded again";
        }
    }
}

TEST_F(HelpNavigationTest, ExitLeavesNoPageAndFirstPageAlwaysComesBackFirst) {
    struct Case {
        const char* exit;
        int page;
    };
    const Case cases[] = {{"CmdExtPage2", 2}, {"CmdExit3", 3}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.exit);
        help.ShowFirstPage();
        Click(1, "CmdGioHelp2");
        if (c.page == 3) {
            Click(2, "CmdPage3");
        }
        Click(c.page, c.exit);
        EXPECT_FALSE(Up(1) || Up(2) || Up(3));
        help.ShowFirstPage();
        EXPECT_TRUE(Up(1));
        EXPECT_FALSE(Up(2) || Up(3));
        Click(1, "CmdExitHelp");
    }
}

TEST_F(HelpNavigationTest, FirstPageOpensBesideAPageThatIsUp) {
    help.ShowFirstPage();
    Click(1, "CmdGioHelp2");
    Click(2, "CmdPage3");
    help.ShowFirstPage();
    EXPECT_TRUE(Up(1));
    EXPECT_TRUE(Up(3));
    EXPECT_FALSE(Up(2));
}

TEST_F(HelpNavigationTest, PagesOpenCentredAndComeBackWhereTheyWereLeft) {
    help.ShowFirstPage();
    HelpPage* first = help.Page(1);
    const QPoint centre = first->screen()->availableGeometry().center();
    const QPoint offset = first->geometry().center() - centre;
    EXPECT_TRUE(std::abs(offset.x()) <= 1 && std::abs(offset.y()) <= 1)
        << offset.x() << "," << offset.y();
    const QPoint moved = first->pos() + QPoint(-40, 25);
    first->move(moved);
    Click(1, "CmdGioHelp2");
    EXPECT_LE((help.Page(2)->geometry().center() - centre).manhattanLength(), 2);
    Click(2, "CmdBackPage1");
    EXPECT_EQ(help.Page(1)->pos(), moved);
}

}  // namespace
}  // namespace trickhaven
