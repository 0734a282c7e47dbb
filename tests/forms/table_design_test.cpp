// Every control of the table against the design: place in twips, colours,
// font, caption and tool tip. One row per control, so a wrong control fails
// alone.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QVariant>
#include <cstdlib>
#include <ostream>
#include <tuple>

#include "forms_test_support.h"

namespace trickhaven {

namespace {

struct Expected {
    const char* name;
    int left, top, width, height;  // twips
    QRgb back, text;
    double points;
    bool bold, italic, underline;
    const char* caption;
    const char* toolTip = "";
};

constexpr QRgb Black = qRgb(0, 0, 0);
constexpr QRgb NameRed = qRgb(128, 0, 0);
constexpr QRgb NameInk = qRgb(255, 255, 192);
constexpr QRgb Olive = qRgb(128, 128, 0);
constexpr QRgb Peach = qRgb(255, 224, 192);
constexpr QRgb Green = qRgb(0, 192, 0);
constexpr QRgb Pink = qRgb(255, 128, 128);
constexpr QRgb Apricot = qRgb(255, 192, 128);
constexpr QRgb Mint = qRgb(192, 255, 192);
constexpr const char* LastTrick = "Your last trick score";
constexpr const char* TotalTricks = "Your current trick scores";
constexpr const char* LastMeld = "Last Meld Score Lorinda";
constexpr const char* Total = "Total score Lorinda";

const Expected Rows[] = {
    {"LblBotsName", 8880, 0, 1230, 390, NameRed, NameInk, 14.25, 1, 1, 0, "Opponent"},
    {"LblPlayer0", 600, 10200, 825, 390, NameRed, NameInk, 14.25, 1, 1, 0, "Player"},
    {"LblStock", 120, 1920, 855, 255, qRgb(0, 64, 0), qRgb(255, 255, 0), 9, 1, 0, 1, "Stock"},
    {"LblKnock", 480, 9120, 1215, 375, qRgb(255, 128, 0), Black, 11.25, 1, 0, 0, "Knock?"},
    {"CmdSort", 480, 9720, 1332, 372, qRgb(192, 192, 0), Black, 12, 1, 0, 0, "&Sort Same",
     "Click to change sorting"},
    {"Frame1", 10440, 120, 2415, 2520, Pink, Black, 9.75, 1, 0, 1, "Current and Total  Scores"},
    {"FrameTricks", 10440, 9120, 2415, 2520, Apricot, Black, 9.75, 1, 0, 1,
     "Current and Total  Scores"},
    {"FramDeclare", 3840, 0, 4965, 3015, Olive, qRgb(255, 255, 128), 10.5, 1, 0, 1,
     "Select a Declaration or Cancel to receive a card"},
    {"FramMarriage", 4800, 120, 2775, 2205, Olive, qRgb(255, 255, 0), 8.25, 1, 0, 1,
     "Select Marriage suit  to Make"},
    {"FramMeldHelp", 3960, 120, 4575, 5052, Olive, qRgb(255, 255, 0), 8.25, 0, 0, 0,
     "Meld Quick Reminder"},
    {"CmdDBezique", 480, 480, 2052, 372, Peach, Black, 10.5, 1, 0, 1, "Double Pinochle",
     "Click here if you have a Double Pinochle"},
    {"CmdBezique", 2520, 480, 2052, 372, Peach, Black, 10.5, 1, 0, 1, "Pinochle",
     "Click here to Meld  a Pinochle"},
    {"CmdSequence", 480, 840, 2052, 372, Peach, Black, 10.5, 1, 0, 1, "Run in Trumps",
     "Click here to Meld a Sequence"},
    {"CmdFours3", 2520, 840, 2052, 372, Peach, Black, 11.25, 1, 0, 1, "Four Aces",
     "Click here to Meld 4 Aces"},
    {"CmdFours0", 480, 1200, 2052, 372, Peach, Black, 10.5, 1, 0, 1, "Four Kings",
     "Click here to Meld 4 Kings"},
    {"CmdFours1", 2520, 1200, 2052, 372, Peach, Black, 10.5, 1, 0, 1, "Four Queens",
     "Click here to Meld 4 Queens"},
    {"CmdFours2", 480, 1560, 2052, 372, Peach, Black, 10.5, 1, 0, 1, "Four Jacks",
     "Click here to Meld 4 Jacks"},
    {"cmdDec7Trumps", 2520, 1560, 2052, 372, Peach, Black, 10.5, 1, 0, 1, "Dix- 9 Trumps",
     "Click here to Meld a 9 of Trumps"},
    {"CmdMakeMarriage4", 1440, 1920, 1950, 330, Peach, Black, 10.5, 1, 0, 1, "Make Marriage",
     "Click here to make a marriage"},
    {"CmdCancel", 720, 2520, 3495, 384, Green, Black, 11.25, 1, 0, 0, "C&ancel and Take Card"},
    {"CmdMarriage1", 360, 480, 1995, 300, Peach, Black, 9.75, 1, 0, 1, "Diamonds",
     "Click here to declare Marriage in Diamonds"},
    {"CmdMarriage2", 360, 840, 1995, 300, Peach, Black, 9.75, 1, 0, 1, "Clubs",
     "Click here to declare Marriage in Clubs"},
    {"CmdMarriage3", 360, 1215, 1995, 300, Peach, Black, 9.75, 1, 0, 1, "Hearts",
     "Click here to declare Marriage in Hearts"},
    {"CmdMarriage4", 360, 1560, 1995, 300, Peach, Black, 9.75, 1, 0, 1, "Spades",
     "Click here to declare Marriage in Spades"},
    {"LblBName", 480, 240, 795, 225, Pink, Black, 9.75, 1, 0, 1, "Opponent"},
    {"Label13", 480, 480, 1095, 255, Pink, Black, 9.75, 1, 0, 0, "Last Trick:-"},
    {"Label10", 480, 840, 1215, 255, Pink, Black, 9.75, 1, 0, 0, "Total Tricks:-"},
    {"Label11", 480, 1200, 1095, 255, Pink, Black, 9.75, 1, 0, 0, "Last Meld:-"},
    // A pixel wider to hold its caption, as is "Label8".
    {"Label6", 480, 1560, 1110, 255, Pink, Black, 9.75, 1, 0, 0, "Total Melds:-"},
    // Grown around its centre to hold its caption in Liberation Serif.
    {"Label3", 60, 2040, 1590, 255, Pink, Black, 11.25, 1, 0, 1, "TOTAL SCORE"},
    {"LblLastTrickC", 1680, 480, 615, 255, Mint, Black, 9.75, 1, 0, 0, "0", LastTrick},
    {"LblTotTricskC", 1680, 840, 615, 255, Mint, Black, 9.75, 1, 0, 0, "0", TotalTricks},
    {"LbllLastMeldC", 1680, 1200, 615, 255, Mint, Black, 9.75, 1, 0, 0, "0", LastMeld},
    {"LblTotMeldsC", 1680, 1560, 615, 255, Mint, Black, 9.75, 1, 0, 0, "0", Total},
    {"LblTotScoreC", 1680, 2040, 615, 255, Mint, Black, 9.75, 1, 0, 0, "0", Total},
    {"LblPname1", 600, 240, 555, 225, Apricot, Black, 9.75, 1, 0, 1, "Player"},
    {"Label2", 480, 480, 1095, 255, Apricot, Black, 9.75, 1, 0, 0, "Last Trick:-"},
    {"Label5", 480, 840, 1215, 255, Apricot, Black, 9.75, 1, 0, 0, "Total Tricks:-"},
    {"LastMeld", 480, 1200, 1095, 255, Apricot, Black, 9.75, 1, 0, 0, "Last Meld:-"},
    {"Label8", 480, 1560, 1110, 255, Apricot, Black, 9.75, 1, 0, 0, "Total Melds:-"},
    // Grown up to its figure, then a size smaller, to hold its caption.
    {"LblTotal", 165, 2040, 1485, 255, Apricot, Black, 10.5, 1, 0, 1, "TOTAL SCORE"},
    {"LblLastTrickP", 1680, 480, 615, 255, Mint, Black, 9.75, 1, 0, 0, "0", LastTrick},
    {"LblTotTricksP", 1680, 840, 615, 255, Mint, Black, 9.75, 1, 0, 0, "0", TotalTricks},
    {"LblLastMeldP", 1680, 1200, 615, 255, Mint, Black, 9.75, 1, 0, 0, "0", LastMeld},
    {"LblTotalMeldsP", 1680, 1560, 615, 255, Mint, Black, 9.75, 1, 0, 0, "0", Total},
    {"LblTotalScoreP", 1680, 2040, 615, 255, Mint, Black, 9.75, 1, 0, 0, "0", Total},
    {"LblDix", 120, 240, 4332, 612, Peach, Black, 10.5, 1, 0, 0,
     "Dix - 9 of trumps swapped up card and melded. 10 points."},
    {"Label1", 120, 840, 4332, 732, Peach, Black, 10.5, 1, 0, 0,
     "Marriage - King and Queen of same suit. 40 points if trumps else 20 points each."},
    {"Label4", 120, 1560, 4332, 612, Peach, Black, 10.5, 1, 0, 0,
     "Single Pinochle - Queen  Spades -Jack Diamonds - 40 points."},
    {"Label9", 120, 2160, 4332, 852, Peach, Black, 10.5, 1, 0, 0,
     "Four cards same value but different suits - can be Aces at 100 points, Kings at 80 points, "
     "Queens at 60 points and Jacks at 40 points."},
    {"Label12", 120, 3000, 4332, 612, Peach, Black, 10.5, 1, 0, 0,
     "A run of Ace,Ten,King,Queen and Jack in Trumps - worth 150 points."},
    {"Label7", 120, 3600, 4332, 732, Peach, Black, 10.5, 1, 0, 0,
     "Double Pinochle - two Queen of Spades and two Jack of Diamonds - 500 points."},
    {"Command1", 1680, 4440, 1335, 375, Green, Black, 8.25, 0, 0, 0, "&O.K"},
    {"StatusBar1Panel1", 0, 0, 3000, 495, 0, Black, 12, 1, 0, 0, "Trump", "Current Trumps"},
    {"StatusBar1Panel2", 3000, 0, 7000, 495, 0, Black, 12, 1, 0, 0, "General Information",
     "General Information"},
    {"StatusBar1Panel3", 10000, 0, 1440, 495, 0, Black, 12, 1, 0, 0, "Tricks"},
    {"StatusBar1Panel4", 11440, 0, 1440, 495, 0, Black, 12, 1, 0, 0, "Rounds"},
};

void PrintTo(const Expected& row, std::ostream* out) {
    *out << row.name;
}

// A design figure in twips matches a pixel figure when they round alike.
void ExpectTwips(const char* what, int expected, int pixels) {
    EXPECT_LE(std::abs(pixels * 15 - expected), 7) << what << ": " << pixels << " px";
}

QString CaptionOf(const QWidget& control) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
        return button->text();
    }
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        return label->text();
    }
    const QVariant title = control.property("title");
    return title.isValid() ? title.toString() : control.property("text").toString();
}

class ControlDesignTest : public ::testing::TestWithParam<Expected> {};

TEST_P(ControlDesignTest, MatchesTheDesign) {
    const Expected& row = GetParam();
    QWidget* control = FindControl(DesignTable(), row.name);
    ASSERT_NE(control, nullptr);

    ExpectTwips("left", row.left, control->x());
    ExpectTwips("top", row.top, control->y());
    ExpectTwips("width", row.width, control->width());
    ExpectTwips("height", row.height, control->height());

    const bool button = qobject_cast<QAbstractButton*>(control) != nullptr;
    const QPalette& colours = control->palette();
    if (row.back != 0) {
        EXPECT_EQ(colours.color(button ? QPalette::Button : QPalette::Window).rgb(), row.back);
    }
    EXPECT_EQ(colours.color(button ? QPalette::ButtonText : QPalette::WindowText).rgb(), row.text);

    const QFont font = control->font();
    EXPECT_EQ(font.family(), "Times New Roman");
    EXPECT_EQ(font.pixelSize(), qRound(row.points * 96 / 72)) << row.points << " pt";
    EXPECT_EQ(font.bold(), row.bold);
    EXPECT_EQ(font.italic(), row.italic);
    EXPECT_EQ(font.underline(), row.underline);

    EXPECT_EQ(CaptionOf(*control), row.caption);
    EXPECT_EQ(control->toolTip(), row.toolTip);
}

INSTANTIATE_TEST_SUITE_P(Table, ControlDesignTest, ::testing::ValuesIn(Rows),
                         [](const auto& info) { return std::string(info.param.name); });

// The surface, the status bar and the strokes that are no row of the table.
TEST(TableDesignTest, SurfaceStatusBarLinesAndOutlines) {
    QWidget* surface = DesignTable().Surface();
    ExpectTwips("client width", 12885, surface->width());
    EXPECT_EQ(surface->palette().color(QPalette::Window).rgb(), qRgb(0, 64, 64));
    QWidget* statusBar = FindControl(DesignTable(), "StatusBar1");
    ASSERT_NE(statusBar, nullptr);
    ExpectTwips("client height", 12180, surface->height() + statusBar->height());
    ExpectTwips("status bar top", 11685, statusBar->y());
    ExpectTwips("status bar height", 495, statusBar->height());
    const std::tuple<const char*, const char*, QRgb> strokes[] = {
        {"Line3", "TableSurface", qRgb(255, 128, 128)},
        {"Line2", "Frame1", Black},
        {"Line1", "FrameTricks", Black},
        {"Shape6", "FramDeclare", qRgb(255, 0, 0)},
        {"Shape4", "FramMarriage", qRgb(255, 0, 0)}};
    for (const auto& [name, container, colour] : strokes) {
        QWidget* control = FindControl(DesignTable(), name);
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(control->parentWidget()->objectName(), container) << name;
        EXPECT_EQ(control->palette().color(QPalette::WindowText).rgb(), colour) << name;
        // Drawn below the buttons and labels of the same panel.
        EXPECT_EQ(control->parentWidget()->children().indexOf(control), 0) << name;
    }
    QWidget* outline = FindControl(DesignTable(), "Shape6");
    ExpectTwips("Shape6 left", 360, outline->x());
    ExpectTwips("Shape6 width", 4296, outline->width());
    ExpectTwips("Shape6 height", 2016, outline->height());
}

}  // namespace

}  // namespace trickhaven
