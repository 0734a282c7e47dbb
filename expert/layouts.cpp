#include "expert/layouts.h"

#include <array>

namespace trickhaven::expert {

std::uint64_t LayoutRandom::Next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ULL);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
}

int LayoutRandom::Below(int bound) {
    return static_cast<int>((Next() >> 32) * static_cast<std::uint64_t>(bound) >> 32);
}

CardSet UnseenCards(const SeatView& view) {
    CardSet seen = view.ownHand | view.otherKnown | view.played;
    if (!view.upTaken) seen |= CardBit(view.upCard);
    if (view.lastStockCard != 0 && !view.upTaken) seen |= CardBit(view.lastStockCard);
    return kAllCards & ~seen;
}

std::uint64_t ViewSeed(const SeatView& v) {
    std::uint64_t hash = 0xCBF29CE484222325ULL;
    auto mix = [&hash](std::uint64_t word) { hash = (hash ^ word) * 0x100000001B3ULL; };
    for (const std::uint64_t word :
         {v.ownHand, v.otherKnown, v.played, v.marks.run, v.marks.marriage, v.marks.fours,
          v.marks.pinochle, v.marks.doublePinochle, v.marks.dixBlocked}) {
        mix(word);
    }
    for (const int number : {v.side,
                             v.otherCount,
                             v.trump,
                             v.upCard,
                             static_cast<int>(v.upTaken),
                             v.stockLeft,
                             v.lastStockCard,
                             static_cast<int>(v.stage),
                             v.tricksDone,
                             v.leader,
                             v.led,
                             v.melds[0],
                             v.melds[1],
                             v.tricks[0],
                             v.tricks[1],
                             v.totals[0],
                             v.totals[1],
                             v.target,
                             static_cast<int>(v.pinochleMade[0]),
                             static_cast<int>(v.pinochleMade[1]),
                             static_cast<int>(v.doubleMade[0]),
                             static_cast<int>(v.doubleMade[1])}) {
        mix(static_cast<std::uint64_t>(number));
    }
    return hash;
}

HandState SampleLayout(const SeatView& v, LayoutRandom& random) {
    HandState s;
    s.stage = v.stage;
    s.trump = v.trump;
    s.upCard = v.upCard;
    s.upTaken = v.upTaken;
    s.marks = v.marks;
    s.pinochleMade = v.pinochleMade;
    s.doubleMade = v.doubleMade;
    s.tricksDone = v.tricksDone;
    s.leader = v.leader;
    s.led = v.led;
    s.melds = v.melds;
    s.tricks = v.tricks;
    s.totals = v.totals;
    s.target = v.target;
    s.hands[v.side] = v.ownHand;
    // A partial shuffle of the unseen cards, taken in index order: the
    // first ones fill the other hand, the rest make the stock.
    std::array<std::uint8_t, CardCount> unseen{};
    int count = 0;
    for (CardSet rest = UnseenCards(v); rest != kNoCards;) {
        unseen[static_cast<std::size_t>(count++)] = static_cast<std::uint8_t>(PopCard(rest));
    }
    for (int i = 0; i < count - 1; ++i) {
        const int j = i + random.Below(count - i);
        std::swap(unseen[static_cast<std::size_t>(i)], unseen[static_cast<std::size_t>(j)]);
    }
    const int hidden = v.otherCount - CardsIn(v.otherKnown);
    CardSet other = v.otherKnown;
    for (int i = 0; i < hidden && i < count; ++i)
        other |= CardBit(unseen[static_cast<std::size_t>(i)]);
    s.hands[OtherSide(v.side)] = other;
    int stock = 0;
    if (v.lastStockCard != 0 && !v.upTaken) {
        s.stock[static_cast<std::size_t>(stock++)] = static_cast<std::uint8_t>(v.lastStockCard);
    }
    for (int i = hidden; i < count && stock < static_cast<int>(s.stock.size()); ++i) {
        s.stock[static_cast<std::size_t>(stock++)] = unseen[static_cast<std::size_t>(i)];
    }
    s.stockCount = stock;
    return s;
}

}  // namespace trickhaven::expert
