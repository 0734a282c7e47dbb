// The robot's card in Round Two: its leading and following lists, and that
// it always obeys follow suit and must trump.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <tuple>
#include <vector>

#include "robot/round_two_choice.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

constexpr int AC = CardIndex(Ace, Clubs), TD = CardIndex(Ten, Diamonds);
constexpr int JD = JD1, NS = CardIndex(Nine, Spades);

void LayRoundTwo(Game& g, int trump, int leader, const std::vector<int>& robotHand) {
    ClearTable(g);
    g.GameOn = true;
    g.RoundTwoOn = true;
    g.TrumpSuit = trump;
    g.Leader = leader;
    for (const int card : robotHand) Card(g, card).Place = PlaceOpponentHand;
}

TEST(RobotRoundTwo, LeadsItsWinnersFirstThenTheCheapCards) {
    HeadlessGame hg;
    LayRoundTwo(hg.game, Hearts, TheRobot,
                {NH, KD, QC, JS, JD, NC, TS, TH, TD, AC, Second(AC), AH});
    std::vector<int> leads;
    while (leads.size() < 12) {
        leads.push_back(ChooseRoundTwoCard(hg.game));
        Card(hg.game, leads.back()).Place = PlacePlayed;
    }
    // The ace of trumps, the aces by index, the tens by suit (the trump ten no
    // earlier), a plain nine, jacks by suit, queens, kings, the trump nine.
    EXPECT_EQ(leads, (std::vector<int>{AH, AC, Second(AC), TD, TH, TS, NC, JD, JS, QC, KD, NH}));
}

// Spades are trumps.
TEST(RobotRoundTwo, FollowsWithTheBestWinnerElseTheCheapestElseTrumps) {
    using Row = std::tuple<const char*, int, std::vector<int>, int>;
    for (const auto& [what, lead, hand, expected] : std::vector<Row>{
             {"the ace beats a king, not the ten", KH, {NH, TH, AH}, AH},
             {"an equal ace doesn't win: the nine goes", AH, {Second(AH), NH}, NH},
             {"no winner: jack before queen and king", AH, {KH, QH, JH}, JH},
             {"no winner: king before ten", AH, {TH, KH}, KH},
             {"void: the highest trump, not the cheapest", NH, {NS, KS, QC}, KS},
             {"trump led, none held: a plain nine", NS, {KD, NC, JH}, NC},
             {"void, no trump: the cheapest by the ladder", NH, {TD, KC, QC}, QC},
             {"trump led, trumps held: follows suit", TS, {AS, NC}, AS},
         }) {
        SCOPED_TRACE(what);
        HeadlessGame hg;
        Game& g = hg.game;
        LayRoundTwo(g, Spades, ThePlayer, hand);
        g.LeadCard = lead;
        g.LeadSuit = Card(g, lead).Suit;
        Card(g, lead).Place = PlacePlayed;
        EXPECT_EQ(ChooseRoundTwoCard(g), expected);
    }
}

TEST(RobotRoundTwo, NoGameOrNoCardGivesZero) {
    HeadlessGame hg;
    Game& g = hg.game;
    LayRoundTwo(g, Spades, TheRobot, {AH});
    g.GameOn = false;
    EXPECT_EQ(ChooseRoundTwoCard(g), 0);
    EXPECT_TRUE(hg.table.Messages().empty());
    LayRoundTwo(g, Spades, TheRobot, {});
    EXPECT_EQ(ChooseRoundTwoCard(g), 0);
    ASSERT_EQ(hg.table.Messages().size(), 1U);
    const MessageRecord& box = hg.table.Messages()[0];
    EXPECT_EQ(box.kind + "|" + box.text + "|" + box.title,
              "plain| Something wrong, no card found|Trickhaven");
}

// Hands dealt at random: the robot leads its own card; following, it plays
// its own card, follows suit when it can (winning when a card of the suit
// would), else trumps with its highest trump.
TEST(RobotRoundTwo, AlwaysPlaysLegally) {
    std::mt19937 random(20240611);
    std::vector<int> pack(CardCount);
    std::iota(pack.begin(), pack.end(), 1);
    HeadlessGame hg;
    Game& g = hg.game;
    for (int deal = 0; deal < 2000; ++deal) {
        std::shuffle(pack.begin(), pack.end(), random);
        const int trump = static_cast<int>(random() % 4) + 1;
        const auto handSize = static_cast<std::size_t>(random() % 12) + 1;
        const std::vector<int> hand(pack.begin(), pack.begin() + static_cast<long>(handSize));
        LayRoundTwo(g, trump, TheRobot, hand);
        ASSERT_EQ(Card(g, ChooseRoundTwoCard(g)).Place, PlaceOpponentHand);
        g.Leader = ThePlayer;
        const CardRec& led = Card(g, g.LeadCard = pack[handSize]);
        g.LeadSuit = led.Suit;
        Card(g, g.LeadCard).Place = PlacePlayed;
        const int card = ChooseRoundTwoCard(g);
        ASSERT_NE(card, 0);
        ASSERT_EQ(Card(g, card).Place, PlaceOpponentHand);
        const CardRec& played = Card(g, card);
        auto holds = [&](auto test) {
            return std::any_of(hand.begin(), hand.end(), [&](int c) { return test(Card(g, c)); });
        };
        if (holds([&](const CardRec& c) { return c.Suit == led.Suit; })) {
            EXPECT_EQ(played.Suit, led.Suit);
            EXPECT_EQ(played.Value > led.Value, holds([&](const CardRec& c) {
                          return c.Suit == led.Suit && c.Value > led.Value;
                      }));
        } else if (holds([&](const CardRec& c) { return c.Suit == trump; })) {
            EXPECT_EQ(played.Suit, trump);
            EXPECT_FALSE(
                holds([&](const CardRec& c) { return c.Suit == trump && c.Value > played.Value; }));
        }
    }
}

}  // namespace
}  // namespace trickhaven
