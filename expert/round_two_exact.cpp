#include "expert/round_two_exact.h"

#include <algorithm>
#include <array>
#include <vector>

namespace trickhaven::expert {

namespace {

struct Position {
    CardSet toPlay;
    CardSet other;
    int led;
};

struct Ordered {
    std::array<int, 12> cards{};
    int count = 0;
};

// What is known of a position at the start of a trick: bounds on its
// value, in a table indexed by a hash of both hands.
struct Bound {
    CardSet toPlay = kNoCards;
    CardSet other = kNoCards;
    std::int16_t lower = 0;
    std::int16_t upper = 1000;
    // The lead that settled it, tried first when the position comes again.
    int bestLead = 0;
};

constexpr std::size_t kTableBits = 16;

int PointsIn(CardSet set) {
    int points = 0;
    for (CardSet rest = set; rest != kNoCards;) points += CardPoints(PopCard(rest));
    return points;
}

class Search {
public:
    explicit Search(int trump) : trump_(trump) {}

    // The points the side to play takes from the cards still out (the card
    // led among them), within the window (alpha, beta).
    int Value(const Position& p, int remaining, int alpha, int beta) {
        if (p.toPlay == kNoCards) return 0;
        int firstTry = 0;
        if (const Bound& known = table_[Slot(p)];
            p.led == 0 && known.toPlay == p.toPlay && known.other == p.other) {
            if (known.lower >= beta || known.lower == known.upper) return known.lower;
            if (known.upper <= alpha) return known.upper;
            alpha = std::max<int>(alpha, known.lower);
            beta = std::min<int>(beta, known.upper);
            firstTry = known.bestLead;
        }
        const int alphaIn = alpha;
        int best = -1;
        int bestCard = 0;
        const Ordered moves = OrderedMoves(p, firstTry);
        for (int i = 0; i < moves.count; ++i) {
            const int card = moves.cards[static_cast<std::size_t>(i)];
            const int value = Child(p, card, remaining, alpha, beta);
            if (value > best) {
                best = value;
                bestCard = card;
            }
            if (best > alpha) alpha = best;
            if (alpha >= beta) break;
        }
        if (p.led == 0) {
            Bound& bound = table_[Slot(p)];
            if (bound.toPlay != p.toPlay || bound.other != p.other) bound = {p.toPlay, p.other};
            bound.bestLead = bestCard;
            if (best <= alphaIn) {
                bound.upper = static_cast<std::int16_t>(best);
            } else if (best >= beta) {
                bound.lower = static_cast<std::int16_t>(best);
            } else {
                bound.lower = static_cast<std::int16_t>(best);
                bound.upper = bound.lower;
            }
        }
        return best;
    }

    int Child(const Position& p, int card, int remaining, int alpha, int beta) {
        const CardSet hand = p.toPlay & ~CardBit(card);
        if (p.led == 0) {
            return remaining -
                   Value({p.other, hand, card}, remaining, remaining - beta, remaining - alpha);
        }
        const int trick = CardPoints(p.led) + CardPoints(card);
        const int rest = remaining - trick;
        if (FollowerWins(p.led, card, trump_)) {
            return trick + Value({hand, p.other, 0}, rest, alpha - trick, beta - trick);
        }
        return rest - Value({p.other, hand, 0}, rest, rest - beta, rest - alpha);
    }

    // The cards worth trying, the likely best first: a lead by its rank,
    // Aces first; a follow that wins before one that loses, the loser
    // cheapest first. Of two like cards one is tried, the other plays
    // the same. A card named first goes before them all.
    Ordered OrderedMoves(const Position& p, int first = 0) const {
        const CardSet moves = Moves(p);
        CardSet winners = moves;
        if (p.led != 0) {
            winners = kNoCards;
            for (CardSet rest = moves; rest != kNoCards;) {
                const int card = PopCard(rest);
                if (FollowerWins(p.led, card, trump_)) winners |= CardBit(card);
            }
        }
        Ordered ordered;
        if (first != 0) ordered.cards[static_cast<std::size_t>(ordered.count++)] = first;
        auto add = [&ordered, first](CardSet set, int rank) {
            for (int suit = Diamonds; suit <= Spades; ++suit) {
                const CardSet twins = set & RankCards(suit, rank);
                if (twins != kNoCards && (first == 0 || (twins & CardBit(first)) == kNoCards)) {
                    ordered.cards[static_cast<std::size_t>(ordered.count++)] = FirstCard(twins);
                }
            }
        };
        for (int rank = 0; rank < 6; ++rank) add(winners, rank);
        for (int rank = 5; rank >= 0; --rank) add(moves & ~winners, rank);
        return ordered;
    }

    CardSet Moves(const Position& p) const {
        if (p.led == 0) return p.toPlay;
        if (const CardSet suit = p.toPlay & SuitCards(SuitOf(p.led)); suit != kNoCards) return suit;
        if (const CardSet trumps = p.toPlay & SuitCards(trump_); trumps != kNoCards) return trumps;
        return p.toPlay;
    }

private:
    int trump_;
    static std::size_t Slot(const Position& p) {
        const std::uint64_t hash =
            (p.toPlay * 0x9E3779B97F4A7C15ULL) ^ (p.other * 0xC2B2AE3D27D4EB4FULL);
        return static_cast<std::size_t>(hash >> (64 - kTableBits));
    }

    std::vector<Bound> table_ = std::vector<Bound>(std::size_t{1} << kTableBits);
};

}  // namespace

RoundTwoAnswer BestRoundTwoCard(const HandState& s) {
    const int side = SideToAct(s);
    const Position p{s.hands[side], s.hands[OtherSide(side)], s.led};
    const int remaining = PointsIn(p.toPlay | p.other) + (s.led != 0 ? CardPoints(s.led) : 0);
    Search search(s.trump);
    // The value is closed in by tests of one point's width, each starting
    // from what the last one found, the table carrying what they learnt;
    // then the first card that reaches it is the answer.
    int lower = 0;
    int upper = remaining;
    int guess = remaining / 2;
    while (lower < upper) {
        const int beta = guess == lower ? guess + 1 : guess;
        guess = search.Value(p, remaining, beta - 1, beta);
        (guess < beta ? upper : lower) = guess;
    }
    const Ordered moves = search.OrderedMoves(p);
    for (int i = 0; i < moves.count; ++i) {
        const int card = moves.cards[static_cast<std::size_t>(i)];
        if (search.Child(p, card, remaining, lower - 1, lower) >= lower) return {card, lower};
    }
    return {moves.cards[0], lower};
}

}  // namespace trickhaven::expert
