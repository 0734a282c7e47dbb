// Round Two played out exactly. Both hands are known to both sides by then,
// so the last tricks are a game of perfect information: a search over them
// with a table of positions seen gives what each card is worth.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "expert/card_set.h"

namespace trickhaven::expert {

// The cards a side may play in Round Two: any card when it leads (ledCard 0);
// else the suit led if it holds any, else a trump if it holds any, else any.
CardSet RoundTwoLegalCards(CardSet hand, int ledCard, int trumpSuit);

// True when the card played to a trick takes it: higher in the suit led (of
// two equal cards the one led wins), or a trump on a card of another suit.
bool FollowerTakesTrick(int ledCard, int followCard, int trumpSuit);

// Points of a card in a trick: Ace 11, Ten 10, King 4, Queen 3, Jack 2, Nine 0.
int CardPointsOf(int card);

// The trick points of a set of cards.
int PointsIn(CardSet cards);

struct RoundTwoPosition {
    std::array<CardSet, 2> hands{};
    int trumpSuit = 0;
    int toMove = 0;
    // The card the other side has led to this trick; 0 when toMove leads.
    int ledCard = 0;
};

// What each card of the side to move takes from here to the end of the hand
// (the card already led counts) when both sides play their best after it.
struct CardValues {
    CardSet cards = kNoCards;  // the cards it may play
    std::array<std::int16_t, CardCount + 1> points{};
};

// The search keeps its table of positions between calls, across positions
// and deals alike: a position's value never changes. Clear() frees it of
// them all.
class RoundTwoSearch {
public:
    // The table holds 2^tableBits positions of 16 bytes each: 1 MB by default.
    explicit RoundTwoSearch(int tableBits = 16);

    // The trick points side toMove takes from here under best play of both.
    int Value(const RoundTwoPosition& position);
    CardValues ValuesOfCards(const RoundTwoPosition& position);
    // The card of highest value; of equal values the one worth fewest points,
    // then the first in the card table.
    int BestCard(const RoundTwoPosition& position);

    void Clear();
    // The steps searched since construction: each lead and each answer.
    std::int64_t Nodes() const { return nodes_; }

private:
    // Sixteen bytes: hands of 48 cards, points up to 240.
    struct Entry {
        CardSet leadKey : 56 = kNoCards;  // the leader's hand with the trumps above it
        CardSet bestCard : 8 = 0;
        CardSet follow : 48 = kNoCards;
        CardSet lower : 8 = 0;
        CardSet upper : 8 = 0;
    };

    // Points the leader takes from a trick's start; points is what the two
    // hands hold between them.
    int Lead(CardSet lead, CardSet follow, int points, int alpha, int beta);
    int LastTricks(CardSet lead, CardSet follow, int points) const;
    // Points the follower takes, the card led counted in points.
    int Follow(CardSet lead, CardSet follow, int ledCard, int points, int alpha, int beta);
    // The value of one card for the side to move, searched within (alpha, beta).
    int CardValue(const RoundTwoPosition& position, int card, int points, int alpha, int beta);
    Entry& Slot(CardSet leadKey, CardSet follow);

    std::vector<Entry> table_;
    int shift_;
    int trumpSuit_ = 0;
    std::int64_t nodes_ = 0;
};

}  // namespace trickhaven::expert
