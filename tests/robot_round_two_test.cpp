// The robot's card in Round Two: its leading and following lists, and that
// it always obeys follow suit and must trump.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "robot/round_two_choice.h"
#include "tests/headless/headless_game.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

constexpr int AceH = CardIndex(Ace, Hearts);
constexpr int NineH = CardIndex(Nine, Hearts);
constexpr int NineC = CardIndex(Nine, Clubs);

void LayRoundTwo(Game& g, int trump, int leader, const std::vector<int>& robotHand) {
    ClearTable(g);
    g.GameOn = true;
    g.RoundTwoOn = true;
    g.TrumpSuit = trump;
    g.Leader = leader;
    for (const int card : robotHand) Card(g, card).Place = PlaceOpponentHand;
}

struct LeadCase {
    const char* what;
    int trump;
    std::vector<int> hand;
    std::vector<int> leads;  // the robot's leads, trick after trick
};

TEST(RobotRoundTwo, LeadsItsWinnersFirstThenTheCheapCards) {
    const std::vector<LeadCase> cases{
        {"ace of trumps, then the aces by index",
         Hearts,
         {CardIndex(Ace, Clubs), CardIndex(Ace, Clubs) + 1, AceH, NineC},
         {AceH, CardIndex(Ace, Clubs), CardIndex(Ace, Clubs) + 1, NineC}},
        {"tens in suit order, the trump ten no earlier",
         Diamonds,
         {CardIndex(Ten, Spades), CardIndex(Ten, Hearts), CardIndex(Ten, Diamonds)},
         {CardIndex(Ten, Diamonds), CardIndex(Ten, Hearts), CardIndex(Ten, Spades)}},
        {"a plain nine, jacks by suit, queens, kings, the trump nine last",
         Hearts,
         {NineH, CardIndex(King, Diamonds), CardIndex(Queen, Clubs), CardIndex(Jack, Spades),
          CardIndex(Jack, Diamonds), NineC},
         {NineC, CardIndex(Jack, Diamonds), CardIndex(Jack, Spades), CardIndex(Queen, Clubs),
          CardIndex(King, Diamonds), NineH}},
    };
    for (const LeadCase& c : cases) {
        SCOPED_TRACE(c.what);
        HeadlessGame hg;
        Game& g = hg.game;
        LayRoundTwo(g, c.trump, TheRobot, c.hand);
        std::vector<int> leads;
        for (std::size_t trick = 0; trick < c.hand.size(); ++trick) {
            const int card = ChooseRoundTwoCard(g);
            leads.push_back(card);
            Card(g, card).Place = PlacePlayed;
        }
        EXPECT_EQ(leads, c.leads);
    }
}

struct FollowCase {
    const char* what;
    int trump;
    int lead;
    std::vector<int> hand;
    int expected;
};

TEST(RobotRoundTwo, FollowsWithTheBestWinnerElseTheCheapestElseTrumps) {
    const std::vector<FollowCase> cases{
        {"the ace beats a king, not the ten",
         Spades,
         CardIndex(King, Hearts),
         {NineH, CardIndex(Ten, Hearts), AceH},
         AceH},
        {"an equal ace doesn't win: the nine goes", Spades, AceH, {AceH + 1, NineH}, NineH},
        {"no winner: jack before queen and king",
         Spades,
         AceH,
         {CardIndex(King, Hearts), CardIndex(Queen, Hearts), CardIndex(Jack, Hearts)},
         CardIndex(Jack, Hearts)},
        {"void: the highest trump",
         Spades,
         CardIndex(Nine, Hearts),
         {CardIndex(Nine, Spades), CardIndex(King, Spades), CardIndex(Ace, Clubs)},
         CardIndex(King, Spades)},
        {"trump led, none held: a plain nine",
         Spades,
         CardIndex(Nine, Spades),
         {CardIndex(King, Diamonds), NineC, CardIndex(Jack, Hearts)},
         NineC},
        {"void, no trump: the cheapest by the ladder",
         Spades,
         NineH,
         {CardIndex(Ten, Diamonds), CardIndex(King, Clubs), CardIndex(Queen, Clubs)},
         CardIndex(Queen, Clubs)},
        {"trump led, trumps held: follows suit",
         Spades,
         CardIndex(Ten, Spades),
         {CardIndex(Ace, Spades), NineC},
         CardIndex(Ace, Spades)},
    };
    for (const FollowCase& c : cases) {
        SCOPED_TRACE(c.what);
        HeadlessGame hg;
        Game& g = hg.game;
        LayRoundTwo(g, c.trump, ThePlayer, c.hand);
        g.LeadCard = c.lead;
        g.LeadSuit = Card(g, c.lead).Suit;
        Card(g, c.lead).Place = PlacePlayed;
        EXPECT_EQ(ChooseRoundTwoCard(g), c.expected);
    }
}

TEST(RobotRoundTwo, CheapestOfSuitRunsNineJackQueenKingTenAce) {
    HeadlessGame hg;
    Game& g = hg.game;
    LayRoundTwo(g, Spades, TheRobot, {});
    std::vector<int> hearts(12);
    std::iota(hearts.begin(), hearts.end(), AceH);
    std::vector<int> order;
    for (const int card : hearts) Card(g, card).Place = PlaceOpponentHand;
    while (OpponentHasSuit(g, Hearts)) {
        order.push_back(Card(g, LowestOfSuit(g, Hearts)).Value);
        Card(g, LowestOfSuit(g, Hearts)).Place = PlacePlayed;
    }
    EXPECT_EQ(order, (std::vector<int>{Nine, Nine, Jack, Jack, Queen, Queen, King, King, Ten, Ten,
                                       Ace, Ace}));
    EXPECT_EQ(LowestOfSuit(g, Hearts), 0);
}

TEST(RobotRoundTwo, NoGameOrNoCardGivesZero) {
    HeadlessGame hg;
    Game& g = hg.game;
    LayRoundTwo(g, Spades, TheRobot, {AceH});
    g.GameOn = false;
    EXPECT_EQ(ChooseRoundTwoCard(g), 0);
    EXPECT_TRUE(hg.table.Messages().empty());
    LayRoundTwo(g, Spades, TheRobot, {});
    EXPECT_EQ(ChooseRoundTwoCard(g), 0);
    ASSERT_EQ(hg.table.Messages().size(), 1U);
    EXPECT_EQ(hg.table.Messages()[0].kind, "plain");
    EXPECT_EQ(hg.table.Messages()[0].text, " Something wrong, no card found");
    EXPECT_EQ(hg.table.Messages()[0].title, "Trickhaven");
}

// Hands dealt at random: the robot's lead is always its own card, and when
// following its card is its own,
// follows suit when it can, trumps when it can't, wins when a card of the
// suit would, and trumps with its highest trump.
TEST(RobotRoundTwo, FollowingAlwaysObeysTheRules) {
    std::mt19937 random(20240611);
    std::vector<int> pack(CardCount);
    std::iota(pack.begin(), pack.end(), 1);
    HeadlessGame hg;
    Game& g = hg.game;
    for (int deal = 0; deal < 2000; ++deal) {
        std::shuffle(pack.begin(), pack.end(), random);
        const int trump = static_cast<int>(random() % 4) + 1;
        const auto handSize = static_cast<std::size_t>(random() % 12) + 1;
        LayRoundTwo(g, trump, ThePlayer, {});
        for (std::size_t i = 0; i < handSize; ++i) Card(g, pack[i]).Place = PlaceOpponentHand;
        g.LeadCard = pack[handSize];
        g.LeadSuit = Card(g, g.LeadCard).Suit;
        Card(g, g.LeadCard).Place = PlacePlayed;
        const std::vector<int> hand(pack.begin(), pack.begin() + static_cast<long>(handSize));
        auto holds = [&](auto test) { return std::any_of(hand.begin(), hand.end(), test); };
        const CardRec& led = Card(g, g.LeadCard);

        g.Leader = TheRobot;
        const int lead = ChooseRoundTwoCard(g);
        ASSERT_EQ(Card(g, lead).Place, PlaceOpponentHand);
        g.Leader = ThePlayer;
        const int card = ChooseRoundTwoCard(g);
        ASSERT_NE(card, 0);
        ASSERT_EQ(Card(g, card).Place, PlaceOpponentHand);
        const CardRec& played = Card(g, card);
        const bool hasSuit = holds([&](int c) { return Card(g, c).Suit == led.Suit; });
        const bool hasTrump = holds([&](int c) { return Card(g, c).Suit == trump; });
        const bool canWinInSuit = holds(
            [&](int c) { return Card(g, c).Suit == led.Suit && Card(g, c).Value > led.Value; });
        if (hasSuit) {
            EXPECT_EQ(played.Suit, led.Suit);
            EXPECT_EQ(played.Value > led.Value, canWinInSuit);
        } else if (hasTrump) {
            EXPECT_EQ(played.Suit, trump);
            EXPECT_FALSE(holds([&](int c) {
                return Card(g, c).Suit == trump && Card(g, c).Value > played.Value;
            }));
        }
    }
}

}  // namespace
}  // namespace trickhaven
