// The table told again on demand: a player who cannot see it presses a
// plain letter and hears what a glance would show him, the trick, the
// scores, the trumps with the up card and the stock, the meld rows, or the
// last thing told. Asking changes nothing in the game.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "game/game_state.h"
#include "game/table_keys.h"

namespace trickhaven {

enum class ReviewKind {
    Trick,   // T: the trick on the table, else the last trick and its taker
    Points,  // P: both totals, this hand's tricks and melds, the target
    UpCard,  // U: the trumps, the up card, the stock
    Melds,   // M: the meld rows of each side
    Again,   // L: the last thing told, repeated
};

// The letter that asks for each, either case; none is K or a letter that a
// caption of the table, its panels or its messages marks.
std::optional<ReviewKind> ReviewOfLetter(char letter);
inline constexpr const char* ReviewLetters = "TPUML";

class TableReview {
public:
    // A step of play, to keep the trick on the table and the last one.
    void Hear(const Game& g, const PlayLogEvent& event);
    // What is told for a key: from the game and the cards as the table
    // shows them, and the last text the talk handed out.
    std::string Tell(ReviewKind kind, const Game& g, const TableSight& sight,
                     const std::string& lastTold) const;

private:
    struct Trick {
        std::vector<std::pair<int, int>> cards;  // who, card, in the order played
        int number = 0;                          // the hand's trick count
        int winner = 0;                          // 0 while it is being played
        int points = 0;
    };
    std::string TellTrick(const Game& g) const;

    // The trick last played to.
    Trick latest_;
};

}  // namespace trickhaven
