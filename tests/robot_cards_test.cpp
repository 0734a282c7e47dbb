// The robot's card in both rounds: each row lays a hand and the card led,
// and names the item of the robot's lists that the expected card pins.
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "headless/headless_game.h"
#include "robot/round_one_choice.h"
#include "robot/round_two_choice.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

// A card by its short name, rank (A T K Q J N) then suit (D C H S): the
// second copy when the name ends in 2 or the first copy is taken.
int CardNamed(const std::string& name, const std::set<int>& taken) {
    const int value = Ace - static_cast<int>(std::string("ATKQJN").find(name[0]));
    const int first = CardIndex(value, 1 + static_cast<int>(std::string("DCHS").find(name[1])));
    return first + (name.size() > 2 || taken.contains(first) ? 1 : 0);
}

struct Row {
    const char* what;
    int trumps;
    const char* hand;
    const char* led;       // empty when the robot leads
    const char* expected;  // the lower copy of it that the robot holds
};

struct RobotTable {
    RobotTable(bool roundOne, int trumps, const std::string& hand, const std::string& led)
        : g(hg.game) {
        ClearTable(g);
        g.GameOn = true;
        g.RoundOneOn = roundOne;
        g.TrumpSuit = trumps;
        g.Leader = led.empty() ? TheRobot : ThePlayer;
        std::set<int> taken;
        if (!led.empty()) {
            taken.insert(g.LeadCard = CardNamed(led, taken));
            g.LeadSuit = Card(g, g.LeadCard).Suit;
            Card(g, g.LeadCard).Place = PlacePlayed;
        }
        std::istringstream names(hand);
        for (std::string name; names >> name;) {
            const int card = CardNamed(name, taken);
            Card(g, card).Place = PlaceOpponentHand;
            taken.insert(card);
        }
    }
    int Choose() { return g.RoundOneOn ? ChooseOpponentCard(g) : ChooseRoundTwoCard(g); }
    HeadlessGame hg;
    Game& g;
};

void ExpectRows(bool roundOne, const std::vector<Row>& rows) {
    for (const Row& r : rows) {
        SCOPED_TRACE(r.what);
        RobotTable t(roundOne, r.trumps, r.hand, r.led);
        int expected = CardNamed(r.expected, {});
        if (Card(t.g, expected).Place != PlaceOpponentHand) ++expected;
        // Melded cards are played like any other in Round One.
        Card(t.g, expected).Melded = roundOne;
        EXPECT_EQ(t.Choose(), expected);
        EXPECT_TRUE(t.hg.table.Messages().empty());
    }
}

TEST(RobotRoundOne, LeadsByItsList) {
    ExpectRows(true, {{"pairs of aces: Diamonds before Clubs", Spades, "AD AD AC AC", "", "AD"},
                      {"pairs of aces: Clubs before Hearts", Spades, "AH AH AC AC", "", "AC"},
                      {"pairs of aces: Hearts before Spades", Diamonds, "AS AS AH AH", "", "AH"},
                      {"pairs of aces: only both copies pair", Spades, "AD AC2 AH AH", "", "AH"},
                      {"a pair of trump aces before tens", Spades, "AS AS TC TC", "", "AS"},
                      {"pairs of tens: Diamonds before Clubs", Spades, "TD TD TC TC", "", "TD"},
                      {"pairs of tens: Clubs before Hearts", Spades, "TH TH TC TC", "", "TC"},
                      {"pairs of tens: Hearts before Spades", Diamonds, "TS TS TH TH", "", "TH"},
                      {"pairs of tens before a plain nine", Hearts, "TS TS NC", "", "TS"},
                      {"a plain nine before pairs of jacks", Hearts, "JS JS NC", "", "NC"},
                      {"the nine of trumps is no plain nine", Hearts, "NH JC JC", "", "JC"},
                      {"pairs of jacks: Spades before Clubs", Hearts, "JC JC JS JS", "", "JS"},
                      {"pairs of jacks: Clubs before Hearts", Diamonds, "JH JH JC JC", "", "JC"},
                      {"pairs of jacks: never of Diamonds", Hearts, "JD JD KC KC", "", "KC"},
                      {"pairs of jacks before queens", Spades, "QC QC JH JH", "", "JH"},
                      {"pairs of queens: Diamonds before Clubs", Hearts, "QC QC QD QD", "", "QD"},
                      {"pairs of queens: Clubs before Hearts", Spades, "QH QH QC QC", "", "QC"},
                      {"pairs of queens: never of Spades", Hearts, "QS QS KD KD", "", "KD"},
                      {"pairs of queens before kings", Clubs, "KD KD QH QH", "", "QH"},
                      {"pairs of kings: Diamonds before Clubs", Spades, "KC KC KD KD", "", "KD"},
                      {"pairs of kings: Clubs before Hearts", Spades, "KH KH KC KC", "", "KC"},
                      {"pairs of kings: Hearts before Spades", Diamonds, "KS KS KH KH", "", "KH"},
                      {"pairs of kings: Spades too", Hearts, "KS KS TC", "", "KS"},
                      {"no pair: a Club or Heart, not a Diamond", Hearts, "AD TC", "", "TC"},
                      {"no pair: a Club or Heart, not a Spade", Hearts, "JC AS", "", "JC"},
                      {"no pair: a Club or Heart, not a jack", Spades, "JC KH", "", "KH"},
                      {"no pair: a Club or Heart, not a queen", Spades, "QC KH", "", "KH"},
                      {"no pair: a Club or Heart, not a trump", Clubs, "TC AH", "", "AH"},
                      {"else the first card that isn't a trump", Hearts, "KH JS", "", "JS"},
                      {"only trumps: the first", Hearts, "JH NH TH", "", "TH"}});
}

TEST(RobotRoundOne, FollowsByItsList) {
    ExpectRows(true, {{"wins in suit with its best card", Hearts, "TC AC NS", "KC", "AC"},
                      {"an equal card doesn't win", Hearts, "AC KD", "AC", "KD"},
                      {"wins only in the suit led", Hearts, "AS KD", "KC", "KD"},
                      {"never wins with a jack", Hearts, "JC KH", "NC", "KH"},
                      {"never wins with a queen", Hearts, "QC KH", "NC", "KH"},
                      {"a plain nine before trumping", Hearts, "AH NS", "AC", "NS"},
                      {"else trumps with its best trump", Hearts, "KH TH JD", "KC", "TH"},
                      {"never trumps with a jack", Diamonds, "JD KS", "AC", "KS"},
                      {"never trumps with a queen", Spades, "QS KD", "AC", "KD"},
                      {"never trumps with the nine", Hearts, "NH KS", "AC", "KS"},
                      {"no trumping on a trump led", Hearts, "TH KS", "AH", "KS"}});
}

// A trump Ace led calls for the lowest card at once.
TEST(RobotRoundOne, LowestCardKeepsThePinochleCardsBack) {
    ExpectRows(true, {{"jacks, but not of Diamonds", Hearts, "JD QC", "AH", "QC"},
                      {"a jack before a queen", Hearts, "QC JS", "AH", "JS"},
                      {"queens, not of Spades", Hearts, "QS KC", "AH", "KC"},
                      {"a queen before a king", Hearts, "KD QC", "AH", "QC"},
                      {"a king before a ten", Hearts, "TC KS", "AH", "KS"},
                      {"a ten before an ace", Hearts, "AC TS", "AH", "TS"},
                      {"an ace before the pinochle cards", Hearts, "JD AC", "AH", "AC"},
                      {"the pinochle cards by the last pass", Hearts, "QS JD", "AH", "JD"}});
}

TEST(RobotRoundTwo, LeadsByItsList) {
    ExpectRows(false, {{"the ace of trumps first", Hearts, "AC AH", "", "AH"},
                       {"any ace before tens", Hearts, "TD AS", "", "AS"},
                       {"tens, of Spades too, before cheap cards", Hearts, "KC TS", "", "TS"},
                       {"tens: Diamonds before Clubs", Hearts, "TD TC", "", "TD"},
                       {"tens: Clubs before Hearts", Hearts, "TH TC", "", "TC"},
                       {"tens: Hearts before Spades, trumps or not", Spades, "TS TH", "", "TH"},
                       {"the cheapest: a plain nine", Hearts, "KC NS", "", "NS"},
                       {"the nine of trumps last", Hearts, "NH KC", "", "KC"},
                       {"the jack of Diamonds goes now", Hearts, "JD KC", "", "JD"},
                       {"the queen of Spades goes now", Hearts, "QS KC", "", "QS"}});
}

TEST(RobotRoundTwo, FollowsByItsList) {
    ExpectRows(false, {{"its best card of the suit led wins", Spades, "AC NH TH AH", "KH", "AH"},
                       {"no winner: a nine before a jack", Spades, "JH NH", "AH", "NH"},
                       {"no winner: a jack before a queen", Spades, "QH JH", "AH", "JH"},
                       {"no winner: a queen before a king", Spades, "KH QH", "AH", "QH"},
                       {"no winner: a king before a ten", Spades, "TH KH", "AH", "KH"},
                       {"no winner: a ten before an equal ace", Spades, "AH TH", "AH", "TH"},
                       {"no winner: the equal ace, last of the suit", Spades, "AH KC", "AH", "AH"},
                       {"the cheapest of the suit led", Spades, "KH NC", "AH", "KH"},
                       {"follows suit rather than trump", Spades, "KH AS", "NH", "KH"},
                       {"follows a trump led", Spades, "AS NC", "TS", "AS"},
                       {"void: trumps with its best trump", Spades, "NS KS QC", "NH", "KS"},
                       {"trump led, none held: the cheapest", Spades, "KD NC JH", "NS", "NC"},
                       {"void, no trump: the cheapest", Spades, "TD KC QC", "NH", "QC"}});
}

TEST(RobotCard, NothingWithNoGameAndAMessageWithNoCard) {
    for (const bool roundOne : {true, false}) {
        for (const char* led : {"", "AC"}) {
            RobotTable off(roundOne, Hearts, "AC AC", led);
            off.g.GameOn = false;
            EXPECT_EQ(off.Choose(), 0);
            RobotTable empty(roundOne, Hearts, "", led);
            EXPECT_EQ(empty.Choose(), 0);
            ASSERT_EQ(empty.hg.table.Messages().size(), 1U);
            const MessageRecord& box = empty.hg.table.Messages()[0];
            EXPECT_EQ(box.kind + "|" + box.text + "|" + box.title,
                      roundOne ? "plain| If you can read this something wrong, has not found a "
                                 "card|Trickhaven"
                               : "plain| Something wrong, no card found|Trickhaven");
            EXPECT_TRUE(off.hg.table.Messages().empty());
        }
    }
}

}  // namespace
}  // namespace trickhaven
