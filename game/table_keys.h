// The keyboard of the table and of the message box: which cards and buttons
// a key can reach, in which order, and which click each key stands for. The
// window and the headless table both press keys through these rules, so a
// key is always the click it stands for and goes down the click's road.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "forms/table_view.h"
#include "game/game_state.h"

namespace trickhaven {

enum class TableKey {
    Left,
    Right,
    Home,
    End,
    Enter,  // Return and the keypad's Enter alike
    Space,
    Tab,
    BackTab,
    Escape,
    Knock,      // K
    AltLetter,  // Alt with a letter, the letter in KeyPress::letter
};

struct KeyPress {
    TableKey key;
    char letter = 0;
};

// A card picture as the table shows it; the pictures' state lives in the
// view, not in the card table.
struct CardSight {
    int left = 0;
    int top = 0;
    bool shown = false;
    bool faceUp = false;
};
using TableSight = std::array<CardSight, CardCount + 1>;

// The cards of the hand that a click could play, in the order the keys walk
// them: the hand's row from left to right, then the player's meld rows, top
// row first, each from left to right. A melded card stays in the hand and
// stays playable by a click until the melds are taken back, so the keys
// must reach it too.
std::vector<int> HandChain(const Game& g, const TableSight& sight);

// The focus among the hand's cards. The position is kept when the card
// goes, so that the focus lands on the card that takes its place.
struct HandFocus {
    int card = 0;  // 0: the hand has no card to focus
    std::size_t position = 0;
    // Whether a key has walked or played the hand since it was dealt.
    bool walked = false;
};

// After the hand changed (a card played, drawn, sorted or melded): the
// focused card keeps the focus while it is in the chain; else the card now
// at its position, else the last one. A hand that no key has walked since
// it came in has the focus on its first card, however the cards are sorted,
// once it is dealt; while its cards are coming in, the focus stays put.
void FollowHand(HandFocus& focus, const std::vector<int>& chain, bool dealt = true);

// Left and Right step without wrapping; Home and End go to the ends. False
// for other keys.
bool MoveHandFocus(HandFocus& focus, const std::vector<int>& chain, TableKey key);

// The places Tab stops at, in Tab's order. Each but the hand is one control
// of the table with its click.
enum class TableStop {
    Hand,
    Sort,
    Knock,
    DoublePinochle,
    Pinochle,
    Run,
    FourAces,
    FourKings,
    FourQueens,
    FourJacks,
    Dix,
    MakeMarriage,
    Cancel,
    MarriageDiamonds,
    MarriageClubs,
    MarriageHearts,
    MarriageSpades,
    ReminderOk,
};
inline constexpr int TableStopCount = static_cast<int>(TableStop::ReminderOk) + 1;

// The object name of a stop's control ("CmdSort", "CmdFours3"); empty for
// the hand.
const char* StopControlName(TableStop stop);
// What a click on the stop's control hands to the logic.
TableEvent StopClick(TableStop stop);
// Whether the stop can be reached now: its control or its panel is shown,
// and the hand has a card to focus.
bool StopShown(const TableView& view, TableStop stop, bool handHasCard);
// The next shown stop after `from` (Tab) or before it (BackTab), round the
// table; `from` itself when nothing else is shown.
TableStop NextStop(const TableView& view, TableStop from, bool forward, bool handHasCard);

// Where the keyboard stands on the table.
struct TableFocus {
    TableStop stop = TableStop::Hand;
    HandFocus hand;
    // The panels seen up when the focus last followed the table: the meld
    // offer, the marriage panel, the meld reminder.
    std::array<bool, 3> panelsUp{};
};

// Brings the focus up to date with the table: the hand is followed, a
// panel that has come up takes the focus on its first button, and a stop
// whose control has gone gives the focus back to the hand.
void FollowTable(TableFocus& focus, const Game& g, const TableSight& sight);

// A key pressed on the table: moves the focus and gives the click the key
// stands for, if any. Enter and Space click the focused card or control;
// K knocks while "Knock?" is shown, wherever the focus is, as a click can
// only hit the label while it shows. Escape closes the meld reminder with
// its O.K, else takes "Cancel and Take Card" while the meld offer is up.
std::optional<TableEvent> PressTableKey(TableFocus& focus, const Game& g, const TableSight& sight,
                                        KeyPress key);

// The message box. Its focus starts on button 0, the default.
struct MessageFocus {
    int button = 0;
};

// The button whose caption answers no or takes something back ("No",
// "No Continue", "Carry On", "Cancel ..."), if one does.
std::optional<int> RefusingButton(const std::array<std::string, 3>& captions);
// The letter that a caption marks with "&" ("C&ancel" marks a), or 0.
char MarkedLetter(const std::string& caption);

// A key pressed in the message box: the index of the button it clicks, if
// any. Enter and Space click the focused button, Tab and BackTab move
// among the shown buttons round the box, Escape clicks the refusing
// button, Alt with a letter the button whose caption marks it.
std::optional<int> PressMessageKey(MessageFocus& focus, const std::array<std::string, 3>& captions,
                                   KeyPress key);

}  // namespace trickhaven
