#include "expert/decisions.h"

#include <array>
#include <vector>

#include "expert/layouts.h"
#include "expert/playout.h"
#include "expert/round_two_search.h"

namespace trickhaven::expert {

namespace {

bool SameMarks(const MeldMarks& m, int a, int b) {
    for (const CardSet set :
         {m.run, m.marriage, m.fours, m.pinochle, m.doublePinochle, m.dixBlocked}) {
        if (Holds(set, a) != Holds(set, b)) return false;
    }
    return true;
}

// The cards worth weighing: of two like cards with the same marks, one.
std::vector<int> CardCandidates(const SeatView& v, CardSet cards) {
    std::vector<int> candidates;
    for (CardSet rest = cards; rest != kNoCards;) {
        const int card = PopCard(rest);
        const int twin = ((card - 1) ^ 1) + 1;
        if (twin < card && Holds(cards, twin) && SameMarks(v.marks, card, twin)) continue;
        candidates.push_back(card);
    }
    return candidates;
}

// Plays each choice out in the same layouts and gives the index of the one
// worth most in total; the first of equals.
template <typename Apply>
std::size_t BestChoice(const SeatView& v, std::size_t choices, Apply apply) {
    std::vector<long> worth(choices, 0);
    LayoutRandom random(ViewSeed(v));
    for (int layout = 0; layout < kLayouts; ++layout) {
        const HandState drawn = SampleLayout(v, random);
        for (std::size_t i = 0; i < choices; ++i) {
            HandState s = drawn;
            apply(s, i);
            PlayOut(s);
            worth[i] += HandWorth(s, v.side);
        }
    }
    std::size_t best = 0;
    for (std::size_t i = 1; i < choices; ++i) {
        if (worth[i] > worth[best]) best = i;
    }
    return best;
}

RoundTwoPosition PositionOf(const HandState& s) {
    return {s.hands, s.trump, SideToAct(s), s.led};
}

// The hand's points of the side less the other's once Round Two is played
// out perfectly from the start of its first trick.
int ExactWorth(RoundTwoSearch& search, const HandState& s, int side) {
    const int taken = search.Value(PositionOf(s));
    const int remaining = PointsIn(s.hands[0] | s.hands[1]);
    const int toPlay = SideToAct(s);
    std::array<int, 2> points{s.melds[0] + s.tricks[0], s.melds[1] + s.tricks[1]};
    points[static_cast<std::size_t>(toPlay)] += taken;
    points[static_cast<std::size_t>(OtherSide(toPlay))] += remaining - taken;
    return points[static_cast<std::size_t>(side)] -
           points[static_cast<std::size_t>(OtherSide(side))];
}

}  // namespace

int ExpertCard(const SeatView& v) {
    LayoutRandom random(ViewSeed(v));
    if (v.upTaken) {
        RoundTwoSearch search;
        return search.BestCard(PositionOf(SampleLayout(v, random)));
    }
    const std::vector<int> candidates = CardCandidates(v, v.ownHand);
    if (candidates.size() == 1) return candidates.front();
    return candidates[BestChoice(v, candidates.size(), [&candidates](HandState& s, std::size_t i) {
        PlayCard(s, candidates[i]);
    })];
}

Meld ExpertMeld(const SeatView& v) {
    LayoutRandom random(ViewSeed(v));
    const HandState now = SampleLayout(v, random);
    // After the last pair no meld can cost a later one: the richest.
    if (v.stage == Stage::LastMeld) return RichestMeld(now);
    std::vector<Meld> candidates{Meld{}};
    for (int i = 0; i < kMeldChoices; ++i) {
        if (MeldPoints(now, v.side, MeldChoice(i)) > 0) candidates.push_back(MeldChoice(i));
    }
    if (candidates.size() == 1) return candidates.front();
    return candidates[BestChoice(v, candidates.size(), [&candidates](HandState& s, std::size_t i) {
        MakeMeld(s, candidates[i]);
    })];
}

bool ExpertTakesStockCard(const SeatView& v) {
    // Every card is placed by now: the other hand is all the seat has not
    // seen.
    LayoutRandom random(ViewSeed(v));
    const HandState now = SampleLayout(v, random);
    std::array<int, 2> worth{};
    RoundTwoSearch search;
    for (const bool stockCard : {false, true}) {
        HandState s = now;
        ShareLastPair(s, stockCard);
        MakeMeld(s, RichestMeld(s));
        worth[stockCard ? 1 : 0] = ExactWorth(search, s, v.side);
    }
    return worth[1] > worth[0];
}

}  // namespace trickhaven::expert
