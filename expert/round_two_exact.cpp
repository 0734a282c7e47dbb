#include "expert/round_two_exact.h"

#include <algorithm>
#include <unordered_map>

namespace trickhaven::expert {

namespace {

struct Position {
    CardSet toPlay;
    CardSet other;
    int led;
};

struct HandsKey {
    CardSet toPlay;
    CardSet other;
    bool operator==(const HandsKey&) const = default;
};

struct HandsHash {
    std::size_t operator()(const HandsKey& key) const {
        return static_cast<std::size_t>((key.toPlay * 0x9E3779B97F4A7C15ULL) ^ key.other);
    }
};

struct Bound {
    std::int16_t lower;
    std::int16_t upper;
};

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
        const HandsKey key{p.toPlay, p.other};
        if (p.led == 0) {
            if (const auto found = table_.find(key); found != table_.end()) {
                if (found->second.lower >= beta) return found->second.lower;
                if (found->second.upper <= alpha) return found->second.upper;
                alpha = std::max<int>(alpha, found->second.lower);
                beta = std::min<int>(beta, found->second.upper);
            }
        }
        const int alphaIn = alpha;
        int best = -1;
        for (CardSet moves = Moves(p); moves != kNoCards;) {
            const int card = PopCard(moves);
            // The twin of a card just tried plays the same.
            moves &= ~RankCards(SuitOf(card), RankIndexOf(card));
            const int value = Child(p, card, remaining, alpha, beta);
            if (value > best) best = value;
            if (best > alpha) alpha = best;
            if (alpha >= beta) break;
        }
        if (p.led == 0) {
            Bound& bound = table_.try_emplace(key, Bound{0, 1000}).first->second;
            if (best <= alphaIn) {
                bound.upper = static_cast<std::int16_t>(best);
            } else if (best >= beta) {
                bound.lower = static_cast<std::int16_t>(best);
            } else {
                bound = {static_cast<std::int16_t>(best), static_cast<std::int16_t>(best)};
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

    CardSet Moves(const Position& p) const {
        if (p.led == 0) return p.toPlay;
        if (const CardSet suit = p.toPlay & SuitCards(SuitOf(p.led)); suit != kNoCards) return suit;
        if (const CardSet trumps = p.toPlay & SuitCards(trump_); trumps != kNoCards) return trumps;
        return p.toPlay;
    }

private:
    int trump_;
    std::unordered_map<HandsKey, Bound, HandsHash> table_;
};

}  // namespace

RoundTwoAnswer BestRoundTwoCard(const HandState& s) {
    const int side = SideToAct(s);
    const Position p{s.hands[side], s.hands[OtherSide(side)], s.led};
    const int remaining = PointsIn(p.toPlay | p.other) + (s.led != 0 ? CardPoints(s.led) : 0);
    Search search(s.trump);
    RoundTwoAnswer answer;
    answer.points = -1;
    for (CardSet moves = search.Moves(p); moves != kNoCards;) {
        const int card = PopCard(moves);
        moves &= ~RankCards(SuitOf(card), RankIndexOf(card));
        const int value = search.Child(p, card, remaining, answer.points, remaining + 1);
        if (value > answer.points) answer = {card, value};
    }
    return answer;
}

}  // namespace trickhaven::expert
