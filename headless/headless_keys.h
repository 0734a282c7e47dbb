// Keys on the headless table: a focus kept as the window keeps it, and each
// key turned by the table's keyboard rules into the click it stands for.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "game/table_keys.h"
#include "game/table_review.h"
#include "headless/headless_table.h"

namespace trickhaven {

// The card pictures as the headless table holds them.
TableSight SightOf(const HeadlessTable& table);

class HeadlessKeyboard {
public:
    // A key pressed on the table: the click it stands for, if any.
    std::optional<TableEvent> Press(const Game& g, const HeadlessTable& table, KeyPress key);
    // The focus follows the hand whenever events are served, as the
    // window's does.
    void Follow(const Game& g, const HeadlessTable& table);
    // Presses what a player would to give this click: K for the knock;
    // else Tab to the control's stop, or to the hand and Home and Right
    // along it to the card, then Enter. Gives the click those keys gave,
    // and nothing when the keys cannot reach it (a card out of the hand).
    std::optional<TableEvent> PressToward(const Game& g, const HeadlessTable& table,
                                          const TableEvent& wanted);
    const TableFocus& Focus() const { return focus_; }
    // How often each key was pressed, by TableKey.
    std::array<long, static_cast<std::size_t>(TableKey::AltLetter) + 1> presses{};
    bool Used() const;

private:
    std::optional<TableEvent> Walk(const Game& g, const HeadlessTable& table,
                                   const TableEvent& wanted);

    TableFocus focus_;
};

// A plain letter pressed on the table: what the review tells for it, as the
// window speaks it, or nothing when the letter asks for no review.
std::optional<std::string> PressReview(const Game& g, const HeadlessTable& table,
                                       const TableReview& review, const std::string& lastTold,
                                       char letter);

// The keys a player presses in the message box for a button: Enter for the
// first, Escape for one that says no, else Tab to it and Space.
std::vector<KeyPress> KeysToAnswer(const MessageRecord& message, int button);

// The button that these keys, pressed in order in the message box, click.
// Keys after the answer are never pressed.
std::optional<int> AnswerByKeys(const MessageRecord& message, const std::vector<KeyPress>& keys);

}  // namespace trickhaven
