// The robot's card in Round One: its lead, its answer, its lowest card.
#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "robot/round_one_choice.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

constexpr int AC = CardIndex(Ace, Clubs), TC = CardIndex(Ten, Clubs), TD = CardIndex(Ten, Diamonds);
constexpr int JC = CardIndex(Jack, Clubs), ND = CardIndex(Nine, Diamonds);
constexpr int NS = CardIndex(Nine, Spades);

// The robot's hand in Round One; the player has led `led`, or the robot
// leads when it is none.
struct RobotTable : RoundOneTable {
    RobotTable(const std::vector<int>& hand, int trumps, int led = 0) : RoundOneTable(trumps) {
        Give(TheRobot, hand);
        g.Leader = led == 0 ? TheRobot : ThePlayer;
        if (led == 0) return;
        g.LeadCard = led;
        g.LeadSuit = Card(g, led).Suit;
        Card(g, led).Place = PlacePlayed;
    }
};

struct Case {
    const char* what;
    std::vector<int> hand;
    int trumps, led, expected;
};

// The first card of each hand is melded: melded cards are played like the
// others.
void ExpectChoices(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        RobotTable t(c.hand, c.trumps, c.led);
        Card(t.g, c.hand[0]).Melded = true;
        EXPECT_EQ(ChooseOpponentCard(t.g), c.expected);
        EXPECT_TRUE(t.hg.table.Messages().empty());
    }
}

TEST(RobotRoundOne, LeadsTheCardOfItsFirstMatchingTest) {
    ExpectChoices({
        {"aces by suit, trumps no earlier", {AH, Second(AH), AC, Second(AC), NC}, Hearts, 0, AC},
        {"a pair of trump aces", {AH, Second(AH), KC, QS1}, Hearts, 0, AH},
        {"aces before tens", {TD, Second(TD), AS, Second(AS)}, Hearts, 0, AS},
        {"tens before a plain nine", {TS, Second(TS), NC}, Hearts, 0, TS},
        {"a plain nine before jacks", {JS, Second(JS), ND}, Hearts, 0, ND},
        {"the nine of trumps is no plain nine", {NH, JC, Second(JC)}, Hearts, 0, JC},
        {"jacks of Spades first", {JC, Second(JC), JS, Second(JS), KD}, Hearts, 0, JS},
        {"jacks of Clubs before Hearts", {JH, Second(JH), JC, Second(JC)}, Diamonds, 0, JC},
        {"jacks of Diamonds never paired", {JD1, JD2, KC, Second(KC)}, Hearts, 0, KC},
        {"jacks before queens", {QC, Second(QC), JH, Second(JH)}, Spades, 0, JH},
        {"queens before kings", {KD, Second(KD), QH, Second(QH)}, Clubs, 0, QH},
        {"kings in suit order", {KC, Second(KC), KD, Second(KD)}, Spades, 0, KD},
        {"no queens of Spades pair", {QS1, QS2, AD, KC}, Hearts, 0, KC},
        {"a plain Club or Heart before Spades", {AS, KD, TC}, Hearts, 0, TC},
        {"the trump suit passed over", {TC, AH}, Clubs, 0, AH},
        {"a jack passed over", {JC, QC, AD, KH}, Hearts, 0, AD},
        {"the first non-trump before any trump", {KH, JS}, Hearts, 0, JS},
        {"only trumps: the first trump", {JH, NH, TH}, Hearts, 0, TH},
    });
}

TEST(RobotRoundOne, AnswersTheLedCardByItsList) {
    ExpectChoices({
        {"wins with the ace before the ten", {TC, Second(AC), NS}, Hearts, KC, Second(AC)},
        {"spends an ace on a nine", {AC, NS}, Hearts, NC, AC},
        {"never wins with queen or jack", {QC, JC, KH, AD}, Hearts, NC, KH},
        {"an equal card does not win", {Second(AC), KD}, Hearts, AC, KD},
        {"a plain nine before trumping", {AH, NS}, Hearts, AC, NS},
        {"trumps with the lower index", {KH, TH, JD1}, Hearts, KC, TH},
        {"no trumping with nine, jack or queen", {NH, JH, QH, KS}, Hearts, AC, JH},
        {"no trumping on a led trump", {TH, KS}, Hearts, AH, KS},
        {"only the led suit wins in suit", {AS, KD}, Hearts, KC, KD},
    });
}

TEST(RobotRoundOne, LowestCardKeepsThePinochleCardsBackInRoundOneOnly) {
    using Row = std::tuple<const char*, std::vector<int>, bool, int>;
    for (const auto& [what, hand, roundOne, expected] :
         std::vector<Row>{{"pinochle cards kept in Round One", {JD1, QS1, KC, AS}, true, KC},
                          {"pinochle cards go in Round Two", {JD1, QS1, KC, AS}, false, JD1},
                          {"queen of Spades goes in Round Two", {QS1, AD}, false, QS1},
                          {"queen of Spades only by the last passes", {QS1, AD}, true, AD},
                          {"another jack before the jack of Diamonds", {JD1, JS}, true, JS},
                          {"a trump jack before a plain king", {KC, JH}, true, JH},
                          {"a plain nine first", {JS, NS, NH}, true, NS},
                          {"the nine of trumps only at the end", {NH, AD}, true, AD},
                          {"ten before ace", {AC, TS}, true, TS},
                          {"none", {}, true, 0}}) {
        SCOPED_TRACE(what);
        RobotTable t(hand, Hearts);
        t.g.RoundOneOn = roundOne;
        EXPECT_EQ(LowestOpponentCard(t.g), expected);
    }
}

TEST(RobotRoundOne, PairsAreInTheRobotsHandOnly) {
    RobotTable t({AC}, Hearts);
    Card(t.g, Second(AC)).Place = PlacePlayerHand;
    EXPECT_EQ(BothAcesCard(t.g), 0);
}

TEST(RobotRoundOne, NothingWithNoGameAndAMessageWithNoCard) {
    RobotTable off({AC, Second(AC)}, Hearts);
    off.g.GameOn = false;
    EXPECT_EQ(ChooseOpponentCard(off.g), 0);
    EXPECT_TRUE(off.hg.table.Messages().empty());
    for (const int led : {0, AC}) {
        RobotTable t({}, Hearts, led);
        EXPECT_EQ(ChooseOpponentCard(t.g), 0);
        ASSERT_EQ(t.hg.table.Messages().size(), 1U);
        const MessageRecord& box = t.hg.table.Messages()[0];
        EXPECT_EQ(box.kind + "|" + box.text + "|" + box.title,
                  "plain| If you can read this something wrong, has not found a card|Trickhaven");
    }
}

}  // namespace
}  // namespace trickhaven
