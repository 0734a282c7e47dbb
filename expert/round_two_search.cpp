#include "expert/round_two_search.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace trickhaven::expert {

namespace {

constexpr std::array<int, 6> kRankPoints{11, 10, 4, 3, 2, 0};

// The first copy of every card: the two copies of a card lie side by side.
constexpr CardSet kFirstCopies = 0x555555555555;

// Every copy of one rank, all four suits.
constexpr CardSet RankEverywhere(int rankIndex) {
    CardSet cards = kNoCards;
    for (int suit = Diamonds; suit <= Spades; ++suit) cards |= RankCards(suit, rankIndex);
    return cards;
}

// The two copies of a card play alike: one of them stands for both.
CardSet OneOfEachCopy(CardSet cards) {
    const CardSet twins = cards & (cards >> 1) & kFirstCopies;
    return cards & ~(twins << 1);
}

// Which copy of a card a hand holds does not matter, so a hand is kept in
// one form: a lone copy is always the first. (The hands are apart, so both
// may hold the first copy of one card.)
CardSet FirstCopiesFirst(CardSet hand) {
    const CardSet first = hand & kFirstCopies, second = (hand >> 1) & kFirstCopies;
    const CardSet both = first & second;
    return both | (both << 1) | (first ^ second);
}

// The cards of a suit that rank above a card: they lie before it.
CardSet HigherInSuit(int card) {
    const int firstCopy = card - ((card - 1) & 1);
    return SuitCards(SuitOf(card)) & (CardBit(firstCopy) - 1);
}

// The cards of the other hand that beat a card led to them, if played.
CardSet Beaters(int ledCard, CardSet other, int trumpSuit) {
    if (const CardSet suit = other & SuitCards(SuitOf(ledCard)))
        return suit & HigherInSuit(ledCard);
    return other & SuitCards(trumpSuit);
}

constexpr int LastCard(CardSet set) {
    return std::bit_width(set);
}

// Cards of one suit in one hand with no card of the other between them (nor
// one of their ranks) do alike against everything the other hand holds: only
// their points differ. Calls visit with each such run of cards.
//
// Two cards of a run can trade places between this trick and a later one
// without changing who takes either trick; playing the dearer now moves the
// difference of their points into this trick. That never costs when this
// trick is taken and never pays when it is lost, so one card of the run
// stands for all wherever it is known who takes the trick.
template <typename Visit>
void ForEachRun(CardSet cards, CardSet other, Visit visit) {
    while (cards != kNoCards) {
        int last = PopCard(cards);
        CardSet run = CardBit(last);
        while (cards != kNoCards) {
            const int next = FirstCard(cards);
            if (SuitOf(next) != SuitOf(last)) break;
            // From the first copy of the one to the second copy of the next.
            const CardSet between = (CardBit(next + next % 2) << 1) - CardBit(last - 1 + last % 2);
            if ((other & between) != kNoCards) break;
            run |= CardBit(PopCard(cards));
            last = next;
        }
        visit(run);
    }
}

// The leads worth trying. Of a run of cards that nothing can beat, the
// dearest; of one that every answer beats, the cheapest; else each card
// (the answer chooses who takes the trick, and with it which is better).
CardSet LeadsToTry(CardSet lead, CardSet follow, int trumpSuit) {
    CardSet leads = kNoCards;
    ForEachRun(lead, follow, [&](CardSet run) {
        const int top = FirstCard(run);
        const CardSet beaters = Beaters(top, follow, trumpSuit);
        leads |= beaters == kNoCards                                     ? CardBit(top)
                 : beaters == RoundTwoLegalCards(follow, top, trumpSuit) ? CardBit(LastCard(run))
                                                                         : OneOfEachCopy(run);
    });
    return leads;
}

// The answers worth trying: of a run that takes the trick, the dearest card;
// of one that loses it, the cheapest.
CardSet AnswersToTry(CardSet lead, CardSet follow, int ledCard, int trumpSuit) {
    CardSet answers = kNoCards;
    ForEachRun(
        RoundTwoLegalCards(follow, ledCard, trumpSuit), lead | CardBit(ledCard), [&](CardSet run) {
            const int top = FirstCard(run);
            answers |=
                FollowerTakesTrick(ledCard, top, trumpSuit) ? CardBit(top) : CardBit(LastCard(run));
        });
    return answers;
}

// Cards in the order they are tried; the best card of the table first.
struct Tries {
    std::array<std::pair<int, int>, 12> cards;  // rank for the order, card
    int count = 0;

    void Add(int rank, int card) {
        int at = count++;
        for (; at > 0 && cards[at - 1].first < rank; --at) cards[at] = cards[at - 1];
        cards[at] = {rank, card};
    }
};

}  // namespace

CardSet RoundTwoLegalCards(CardSet hand, int ledCard, int trumpSuit) {
    if (ledCard == 0) return hand;
    if (const CardSet suit = hand & SuitCards(SuitOf(ledCard))) return suit;
    if (const CardSet trumps = hand & SuitCards(trumpSuit)) return trumps;
    return hand;
}

bool FollowerTakesTrick(int ledCard, int followCard, int trumpSuit) {
    if (SuitOf(followCard) == SuitOf(ledCard))
        return RankIndexOf(followCard) < RankIndexOf(ledCard);
    return SuitOf(followCard) == trumpSuit;
}

int CardPointsOf(int card) {
    return kRankPoints[RankIndexOf(card)];
}

int PointsIn(CardSet cards) {
    static const std::array<CardSet, 5> ranks{RankEverywhere(0), RankEverywhere(1),
                                              RankEverywhere(2), RankEverywhere(3),
                                              RankEverywhere(4)};
    int points = 0;
    for (int rank = 0; rank < 5; ++rank) points += kRankPoints[rank] * CardsIn(cards & ranks[rank]);
    return points;
}

RoundTwoSearch::RoundTwoSearch(int tableBits)
    : table_(std::size_t{1} << tableBits), shift_(64 - tableBits) {}

void RoundTwoSearch::Clear() {
    std::fill(table_.begin(), table_.end(), Entry{});
}

RoundTwoSearch::Entry& RoundTwoSearch::Slot(CardSet leadKey, CardSet follow) {
    const CardSet mixed = (leadKey * 0x9E3779B97F4A7C15) ^ follow;
    return table_[(mixed * 0xC2B2AE3D27D4EB4F) >> shift_];
}

int RoundTwoSearch::Lead(CardSet lead, CardSet follow, int points, int alpha, int beta) {
    ++nodes_;
    if (lead == kNoCards) return 0;
    lead = FirstCopiesFirst(lead);
    follow = FirstCopiesFirst(follow);
    if (const CardSet rest = lead & (lead - 1); (rest & (rest - 1)) == kNoCards) {
        return LastTricks(lead, follow, points);
    }
    const CardSet leadKey = lead | (CardSet(trumpSuit_) << CardCount);
    Entry& entry = Slot(leadKey, follow);
    int lower = 0, upper = points, hint = 0;
    if (entry.leadKey == leadKey && entry.follow == follow) {
        lower = static_cast<int>(entry.lower);
        upper = static_cast<int>(entry.upper);
        hint = static_cast<int>(entry.bestCard);
    }
    if (lower >= beta || lower == upper) return lower;
    if (upper <= alpha) return upper;
    const int low = std::max(alpha, lower), high = std::min(beta, upper);

    Tries tries;
    for (CardSet cards = LeadsToTry(lead, follow, trumpSuit_); cards != kNoCards;) {
        const int card = PopCard(cards);
        // Cash the cards that cannot be beaten, dearest first; then lose the
        // cheapest.
        const bool beaten = Beaters(card, follow, trumpSuit_) != kNoCards;
        const int order = card == hint ? 1000
                          : beaten     ? 50 - CardPointsOf(card)
                                       : 100 + CardPointsOf(card);
        tries.Add(order, card);
    }

    int best = -1, bestCard = 0, a = low;
    for (int i = 0; i < tries.count && a < high; ++i) {
        const int card = tries.cards[i].second;
        const int value =
            points - Follow(lead & ~CardBit(card), follow, card, points, points - high, points - a);
        if (value > best) {
            best = value;
            bestCard = card;
            a = std::max(a, value);
        }
    }

    if (entry.leadKey != leadKey || entry.follow != follow) {
        entry = Entry{leadKey, 0, follow, 0, static_cast<CardSet>(points)};
    }
    if (best > low) entry.lower = static_cast<CardSet>(std::max(lower, best));
    if (best < high) entry.upper = static_cast<CardSet>(std::min(upper, best));
    entry.bestCard = static_cast<CardSet>(bestCard);
    return best;
}

// The last trick or two, played out without the table.
int RoundTwoSearch::LastTricks(CardSet lead, CardSet follow, int points) const {
    if ((lead & (lead - 1)) == kNoCards) {
        return FollowerTakesTrick(FirstCard(lead), FirstCard(follow), trumpSuit_) ? 0 : points;
    }
    int best = 0;
    for (CardSet leads = lead; leads != kNoCards;) {
        const int led = PopCard(leads);
        const CardSet leadRest = lead & ~CardBit(led);
        int worst = points;
        for (CardSet answers = RoundTwoLegalCards(follow, led, trumpSuit_); answers != kNoCards;) {
            const int answer = PopCard(answers);
            const CardSet followRest = follow & ~CardBit(answer);
            const int trick = CardPointsOf(led) + CardPointsOf(answer);
            const int after = points - trick;
            worst = std::min(worst, FollowerTakesTrick(led, answer, trumpSuit_)
                                        ? after - LastTricks(followRest, leadRest, after)
                                        : trick + LastTricks(leadRest, followRest, after));
        }
        best = std::max(best, worst);
    }
    return best;
}

int RoundTwoSearch::Follow(CardSet lead, CardSet follow, int ledCard, int points, int alpha,
                           int beta) {
    ++nodes_;
    Tries tries;
    for (CardSet cards = AnswersToTry(lead, follow, ledCard, trumpSuit_); cards != kNoCards;) {
        const int card = PopCard(cards);
        // Take the trick with the dearest card; else give the cheapest.
        tries.Add(FollowerTakesTrick(ledCard, card, trumpSuit_) ? 100 + CardPointsOf(card)
                                                                : 50 - CardPointsOf(card),
                  card);
    }

    int best = -1;
    for (int i = 0; i < tries.count && alpha < beta; ++i) {
        const int card = tries.cards[i].second;
        const CardSet rest = follow & ~CardBit(card);
        const int trick = CardPointsOf(ledCard) + CardPointsOf(card);
        const int after = points - trick;
        const int value = FollowerTakesTrick(ledCard, card, trumpSuit_)
                              ? trick + Lead(rest, lead, after, alpha - trick, beta - trick)
                              : after - Lead(lead, rest, after, after - beta, after - alpha);
        best = std::max(best, value);
        alpha = std::max(alpha, value);
    }
    return best;
}

int RoundTwoSearch::CardValue(const RoundTwoPosition& position, int card, int points, int alpha,
                              int beta) {
    trumpSuit_ = position.trumpSuit;
    const CardSet own = position.hands[position.toMove] & ~CardBit(card);
    const CardSet other = position.hands[1 - position.toMove];
    if (position.ledCard == 0) {
        return points - Follow(own, other, card, points, points - beta, points - alpha);
    }
    const int trick = CardPointsOf(position.ledCard) + CardPointsOf(card);
    const int after = points - trick;
    return FollowerTakesTrick(position.ledCard, card, trumpSuit_)
               ? trick + Lead(own, other, after, alpha - trick, beta - trick)
               : after - Lead(other, own, after, after - beta, after - alpha);
}

namespace {

// A value between 0 and points found by tests of one point's width, each
// telling on which side of a bound the value lies, starting at a guess; the
// table keeps what each test found for the next.
template <typename Search>
int Exact(int points, int guess, Search search) {
    int lower = 0, upper = points;
    while (lower < upper) {
        const int bound = guess == lower ? guess + 1 : guess;
        guess = search(bound - 1, bound);
        (guess < bound ? upper : lower) = guess;
    }
    return guess;
}

int PointsInPlay(const RoundTwoPosition& position) {
    return PointsIn(position.hands[0] | position.hands[1]) +
           (position.ledCard != 0 ? CardPointsOf(position.ledCard) : 0);
}

CardSet LegalForMover(const RoundTwoPosition& position) {
    return RoundTwoLegalCards(position.hands[position.toMove], position.ledCard,
                              position.trumpSuit);
}

}  // namespace

int RoundTwoSearch::Value(const RoundTwoPosition& position) {
    trumpSuit_ = position.trumpSuit;
    const int points = PointsInPlay(position);
    const CardSet own = position.hands[position.toMove];
    const CardSet other = position.hands[1 - position.toMove];
    return Exact(points, points / 2, [&](int alpha, int beta) {
        return position.ledCard == 0 ? Lead(own, other, points, alpha, beta)
                                     : Follow(other, own, position.ledCard, points, alpha, beta);
    });
}

CardValues RoundTwoSearch::ValuesOfCards(const RoundTwoPosition& position) {
    const int points = PointsInPlay(position);
    CardValues values;
    values.cards = LegalForMover(position);
    int guess = points / 2;
    for (CardSet cards = values.cards; cards != kNoCards;) {
        const int card = PopCard(cards);
        // The second copy of a card is worth what the first is.
        if (card % 2 == 0 && Holds(values.cards, card - 1)) {
            values.points[card] = values.points[card - 1];
            continue;
        }
        guess = Exact(points, guess, [&](int alpha, int beta) {
            return CardValue(position, card, points, alpha, beta);
        });
        values.points[card] = static_cast<std::int16_t>(guess);
    }
    return values;
}

int RoundTwoSearch::BestCard(const RoundTwoPosition& position) {
    const int points = PointsInPlay(position);
    const int best = Value(position);
    // The first card, cheapest first, that reaches the best value; when all
    // but the last fall short, the last does.
    Tries tries;
    for (CardSet cards = OneOfEachCopy(LegalForMover(position)); cards != kNoCards;) {
        const int card = PopCard(cards);
        tries.Add(-CardPointsOf(card) * 64 - card, card);
    }
    for (int i = 0; i + 1 < tries.count; ++i) {
        const int card = tries.cards[i].second;
        if (CardValue(position, card, points, best - 1, best) >= best) return card;
    }
    return tries.cards[tries.count - 1].second;
}

}  // namespace trickhaven::expert
