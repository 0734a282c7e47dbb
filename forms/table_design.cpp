#include "forms/table_design.h"

#include <array>

#include "game/card_table.h"

namespace trickhaven {

namespace {

using K = ControlKind;
using E = TableEventKind;

constexpr Rgb NameBack{128, 0, 0};
constexpr Rgb NameText{255, 255, 192};
constexpr Rgb Olive{128, 128, 0};
constexpr Rgb MeldButtonBack{255, 224, 192};
constexpr Rgb Green{0, 192, 0};
constexpr Rgb FigureBack{192, 255, 192};
constexpr Rgb RobotPanelBack{255, 128, 128};
constexpr Rgb PlayerPanelBack{255, 192, 128};

constexpr FontDesign NameFont{.points = 14.25, .bold = true, .italic = true};
constexpr FontDesign DeclareFont{.points = 10.5, .bold = true, .underline = true};
constexpr FontDesign RowFont{.points = 9.75, .bold = true};
constexpr FontDesign RowNameFont{.points = 9.75, .bold = true, .underline = true};
constexpr FontDesign TotalFont{.points = 11.25, .bold = true, .underline = true};
constexpr FontDesign ReminderFont{.points = 10.5, .bold = true};

constexpr ControlDesign MeldButton(const char* name, TwipsBox place, const char* caption,
                                   const char* toolTip, TableEvent click) {
    return {.name = name,
            .kind = K::Button,
            .container = "FramDeclare",
            .place = place,
            .back = MeldButtonBack,
            .font = DeclareFont,
            .caption = caption,
            .toolTip = toolTip,
            .click = click};
}

constexpr ControlDesign MarriageButton(int suit, int top, const char* caption,
                                       const char* toolTip) {
    constexpr std::array<const char*, 5> names{"", "CmdMarriage1", "CmdMarriage2", "CmdMarriage3",
                                               "CmdMarriage4"};
    return {.name = names[static_cast<std::size_t>(suit)],
            .kind = K::Button,
            .container = "FramMarriage",
            .place = {360, top, 1995, 300},
            .back = MeldButtonBack,
            .font = RowNameFont,
            .caption = caption,
            .toolTip = toolTip,
            .click = TableEvent{E::MarriageClick, suit}};
}

constexpr ControlDesign RowLabel(const char* name, const char* panel, TwipsBox place, Rgb back,
                                 const char* caption, FontDesign font = RowFont) {
    return {.name = name,
            .container = panel,
            .place = place,
            .back = back,
            .font = font,
            .caption = caption,
            .centred = true};
}

constexpr ControlDesign Figure(const char* name, const char* panel, int top, const char* toolTip) {
    return {.name = name,
            .container = panel,
            .place = {1680, top, 615, 255},
            .back = FigureBack,
            .font = RowFont,
            .caption = "0",
            .toolTip = toolTip,
            .border = true,
            .centred = true};
}

constexpr ControlDesign Reminder(const char* name, TwipsBox place, const char* caption) {
    return {.name = name,
            .container = "FramMeldHelp",
            .place = place,
            .back = MeldButtonBack,
            .font = ReminderFont,
            .caption = caption,
            .border = true,
            .centred = true};
}

constexpr const char* LastTrickTip = "Your last trick score";
constexpr const char* TotalTricksTip = "Your current trick scores";
constexpr const char* LastMeldTip = "Last Meld Score Lorinda";
constexpr const char* TotalTip = "Total score Lorinda";

constexpr auto Controls = std::to_array<ControlDesign>({
    {.name = "LblBotsName",
     .place = {8880, 0, 1230, 390},
     .back = NameBack,
     .text = NameText,
     .font = NameFont,
     .caption = "Opponent",
     .border = true,
     .widthFollowsText = true},
    {.name = "LblPlayer0",
     .place = {600, 10200, 825, 390},
     .back = NameBack,
     .text = NameText,
     .font = NameFont,
     .caption = "Player",
     .border = true,
     .widthFollowsText = true},
    {.name = "LblStock",
     .place = {120, 1920, 855, 255},
     .back = Rgb{0, 64, 0},
     .text = Rgb{255, 255, 0},
     .font = FontDesign{.points = 9, .bold = true, .underline = true},
     .caption = "Stock",
     .centred = true},
    {.name = "LblKnock",
     .kind = K::ClickLabel,
     .place = {480, 9120, 1215, 375},
     .back = Rgb{255, 128, 0},
     .font = FontDesign{.points = 11.25, .bold = true},
     .caption = "Knock?",
     .border = true,
     .centred = true,
     .visible = false,
     .click = TableEvent{E::KnockClick}},
    {.name = "CmdSort",
     .kind = K::Button,
     .place = {480, 9720, 1332, 372},
     .back = Rgb{192, 192, 0},
     .font = FontDesign{.points = 12, .bold = true},
     .caption = "&Sort Same",
     .toolTip = "Click to change sorting",
     .visible = false,
     .click = TableEvent{E::SortClick}},

    // The robot's score panel, top right.
    {.name = "Frame1",
     .kind = K::Panel,
     .place = {10440, 120, 2415, 2520},
     .back = RobotPanelBack,
     .text = DesignBlack,
     .font = RowNameFont,
     .caption = "Current and Total  Scores"},
    {.name = "LblBName",
     .container = "Frame1",
     .place = {480, 240, 795, 225},
     .back = RobotPanelBack,
     .font = RowNameFont,
     .caption = "Opponent",
     .centred = true,
     .widthFollowsText = true},
    RowLabel("Label13", "Frame1", {480, 480, 1095, 255}, RobotPanelBack, "Last Trick:-"),
    RowLabel("Label10", "Frame1", {480, 840, 1215, 255}, RobotPanelBack, "Total Tricks:-"),
    RowLabel("Label11", "Frame1", {480, 1200, 1095, 255}, RobotPanelBack, "Last Meld:-"),
    RowLabel("Label6", "Frame1", {480, 1560, 1095, 255}, RobotPanelBack, "Total Melds:-"),
    RowLabel("Label3", "Frame1", {120, 2040, 1455, 255}, RobotPanelBack, "TOTAL SCORE", TotalFont),
    Figure("LblLastTrickC", "Frame1", 480, LastTrickTip),
    Figure("LblTotTricskC", "Frame1", 840, TotalTricksTip),
    Figure("LbllLastMeldC", "Frame1", 1200, LastMeldTip),
    Figure("LblTotMeldsC", "Frame1", 1560, TotalTip),
    Figure("LblTotScoreC", "Frame1", 2040, TotalTip),

    // The player's score panel, bottom right.
    {.name = "FrameTricks",
     .kind = K::Panel,
     .place = {10440, 9120, 2415, 2520},
     .back = PlayerPanelBack,
     .text = DesignBlack,
     .font = RowNameFont,
     .caption = "Current and Total  Scores"},
    {.name = "LblPname1",
     .container = "FrameTricks",
     .place = {600, 240, 555, 225},
     .back = PlayerPanelBack,
     .font = RowNameFont,
     .caption = "Player",
     .centred = true,
     .widthFollowsText = true},
    RowLabel("Label2", "FrameTricks", {480, 480, 1095, 255}, PlayerPanelBack, "Last Trick:-"),
    RowLabel("Label5", "FrameTricks", {480, 840, 1215, 255}, PlayerPanelBack, "Total Tricks:-"),
    RowLabel("LastMeld", "FrameTricks", {480, 1200, 1095, 255}, PlayerPanelBack, "Last Meld:-"),
    RowLabel("Label8", "FrameTricks", {480, 1560, 1095, 255}, PlayerPanelBack, "Total Melds:-"),
    RowLabel("LblTotal", "FrameTricks", {240, 2040, 1335, 255}, PlayerPanelBack, "TOTAL SCORE",
             TotalFont),
    Figure("LblLastTrickP", "FrameTricks", 480, LastTrickTip),
    Figure("LblTotTricksP", "FrameTricks", 840, TotalTricksTip),
    Figure("LblLastMeldP", "FrameTricks", 1200, LastMeldTip),
    Figure("LblTotalMeldsP", "FrameTricks", 1560, TotalTip),
    Figure("LblTotalScoreP", "FrameTricks", 2040, TotalTip),

    // The meld offer.
    {.name = "FramDeclare",
     .kind = K::Panel,
     .place = {3840, 0, 4965, 3015},
     .back = Olive,
     .text = Rgb{255, 255, 128},
     .font = DeclareFont,
     .caption = "Select a Declaration or Cancel to receive a card",
     .visible = false},
    MeldButton("CmdDBezique", {480, 480, 2052, 372}, "Double Pinochle",
               "Click here if you have a Double Pinochle", {E::DoublePinochleClick}),
    MeldButton("CmdBezique", {2520, 480, 2052, 372}, "Pinochle", "Click here to Meld  a Pinochle",
               {E::PinochleClick}),
    MeldButton("CmdSequence", {480, 840, 2052, 372}, "Run in Trumps",
               "Click here to Meld a Sequence", {E::RunClick}),
    {.name = "CmdFours3",
     .kind = K::Button,
     .container = "FramDeclare",
     .place = {2520, 840, 2052, 372},
     .back = MeldButtonBack,
     .font = FontDesign{.points = 11.25, .bold = true, .underline = true},
     .caption = "Four Aces",
     .toolTip = "Click here to Meld 4 Aces",
     .click = TableEvent{E::FoursClick, 3}},
    MeldButton("CmdFours0", {480, 1200, 2052, 372}, "Four Kings", "Click here to Meld 4 Kings",
               {E::FoursClick, 0}),
    MeldButton("CmdFours1", {2520, 1200, 2052, 372}, "Four Queens", "Click here to Meld 4 Queens",
               {E::FoursClick, 1}),
    MeldButton("CmdFours2", {480, 1560, 2052, 372}, "Four Jacks", "Click here to Meld 4 Jacks",
               {E::FoursClick, 2}),
    MeldButton("cmdDec7Trumps", {2520, 1560, 2052, 372}, "Dix- 9 Trumps",
               "Click here to Meld a 9 of Trumps", {E::DixClick}),
    MeldButton("CmdMakeMarriage4", {1440, 1920, 1950, 330}, "Make Marriage",
               "Click here to make a marriage", {E::MakeMarriageClick}),
    {.name = "CmdCancel",
     .kind = K::Button,
     .container = "FramDeclare",
     .place = {720, 2520, 3495, 384},
     .back = Green,
     .font = FontDesign{.points = 11.25, .bold = true},
     .caption = "C&ancel and Take Card",
     .click = TableEvent{E::CancelClick}},

    // The choice of a marriage's suit.
    {.name = "FramMarriage",
     .kind = K::Panel,
     .place = {4800, 120, 2775, 2205},
     .back = Olive,
     .text = Rgb{255, 255, 0},
     .font = FontDesign{.points = 8.25, .bold = true, .underline = true},
     .caption = "Select Marriage suit  to Make",
     .visible = false},
    MarriageButton(Diamonds, 480, "Diamonds", "Click here to declare Marriage in Diamonds"),
    MarriageButton(Clubs, 840, "Clubs", "Click here to declare Marriage in Clubs"),
    MarriageButton(Hearts, 1215, "Hearts", "Click here to declare Marriage in Hearts"),
    MarriageButton(Spades, 1560, "Spades", "Click here to declare Marriage in Spades"),

    // The meld reminder.
    {.name = "FramMeldHelp",
     .kind = K::Panel,
     .place = {3960, 120, 4575, 5052},
     .back = Olive,
     .text = Rgb{255, 255, 0},
     .caption = "Meld Quick Reminder",
     .visible = false},
    Reminder("LblDix", {120, 240, 4332, 612},
             "Dix - 9 of trumps swapped up card and melded. 10 points."),
    Reminder("Label1", {120, 840, 4332, 732},
             "Marriage - King and Queen of same suit. 40 points if trumps else 20 points each."),
    Reminder("Label4", {120, 1560, 4332, 612},
             "Single Pinochle - Queen  Spades -Jack Diamonds - 40 points."),
    Reminder("Label9", {120, 2160, 4332, 852},
             "Four cards same value but different suits - can be Aces at 100 points, Kings at 80 "
             "points, Queens at 60 points and Jacks at 40 points."),
    Reminder("Label12", {120, 3000, 4332, 612},
             "A run of Ace,Ten,King,Queen and Jack in Trumps - worth 150 points."),
    Reminder("Label7", {120, 3600, 4332, 732},
             "Double Pinochle - two Queen of Spades and two Jack of Diamonds - 500 points."),
    {.name = "Command1",
     .kind = K::Button,
     .container = "FramMeldHelp",
     .place = {1680, 4440, 1335, 375},
     .back = Green,
     .caption = "&O.K",
     .click = TableEvent{E::ReminderOkClick}},
});

constexpr Rgb Red{255, 0, 0};

constexpr auto Strokes = std::to_array<StrokeDesign>({
    {.name = "Line3", .place = {0, 6360, 12840, 0}, .penWidth = 3, .colour = {255, 128, 128}},
    {.name = "Line2", .container = "Frame1", .place = {0, 1920, 2400, 0}, .penWidth = 4},
    {.name = "Line1", .container = "FrameTricks", .place = {0, 1920, 2400, 0}, .penWidth = 4},
    {.name = "Shape6",
     .container = "FramDeclare",
     .place = {360, 360, 4296, 2016},
     .penWidth = 3,
     .colour = Red,
     .outline = true},
    {.name = "Shape4",
     .container = "FramMarriage",
     .place = {270, 360, 2175, 1635},
     .penWidth = 3,
     .colour = Red,
     .outline = true},
});

constexpr auto Panels = std::to_array<StatusPanelDesign>({
    {3000, "Trump", "Current Trumps", "Diamonds are Trumps"},
    {7000, "General Information", "General Information", "General Information"},
    {1440, "Tricks", "", "Tricks 24"},
    {1440, "Rounds", "", "Round 2"},
});

constexpr auto Menu = std::to_array<MenuDesign>({
    {.name = "MnuPlay", .caption = "Play - F2", .topLevel = true, .command = MenuCommand::DropDown},
    {.name = "MnuNew", .caption = "New Game", .shortcut = "F2", .event = E::MenuNewGame},
    {.name = "MnuExit", .caption = "Exit -CtrlX", .shortcut = "Ctrl+X", .event = E::MenuExit},
    {.name = "MnuHelp", .caption = "Help - F1", .topLevel = true, .command = MenuCommand::DropDown},
    {.name = "MnuRules",
     .caption = "Pinochle Rules",
     .shortcut = "F1",
     .command = MenuCommand::Help},
    {.name = "MnuNames",
     .caption = "Change Names",
     .topLevel = true,
     .command = MenuCommand::DropDown},
    {.name = "MnuYours", .caption = "Change your Name", .event = E::MenuYourName},
    {.name = "MnuTheirName", .caption = "Change Opponent Name", .event = E::MenuOpponentName},
    {.name = "MnuStats",
     .caption = "Statistics",
     .topLevel = true,
     .command = MenuCommand::DropDown},
    {.name = "MnuuView", .caption = "View Game Statisitics", .event = E::MenuViewStatistics},
    {.name = "MnuDelete", .caption = "Delete Statistics", .event = E::MenuDeleteStatistics},
    {.name = "MnuChange",
     .caption = "Change Target Score",
     .topLevel = true,
     .command = MenuCommand::DropDown},
    {.name = "Menu1000", .caption = "1000 - Normal", .event = E::MenuTarget1000},
    {.name = "MenuMedium", .caption = "750 ", .event = E::MenuTarget750},
    {.name = "MnuHalf", .caption = "500", .event = E::MenuTarget500},
    {.name = "MnuQuick", .caption = "300 - quick game", .event = E::MenuTarget300},
    {.name = "MnuReminder",
     .caption = "Melds Reminder",
     .topLevel = true,
     .event = E::MenuReminder},
    {.name = "MnuSpeed",
     .caption = "Select Speed",
     .topLevel = true,
     .command = MenuCommand::DropDown},
    {.name = "MnuFast", .caption = "Fast", .event = E::MenuFast},
    {.name = "MnuMedium", .caption = "Medium", .event = E::MenuMedium},
    {.name = "MnuSlow", .caption = "Slow", .event = E::MenuSlow},
    {.name = "MnuAbout", .caption = "&About", .topLevel = true, .command = MenuCommand::About},
    // Alt+R: no letter marked on the table or its panels.
    {.name = "MnuRobot", .caption = "&Robot", .topLevel = true, .command = MenuCommand::DropDown},
    {.name = "MnuClassic", .caption = "Classic", .event = E::MenuClassic, .checkable = true},
    {.name = "MnuExpert", .caption = "Expert", .event = E::MenuExpert, .checkable = true},
});

}  // namespace

std::span<const ControlDesign> TableControls() {
    return Controls;
}
std::span<const StrokeDesign> TableStrokes() {
    return Strokes;
}
std::span<const StatusPanelDesign> StatusPanels() {
    return Panels;
}
std::span<const MenuDesign> TableMenu() {
    return Menu;
}

}  // namespace trickhaven
