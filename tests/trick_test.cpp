// Who wins a trick and what it is worth.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "round_one/trick_cycle.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

constexpr int AC = CardIndex(Ace, Clubs);
constexpr int ND = CardIndex(Nine, Diamonds), JD = CardIndex(Jack, Diamonds);

enum Side { Leader, Follower };

TEST(Trick, WinnerIsTheSameSideWhoeverLeadsAndTheValueAddsTheCardPoints) {
    // Led, followed, trumps, the side that wins, the points.
    using Row = std::tuple<const char*, int, int, int, Side, int>;
    for (const auto& [what, led, followed, trumps, winner, points] :
         std::vector<Row>{{"two identical aces: the one led", AC, Second(AC), Hearts, Leader, 22},
                          {"trump king on a plain ace", AC, KH, Hearts, Follower, 15},
                          {"plain ace on a trump king", KH, AC, Hearts, Leader, 15},
                          {"a king under the ten of its suit", TS, KS, Hearts, Leader, 14},
                          {"a ten over the king of its suit", KS, TS, Hearts, Follower, 14},
                          {"third suit ace on a led nine", ND, AS, Hearts, Leader, 11},
                          {"nine of trumps on a plain nine", NC, NH, Hearts, Follower, 0},
                          {"queen and jack of two plain suits", QS1, JD, Hearts, Leader, 5},
                          {"the trump suit decides, not the cards", AS, NC, Clubs, Follower, 11},
                          {"the same cards, Spades trumps", AS, NC, Spades, Leader, 11}}) {
        for (const int leader : {ThePlayer, TheRobot}) {
            SCOPED_TRACE(std::string(what) + (leader == ThePlayer ? ", player leads" : ""));
            RoundOneTable t(trumps);
            t.g.Leader = leader;
            t.g.LeadCard = led;
            t.g.LeadSuit = Card(t.g, led).Suit;
            t.g.FollowCard = followed;
            t.g.FollowSuit = Card(t.g, followed).Suit;
            const int follower = leader == ThePlayer ? TheRobot : ThePlayer;
            EXPECT_EQ(TrickWinner(t.g), winner == Leader ? leader : follower);
            EXPECT_EQ(TrickValue(t.g), points);
        }
    }
}

}  // namespace
}  // namespace trickhaven
