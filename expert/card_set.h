// Sets of cards in one machine word: bit (i - 1) stands for card i of the
// card table, so the twelve cards of a suit lie side by side, Ace first,
// each rank twice. The Expert's whole view of a hand is a few such words.
#pragma once

#include <bit>
#include <cstdint>

#include "game/card_table.h"

namespace trickhaven::expert {

using CardSet = std::uint64_t;

inline constexpr CardSet kNoCards = 0;
inline constexpr CardSet kAllCards = (CardSet{1} << CardCount) - 1;

constexpr CardSet CardBit(int card) { return CardSet{1} << (card - 1); }

constexpr bool Holds(CardSet set, int card) { return (set & CardBit(card)) != 0; }

constexpr int CardsIn(CardSet set) { return std::popcount(set); }

// The lowest card of a non-empty set; with PopCard, a walk over a set.
constexpr int FirstCard(CardSet set) { return std::countr_zero(set) + 1; }

constexpr int PopCard(CardSet& set) {
    const int card = FirstCard(set);
    set &= set - 1;
    return card;
}

constexpr int SuitOf(int card) { return (card - 1) / 12 + Diamonds; }

// Rank index 0 Ace, 1 Ten, 2 King, 3 Queen, 4 Jack, 5 Nine.
constexpr int RankIndexOf(int card) { return ((card - 1) % 12) / 2; }

// The value code of the card table: 14 Ace down to 9 Nine.
constexpr int ValueOf(int card) { return Ace - RankIndexOf(card); }

constexpr CardSet SuitCards(int suit) { return CardSet{0xFFF} << (12 * (suit - Diamonds)); }

// Both cards of one rank of one suit.
constexpr CardSet RankCards(int suit, int rankIndex) {
    return CardSet{3} << (12 * (suit - Diamonds) + 2 * rankIndex);
}

}  // namespace trickhaven::expert
