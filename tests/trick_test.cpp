// Who wins a trick, what it is worth, and how it is played, booked and
// gathered.
#include <gtest/gtest.h>

#include <string>

#include "round_one/trick_cycle.h"
#include "tests/headless/headless_game.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

struct TrickOnTable {
    TrickOnTable(int led, int followed, int leader, int trumps = Hearts) {
        Game& g = hg.game;
        ClearTable(g);
        g.GameOn = true;
        g.RoundOneOn = true;
        g.TrumpSuit = trumps;
        g.Leader = leader;
        g.LeadCard = led;
        g.LeadSuit = Card(g, led).Suit;
        g.FollowCard = followed;
        g.FollowSuit = Card(g, followed).Suit;
        PlaceCards(g, PlacePlayed, {led, followed});
        const int playerCard = leader == ThePlayer ? led : followed;
        const int robotCard = leader == ThePlayer ? followed : led;
        hg.table.MoveCard(playerCard, 11760, 4680);
        hg.table.MoveCard(robotCard, 10440, 4680);
        hg.table.SetCardImage(playerCard, playerCard);
        hg.table.SetCardImage(robotCard, robotCard);
    }
    HeadlessGame hg;
};

enum class Side { Leader, Follower };

struct WinnerCase {
    std::string name;
    int led;
    int followed;
    Side winner;
};

class TrickWinnerTable : public ::testing::TestWithParam<WinnerCase> {};

TEST_P(TrickWinnerTable, SameSideWinsWhoeverLeads) {
    const WinnerCase& c = GetParam();
    for (const int leader : {ThePlayer, TheRobot}) {
        TrickOnTable trick(c.led, c.followed, leader);
        const int follower = leader == ThePlayer ? TheRobot : ThePlayer;
        EXPECT_EQ(TrickWinner(trick.hg.game), c.winner == Side::Leader ? leader : follower)
            << "leader " << leader;
    }
}

// Trumps are Hearts.
INSTANTIATE_TEST_SUITE_P(
    Cases, TrickWinnerTable,
    ::testing::Values(WinnerCase{"TwoIdenticalAcesLedOneWins", CardIndex(Ace, Clubs),
                                 CardIndex(Ace, Clubs) + 1, Side::Leader},
                      WinnerCase{"TrumpKingOnPlainAce", CardIndex(Ace, Clubs),
                                 CardIndex(King, Hearts), Side::Follower},
                      WinnerCase{"PlainAceOnTrumpKing", CardIndex(King, Hearts),
                                 CardIndex(Ace, Clubs), Side::Leader},
                      WinnerCase{"TenBeatsKingOfItsSuit", CardIndex(King, Spades),
                                 CardIndex(Ten, Spades), Side::Follower},
                      WinnerCase{"KingLosesToLedTen", CardIndex(Ten, Spades),
                                 CardIndex(King, Spades), Side::Leader},
                      WinnerCase{"ThirdSuitAceOnLedNine", CardIndex(Nine, Diamonds),
                                 CardIndex(Ace, Spades), Side::Leader},
                      WinnerCase{"LowerTrumpOnTrump", CardIndex(Ten, Hearts),
                                 CardIndex(Jack, Hearts), Side::Leader},
                      WinnerCase{"HigherTrumpOnTrump", CardIndex(Jack, Hearts),
                                 CardIndex(Ace, Hearts), Side::Follower},
                      WinnerCase{"NineOfTrumpsOnPlainAce", CardIndex(Ace, Diamonds),
                                 CardIndex(Nine, Hearts), Side::Follower},
                      WinnerCase{"NineOfSuitOnJackOfSuit", CardIndex(Jack, Clubs),
                                 CardIndex(Nine, Clubs), Side::Leader}),
    [](const ::testing::TestParamInfo<WinnerCase>& info) { return info.param.name; });

TEST(TrickWinner, TrumpSuitDecidesNotTheCards) {
    // The same two cards change hands with the trump suit.
    TrickOnTable clubs(CardIndex(Ace, Spades), CardIndex(Nine, Clubs), ThePlayer, Clubs);
    EXPECT_EQ(TrickWinner(clubs.hg.game), TheRobot);
    TrickOnTable spades(CardIndex(Ace, Spades), CardIndex(Nine, Clubs), ThePlayer, Spades);
    EXPECT_EQ(TrickWinner(spades.hg.game), ThePlayer);
}

struct ValueCase {
    std::string name;
    int led;
    int followed;
    int points;
};

class TrickValueTable : public ::testing::TestWithParam<ValueCase> {};

TEST_P(TrickValueTable, AddsTheCardPoints) {
    const ValueCase& c = GetParam();
    for (const int trumps : {Diamonds, Clubs, Hearts, Spades}) {
        TrickOnTable trick(c.led, c.followed, ThePlayer, trumps);
        EXPECT_EQ(TrickValue(trick.hg.game), c.points) << "trumps " << trumps;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TrickValueTable,
    ::testing::Values(
        ValueCase{"TwoAces", CardIndex(Ace, Clubs), CardIndex(Ace, Clubs) + 1, 22},
        ValueCase{"TwoNines", CardIndex(Nine, Clubs), CardIndex(Nine, Hearts), 0},
        ValueCase{"TenAndKing", CardIndex(Ten, Spades), CardIndex(King, Diamonds), 14},
        ValueCase{"QueenAndJack", CardIndex(Queen, Spades), CardIndex(Jack, Diamonds), 5},
        ValueCase{"AceAndNine", CardIndex(Nine, Hearts), CardIndex(Ace, Diamonds), 11}),
    [](const ::testing::TestParamInfo<ValueCase>& info) { return info.param.name; });

TEST(TrickValue, PackHolds240Points) {
    int sum = 0;
    HeadlessGame hg;
    ClearTable(hg.game);
    for (int card = 1; card <= CardCount; ++card) {
        sum += CardPoints(Card(hg.game, card).Value);
    }
    EXPECT_EQ(sum, 240);
}

TEST(GatherTrick, PlayerPileTakesTheLedCardFaceDown) {
    const int led = CardIndex(Ace, Clubs);
    const int followed = CardIndex(Nine, Spades);
    for (const int leader : {ThePlayer, TheRobot}) {
        TrickOnTable trick(led, followed, leader);
        Game& g = trick.hg.game;
        g.GameSpeed = 25;
        g.PlayerPileLeft = 10530;
        const std::int32_t start = trick.hg.platform.TickCount();
        GatherTrick(g, ThePlayer);
        const CardPicture& pile = trick.hg.table.Picture(led);
        EXPECT_EQ(pile.image, CardBackImage);
        EXPECT_EQ(pile.left, 10530);
        EXPECT_EQ(pile.top, 7560);
        EXPECT_TRUE(pile.visible);
        EXPECT_FALSE(trick.hg.table.Picture(followed).visible);
        EXPECT_EQ(trick.hg.table.Picture(followed).image, followed);
        EXPECT_EQ(g.PlayerPileLeft, 10620);
        EXPECT_EQ(g.OpponentPileLeft, 10440);
        // Eight waits of 250, whatever the speed setting.
        EXPECT_EQ(trick.hg.platform.TickCount() - start, 2000);
        EXPECT_EQ(g.DelayMs, 25);
        EXPECT_EQ(trick.hg.platform.sounds.back(), "carddeal1.wav");
    }
}

TEST(GatherTrick, RobotPileHasOneWaitLess) {
    const int led = CardIndex(King, Hearts);
    const int followed = CardIndex(Ten, Hearts);
    TrickOnTable trick(led, followed, TheRobot);
    Game& g = trick.hg.game;
    g.GameSpeed = 250;
    const std::int32_t start = trick.hg.platform.TickCount();
    GatherTrick(g, TheRobot);
    EXPECT_EQ(trick.hg.table.Picture(led).left, 10440);
    EXPECT_EQ(trick.hg.table.Picture(led).top, 2640);
    EXPECT_EQ(trick.hg.table.Picture(led).image, CardBackImage);
    EXPECT_FALSE(trick.hg.table.Picture(followed).visible);
    EXPECT_EQ(g.OpponentPileLeft, 10530);
    EXPECT_EQ(g.PlayerPileLeft, 10440);
    EXPECT_EQ(trick.hg.platform.TickCount() - start, 1750);
    EXPECT_EQ(g.DelayMs, 250);
}

TEST(OpponentPlaysCard, LaysTheCardFaceUpInTheTrick) {
    HeadlessGame hg;
    Game& g = hg.game;
    ClearTable(g);
    g.OpponentName = "Lorinda";
    g.GameSpeed = 100;
    const int played = CardIndex(Queen, Spades);
    const int kept = CardIndex(Jack, Diamonds);
    PlaceCards(g, PlaceOpponentHand, {played, kept});
    Card(g, played).Melded = true;
    hg.table.SetCardImage(played, CardBackImage);
    const std::int32_t start = hg.platform.TickCount();
    OpponentPlaysCard(g, played);
    EXPECT_EQ(Card(g, played).Place, PlacePlayed);
    EXPECT_FALSE(Card(g, played).Melded);
    EXPECT_EQ(hg.table.Picture(played).image, played);
    EXPECT_EQ(hg.table.Picture(played).left, 10440);
    EXPECT_EQ(hg.table.Picture(played).top, 4680);
    // The hand closes up: the card kept is laid first in the row.
    EXPECT_EQ(hg.table.Picture(kept).left, 2880);
    EXPECT_EQ(hg.table.Picture(kept).image, CardBackImage);
    EXPECT_EQ(hg.table.PanelText(2), "Lorinda has played Queen of Spades");
    EXPECT_EQ(hg.platform.TickCount() - start, 3 * 250);
    EXPECT_EQ(g.DelayMs, 100);
}

TEST(ResolveTrick, PlayerWinsBookedAsTrickPointsOnly) {
    TrickOnTable trick(CardIndex(Ace, Clubs), CardIndex(Ten, Clubs), ThePlayer);
    Game& g = trick.hg.game;
    g.TrickCount = 3;
    g.PlayerTotalTricks = 30;
    g.PlayerTotal = 500;
    trick.hg.table.SetCaption(TableLabel::LblTotalScoreP, "500");
    trick.hg.platform.policy = [](Game& game) -> std::optional<TableEvent> {
        if (game.MeldAwaited) return TableEvent{TableEventKind::CancelClick};
        return std::nullopt;
    };
    ResolveTrick(g);
    EXPECT_EQ(g.Leader, ThePlayer);
    EXPECT_EQ(trick.hg.table.Caption(TableLabel::LblLastTrickP), "21");
    EXPECT_EQ(trick.hg.table.Caption(TableLabel::LblTotTricksP), "51");
    EXPECT_EQ(g.PlayerTotalTricks, 51);
    EXPECT_EQ(g.PlayerTotal, 500);
    EXPECT_EQ(trick.hg.table.Caption(TableLabel::LblTotalScoreP), "500");
    EXPECT_EQ(trick.hg.table.Caption(TableLabel::LblLastTrickC), "0");
    EXPECT_EQ(g.PlayerPileLeft, 10530);
    EXPECT_FALSE(g.MeldAwaited);
}

TEST(ResolveTrick, RobotWinsATrickOfTwoNines) {
    TrickOnTable trick(CardIndex(Nine, Spades), CardIndex(Nine, Spades) + 1, TheRobot);
    Game& g = trick.hg.game;
    g.TrickCount = 12;
    g.OpponentTotalTricks = 44;
    trick.hg.table.SetCaption(TableLabel::LblLastTrickC, "17");
    ResolveTrick(g);
    EXPECT_EQ(g.Leader, TheRobot);
    EXPECT_EQ(trick.hg.table.Caption(TableLabel::LblLastTrickC), "0");
    EXPECT_EQ(trick.hg.table.Caption(TableLabel::LblTotTricskC), "44");
    EXPECT_EQ(g.OpponentPileLeft, 10530);
    EXPECT_EQ(g.PlayerPileLeft, 10440);
}

}  // namespace
}  // namespace trickhaven
