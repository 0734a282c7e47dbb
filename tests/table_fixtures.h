// Tables laid by hand for the tests: every card in the stock, then the
// named cards in the named places.
#pragma once

#include <initializer_list>

#include "game/card_table.h"
#include "game/game_state.h"
#include "game/hand_setup.h"

namespace trickhaven {

// A fresh table: names, values and suits written, every card in the stock
// with no flag.
inline void ClearTable(Game& g) {
    LoadCardTable(g);
    for (int card = 1; card <= CardCount; ++card) {
        Card(g, card).Place = PlaceStock;
        ClearCardFlags(Card(g, card));
    }
}

inline void PlaceCards(Game& g, int place, std::initializer_list<int> cards) {
    for (const int card : cards) {
        Card(g, card).Place = place;
    }
}

// Card indices by rank and suit: the first copy; the second is one more.
inline constexpr int CardIndex(int value, int suit) { return (suit - 1) * 12 + (Ace - value) * 2 + 1; }

}  // namespace trickhaven
