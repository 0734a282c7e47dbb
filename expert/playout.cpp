#include "expert/playout.h"

namespace trickhaven::expert {

namespace {

// A game won or lost outweighs any hand's points.
constexpr int kGameWorth = 400;

bool IsTrump(const HandState& s, int card) {
    return SuitOf(card) == s.trump;
}

bool MeldOpen(const HandState& s, int side) {
    for (int i = 0; i < kMeldChoices; ++i) {
        if (MeldPoints(s, side, MeldChoice(i)) > 0) return true;
    }
    return false;
}

// What a card is worth keeping: its points, its strength as a trump, and
// the melds it may still make with the cards beside it.
int KeepWorth(const HandState& s, int side, int card) {
    int worth = 2 * CardPointsOf(card);
    if (IsTrump(s, card)) worth += 12 + 2 * (5 - RankIndexOf(card));
    if (InRoundTwo(s)) return worth;
    const CardSet hand = s.hands[side];
    const int suit = SuitOf(card);
    const int rank = RankIndexOf(card);
    if (rank == 2 && (hand & RankCards(suit, 3) & ~s.marks.marriage) != kNoCards) worth += 6;
    if (rank == 3 && (hand & RankCards(suit, 2) & ~s.marks.marriage) != kNoCards) worth += 6;
    if ((card == 9 || card == 10) && (hand & RankCards(Spades, 3)) != kNoCards) worth += 6;
    if ((card == 43 || card == 44) && (hand & RankCards(Diamonds, 4)) != kNoCards) worth += 6;
    if (rank == 5 && IsTrump(s, card)) worth += 8;
    return worth;
}

int Cheapest(const HandState& s, int side, CardSet cards) {
    int best = 0;
    int bestWorth = 0;
    for (CardSet rest = cards; rest != kNoCards;) {
        const int card = PopCard(rest);
        const int worth = KeepWorth(s, side, card);
        if (best == 0 || worth < bestWorth) {
            best = card;
            bestWorth = worth;
        }
    }
    return best;
}

CardSet Winners(const HandState& s, CardSet cards) {
    CardSet winners = kNoCards;
    for (CardSet rest = cards; rest != kNoCards;) {
        const int card = PopCard(rest);
        if (FollowerTakesTrick(s.led, card, s.trump)) winners |= CardBit(card);
    }
    return winners;
}

// In Round Two a lead is safe when nothing the other side may answer beats
// it; the richest safe lead goes first.
int SafeLead(const HandState& s, int side) {
    const CardSet other = s.hands[OtherSide(side)];
    int best = 0;
    for (CardSet rest = s.hands[side]; rest != kNoCards;) {
        const int card = PopCard(rest);
        const int suit = SuitOf(card);
        const CardSet answers = (other & SuitCards(suit)) != kNoCards ? other & SuitCards(suit)
                                : (other & SuitCards(s.trump)) != kNoCards
                                    ? other & SuitCards(s.trump)
                                    : other;
        bool safe = true;
        for (CardSet a = answers; a != kNoCards && safe;)
            safe = !FollowerTakesTrick(card, PopCard(a), s.trump);
        if (safe && (best == 0 || CardPointsOf(card) > CardPointsOf(best))) best = card;
    }
    return best;
}

}  // namespace

int QuickCard(const HandState& s) {
    const int side = SideToAct(s);
    const CardSet playable = PlayableCards(s, side);
    if (s.led == 0) {
        if (InRoundTwo(s)) {
            if (const int safe = SafeLead(s, side); safe != 0) return safe;
        }
        return Cheapest(s, side, playable);
    }
    const CardSet winners = Winners(s, playable);
    if (winners != kNoCards) {
        const int winner = Cheapest(s, side, winners);
        const int gain = CardPointsOf(s.led) + CardPointsOf(winner);
        const bool meldWaits = !InRoundTwo(s) && MeldOpen(s, side);
        if (InRoundTwo(s) || gain >= 10 || (meldWaits && KeepWorth(s, side, winner) < 16)) {
            return winner;
        }
    }
    return Cheapest(s, side, playable);
}

Meld RichestMeld(const HandState& s) {
    Meld best;
    int bestPoints = 0;
    for (int i = 0; i < kMeldChoices; ++i) {
        const Meld meld = MeldChoice(i);
        const int points = MeldPoints(s, s.leader, meld);
        if (points > bestPoints) {
            best = meld;
            bestPoints = points;
        }
    }
    return best;
}

bool QuickTakesStockCard(const HandState& s) {
    auto strength = [&s](int card) { return (IsTrump(s, card) ? 10 : 0) + 5 - RankIndexOf(card); };
    return strength(LastStockCard(s)) > strength(s.upCard);
}

void PlayOut(HandState& s) {
    for (;;) {
        switch (s.stage) {
            case Stage::Card:
                PlayCard(s, QuickCard(s));
                break;
            case Stage::Meld:
            case Stage::LastMeld:
                MakeMeld(s, RichestMeld(s));
                break;
            case Stage::LastPair:
                ShareLastPair(s, QuickTakesStockCard(s));
                break;
            case Stage::Over:
                return;
        }
    }
}

int HandWorth(const HandState& s, int side) {
    const int other = OtherSide(side);
    int worth = s.melds[side] + s.tricks[side] - s.melds[other] - s.tricks[other];
    if (s.gameWinner == side) worth += kGameWorth;
    if (s.gameWinner == other) worth -= kGameWorth;
    return worth;
}

}  // namespace trickhaven::expert
