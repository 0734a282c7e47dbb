// Who wins a trick and what it is worth.
#include <gtest/gtest.h>

#include <tuple>

#include "round_one/trick_cycle.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

constexpr int AC = CardIndex(Ace, Clubs), ND = CardIndex(Nine, Diamonds);
constexpr int P = ThePlayer, R = TheRobot;

TEST(Trick, WinnerIsTheLeaderUnlessTheSuitOrATrumpBeatsAndTheValueAddsTheCardPoints) {
    // Hearts are trumps. Led, followed, the leader, the winner, the points.
    for (const auto& [what, led, followed, leader, winner, points] :
         {std::tuple{"two identical aces: the one led", AC, Second(AC), R, R, 22},
          {"trump king on a plain ace", AC, KH, P, R, 15},
          {"a king under the ten of its suit", TS, KS, P, P, 14},
          {"a ten over the king of its suit", KS, TS, R, P, 14},
          {"third suit ace on a led nine", ND, AS, P, P, 11},
          {"nine of trumps on a plain nine", NC, NH, R, P, 0},
          {"queen and jack of two plain suits", QS1, JD1, R, R, 5}}) {
        SCOPED_TRACE(what);
        RoundOneTable t;
        t.g.Leader = leader;
        t.g.LeadCard = led;
        t.g.LeadSuit = Card(t.g, led).Suit;
        t.g.FollowCard = followed;
        t.g.FollowSuit = Card(t.g, followed).Suit;
        EXPECT_EQ(TrickWinner(t.g), winner);
        EXPECT_EQ(TrickValue(t.g), points);
    }
}

}  // namespace
}  // namespace trickhaven
