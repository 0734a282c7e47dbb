// The table form as a design: every control with its place in twips, its
// colours, font, caption and tool tip, the lines and outlines, the status bar
// panels and the menu tree. The form is built from these tables alone.
#pragma once

#include <optional>
#include <span>

#include "forms/table_view.h"

namespace trickhaven {

struct Rgb {
    int red = 0;
    int green = 0;
    int blue = 0;
};

// All fonts of the table are Times New Roman.
struct FontDesign {
    double points = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
};

struct TwipsBox {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

inline constexpr const char* TableFontFamily = "Times New Roman";
// What a control without a font of its own shows, as a fresh form would.
inline constexpr FontDesign TableFont{.points = 8.25};
inline constexpr Rgb TableBackground{0, 64, 64};
inline constexpr Rgb DesignBlack{0, 0, 0};
inline constexpr int TableClientWidth = 12885;
inline constexpr int TableClientHeight = 12180;

enum class ControlKind {
    Label,
    ClickLabel,  // a label that hands its click to the logic
    Button,      // a coloured button
    Panel,       // a frame with its caption in the top border
};

struct ControlDesign {
    const char* name = "";
    ControlKind kind = ControlKind::Label;
    const char* container = "";  // the panel it lies on; empty for the table
    TwipsBox place{};
    std::optional<Rgb> back{};
    std::optional<Rgb> text{};         // black where the design gives none
    std::optional<FontDesign> font{};  // the container's where none is given
    const char* caption = "";
    const char* toolTip = "";
    bool border = false;
    bool centred = false;
    bool widthFollowsText = false;
    bool visible = true;
    std::optional<TableEvent> click{};
};

// A line from (left, top) to (left + width, top + height), or a rectangle
// outline; the pen width is in pixels.
struct StrokeDesign {
    const char* name = "";
    const char* container = "";
    TwipsBox place{};
    int penWidth = 1;
    Rgb colour{};
    bool outline = false;
};

struct StatusPanelDesign {
    int width = 0;
    const char* text = "";
    const char* toolTip = "";
    // The widest text of fixed words the panel shows, in play or at design;
    // the running commentary with its names is none of them.
    const char* widest = "";
};

inline constexpr TwipsBox StatusBarPlace{0, 11685, 12885, 495};
inline constexpr FontDesign StatusBarFont{.points = 12, .bold = true};

enum class MenuCommand {
    DropDown,  // a top-level entry that only opens its items
    Event,     // hands its event to the logic
    Help,      // the rules pages, which touch nothing of the game
    About,
};

struct MenuDesign {
    const char* name = "";
    const char* caption = "";
    bool topLevel = false;
    const char* shortcut = "";
    MenuCommand command = MenuCommand::Event;
    TableEventKind event = TableEventKind::MenuNewGame;
    // One of a drop-down's entries that bear a check mark, one at a time.
    bool checkable = false;
};

// In creation order, containers before their contents; a later control lies
// on top of an earlier one.
std::span<const ControlDesign> TableControls();
std::span<const StrokeDesign> TableStrokes();
std::span<const StatusPanelDesign> StatusPanels();
// Top-level entries, each followed by its items: the design's menus, then
// the robot's.
std::span<const MenuDesign> TableMenu();

}  // namespace trickhaven
