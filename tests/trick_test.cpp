// Who wins a trick, what it is worth, and how it is played, booked and
// gathered.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "round_one/trick_cycle.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

constexpr int AC = CardIndex(Ace, Clubs), TC = CardIndex(Ten, Clubs), JC = CardIndex(Jack, Clubs);
constexpr int ND = CardIndex(Nine, Diamonds), NS = CardIndex(Nine, Spades);

// Both cards of a trick on the table, face up.
struct TrickOnTable : RoundOneTable {
    TrickOnTable(int led, int followed, int leader, int trumps = Hearts) : RoundOneTable(trumps) {
        g.Leader = leader;
        g.LeadCard = led;
        g.LeadSuit = Card(g, led).Suit;
        g.FollowCard = followed;
        g.FollowSuit = Card(g, followed).Suit;
        PlaceCards(g, PlacePlayed, {led, followed});
        hg.table.MoveCard(leader == ThePlayer ? led : followed, 11760, 4680);
        hg.table.MoveCard(leader == ThePlayer ? followed : led, 10440, 4680);
        for (const int card : {led, followed}) hg.table.SetCardImage(card, card);
    }
};

enum Side { Leader, Follower };

TEST(Trick, WinnerIsTheSameSideWhoeverLeadsAndTheValueAddsTheCardPoints) {
    // Led, followed, trumps, the side that wins, the points.
    using Row = std::tuple<const char*, int, int, int, Side, int>;
    for (const auto& [what, led, followed, trumps, winner, points] :
         std::vector<Row>{{"two identical aces: the one led", AC, Second(AC), Hearts, Leader, 22},
                          {"trump king on a plain ace", AC, KH, Hearts, Follower, 15},
                          {"plain ace on a trump king", KH, AC, Hearts, Leader, 15},
                          {"a king under the ten of its suit", TS, KS, Hearts, Leader, 14},
                          {"third suit ace on a led nine", ND, AS, Hearts, Leader, 11},
                          {"higher trump on a trump", JH, AH, Hearts, Follower, 13},
                          {"nine of trumps on a plain nine", NC, NH, Hearts, Follower, 0},
                          {"nine of a suit under its jack", JC, NC, Hearts, Leader, 2},
                          {"queen and jack of two plain suits", QS1, JD1, Hearts, Leader, 5},
                          {"the trump suit decides, not the cards", AS, NC, Clubs, Follower, 11},
                          {"the same cards, Spades trumps", AS, NC, Spades, Leader, 11}}) {
        for (const int leader : {ThePlayer, TheRobot}) {
            SCOPED_TRACE(std::string(what) + (leader == ThePlayer ? ", player leads" : ""));
            TrickOnTable trick(led, followed, leader, trumps);
            const int follower = leader == ThePlayer ? TheRobot : ThePlayer;
            EXPECT_EQ(TrickWinner(trick.g), winner == Leader ? leader : follower);
            EXPECT_EQ(TrickValue(trick.g), points);
        }
    }
}

TEST(GatherTrick, LeavesTheLedCardFaceDownOnTheWinnersPileAtItsOwnPace) {
    // Eight waits of 250 for the player's pile, seven for the robot's,
    // whatever the speed setting.
    for (const auto& [who, leader, speed, top, ticks] :
         {std::tuple{ThePlayer, ThePlayer, 25, 7560, 2000},
          {ThePlayer, TheRobot, 25, 7560, 2000},
          {TheRobot, TheRobot, 250, 2640, 1750}}) {
        SCOPED_TRACE(leader);
        TrickOnTable trick(AC, NS, leader);
        Game& g = trick.g;
        g.GameSpeed = speed;
        g.PlayerPileLeft = g.OpponentPileLeft = 10530;
        GatherTrick(g, who);
        const CardPicture& pile = trick.hg.table.Picture(AC);
        EXPECT_EQ(std::tuple(pile.image, pile.left, pile.top, pile.visible),
                  std::tuple(CardBackImage, 10530, top, true));
        EXPECT_FALSE(trick.hg.table.Picture(NS).visible);
        const bool player = who == ThePlayer;
        EXPECT_EQ(player ? g.PlayerPileLeft : g.OpponentPileLeft, 10620);
        EXPECT_EQ(player ? g.OpponentPileLeft : g.PlayerPileLeft, 10530);
        EXPECT_EQ(trick.hg.platform.TickCount(), ticks);
        EXPECT_EQ(g.DelayMs, speed);
        EXPECT_EQ(trick.hg.platform.sounds.back(), "carddeal1.wav");
    }
}

TEST(OpponentPlaysCard, LaysTheCardFaceUpInTheTrickAndClosesUpTheHand) {
    RoundOneTable table;
    Game& g = table.g;
    table.Give(TheRobot, {QS1, JD1});
    Card(g, QS1).Melded = true;
    table.hg.table.SetCardImage(QS1, CardBackImage);
    OpponentPlaysCard(g, QS1);
    EXPECT_EQ(std::tuple(Card(g, QS1).Place, Card(g, QS1).Melded), std::tuple(PlacePlayed, false));
    const CardPicture& played = table.hg.table.Picture(QS1);
    EXPECT_EQ(std::tuple(played.image, played.left, played.top), std::tuple(QS1, 10440, 4680));
    const CardPicture& kept = table.hg.table.Picture(JD1);
    EXPECT_EQ(std::tuple(kept.image, kept.left), std::tuple(CardBackImage, 2880));
    EXPECT_EQ(table.hg.table.PanelText(2), "Lorinda has played Queen of Spades");
    EXPECT_EQ(table.hg.platform.TickCount(), 3 * 250);
    EXPECT_EQ(g.DelayMs, 100);
}

TEST(ResolveTrick, PlayerWinsBookedAsTrickPointsOnly) {
    TrickOnTable trick(AC, TC, ThePlayer);
    Game& g = trick.g;
    g.PlayerTotalTricks = 30;
    g.PlayerTotal = 500;
    trick.hg.table.SetCaption(TableLabel::LblTotalScoreP, "500");
    trick.hg.platform.policy = [](Game& game) -> std::optional<TableEvent> {
        if (game.MeldAwaited) return TableEvent{TableEventKind::CancelClick};
        return std::nullopt;
    };
    ResolveTrick(g);
    EXPECT_EQ(g.Leader, ThePlayer);
    EXPECT_EQ(std::tuple(g.PlayerTotalTricks, g.PlayerTotal), std::tuple(51, 500));
    const HeadlessTable& t = trick.hg.table;
    EXPECT_EQ(t.Caption(TableLabel::LblLastTrickP) + "," + t.Caption(TableLabel::LblTotTricksP) +
                  "," + t.Caption(TableLabel::LblTotalScoreP) + "," +
                  t.Caption(TableLabel::LblLastTrickC),
              "21,51,500,0");
    EXPECT_EQ(g.PlayerPileLeft, 10530);
    EXPECT_FALSE(g.MeldAwaited);
}

}  // namespace
}  // namespace trickhaven
