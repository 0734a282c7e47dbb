// Where melded cards lie: the staging row, the rows of each kind for both
// sides, their steps and pauses, and the gaps that played cards leave.
#include "melds/meld_rows.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "melds/meld_rules.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

struct RowTable : RoundOneTable {
    RowTable() : RoundOneTable(Hearts, 0, 5) {}
    std::pair<int, int> At(int card) const {
        return {hg.table.Picture(card).left, hg.table.Picture(card).top};
    }
};

struct StagingCase {
    int who, slot, left, top;
};

TEST(StagingRow, CardStopsAtItsSlotWithASoundAndTwoWaits) {
    for (const StagingCase& c : std::vector<StagingCase>{{ThePlayer, 1, 3600, 8640},
                                                         {ThePlayer, 3, 5760, 8640},
                                                         {TheRobot, 2, 4680, 1680},
                                                         {TheRobot, 5, 7920, 1680}}) {
        RowTable table;
        table.Give(c.who, {KC, QC});
        table.hg.table.SetCardImage(KC, CardBackImage);
        table.hg.table.BringCardToFront(QC);
        MoveToMeldRow(table.g, c.who, c.slot, KC);
        EXPECT_EQ(table.At(KC), std::make_pair(c.left, c.top)) << c.slot;
        EXPECT_GT(table.hg.table.Picture(KC).z, table.hg.table.Picture(QC).z);
        // Only the robot's card needs turning face up.
        EXPECT_EQ(table.hg.table.Picture(KC).image, c.who == TheRobot ? KC : CardBackImage);
        EXPECT_EQ(table.hg.platform.sounds, std::vector<std::string>{"carddeal1.wav"});
        EXPECT_EQ(table.hg.platform.TickCount(), 2 * (100 + 250));
        EXPECT_EQ(table.g.DelayMs, table.g.GameSpeed);
    }
}

struct RowCase {
    int who;
    bool CardRec::*flag;
    void (*show)(Game&, int);
    std::vector<int> laid;  // in the order laid
    int left, step, top, elapsed;
};
// Cases print as their side and cards, not as bytes, in the test names.
void PrintTo(const RowCase& c, std::ostream* out) {
    *out << (c.who == ThePlayer ? "player" : "robot") << " lays";
    for (const int card : c.laid) *out << ' ' << card;
}

class MeldRowLayout : public ::testing::TestWithParam<RowCase> {};

TEST_P(MeldRowLayout, LaysTheFlaggedCardsOfTheSideFaceUpInOrder) {
    const RowCase& c = GetParam();
    RowTable table;
    Game& g = table.g;
    table.Give(c.who, c.laid);
    for (const int card : c.laid) Card(g, card).*c.flag = true;
    // The other side's flagged card and a played one keep out of the row.
    const int other = Second(CardIndex(Nine, Spades)), played = CardIndex(Nine, Diamonds);
    table.Give(c.who == ThePlayer ? TheRobot : ThePlayer, {other});
    Card(g, played).Place = PlacePlayed;
    Card(g, other).*c.flag = Card(g, played).*c.flag = true;
    for (int card = 1; card <= CardCount; ++card) table.hg.table.SetCardImage(card, CardBackImage);
    c.show(g, c.who);
    long z = 0;
    int left = c.left;
    for (const int card : c.laid) {
        EXPECT_EQ(table.At(card), std::make_pair(left, c.top)) << card;
        EXPECT_EQ(table.hg.table.Picture(card).image, card) << card;
        EXPECT_GT(table.hg.table.Picture(card).z, z) << card;
        z = table.hg.table.Picture(card).z;
        left += c.step;
    }
    EXPECT_EQ(table.hg.table.Picture(other).image, CardBackImage);
    EXPECT_EQ(table.hg.table.Picture(played).image, CardBackImage);
    EXPECT_EQ(table.hg.platform.TickCount(), c.elapsed);
    EXPECT_EQ(g.DelayMs, g.GameSpeed);
}

// A row ends with a rest of GameSpeed + 200; the run and the marriages also
// wait GameSpeed after each card.
const std::vector<RowCase> kRows{
    {ThePlayer, &CardRec::InRun, ShowRunCards, kHeartRun, 2000, 330, 6405, 800},
    {TheRobot, &CardRec::InRun, ShowRunCards, BothCopies(kHeartRun), 2000, 330, 2250, 1300},
    {TheRobot, &CardRec::InFourJacks, ShowFoursCards, FirstOfEachSuit(Jack), 2000, 330, 3450, 300},
    {TheRobot, &CardRec::InDoublePinochle, ShowDoublePinochleCards, kPinochleCards, 5610, 330, 2250,
     300},
    {ThePlayer, &CardRec::InMarriage, ShowMarriageCards, {KC, QC}, 2000, 350, 8600, 500},
    {TheRobot, &CardRec::InMarriage, ShowMarriageCards, {KC, QC, KH, QH}, 2000, 350, 4650, 700}};

INSTANTIATE_TEST_SUITE_P(Rows, MeldRowLayout, ::testing::ValuesIn(kRows));

// Kings lead the fours row whatever the order of the melds; the double lays
// the single's cards again at its narrower step.
TEST(MeldRows, KingsThenAcesAndTheSingleThenTheDouble) {
    for (const int who : {ThePlayer, TheRobot}) {
        RowTable table;
        Game& g = table.g;
        table.Give(who, FirstOfEachSuit(King));
        table.Give(who, FirstOfEachSuit(Ace));
        table.Give(who, kPinochleCards);
        const int foursTop = who == ThePlayer ? 7590 : 3450;
        const int pinochleTop = who == ThePlayer ? 6405 : 2250;
        MeldFours(g, who, Ace);
        MeldFours(g, who, King);
        int left = 2000;
        for (const int value : {King, Ace}) {
            for (const int card : FirstOfEachSuit(value)) {
                EXPECT_EQ(table.At(card), std::make_pair(left, foursTop)) << who << " " << card;
                left += 330;
            }
        }
        MeldPinochle(g, who);
        EXPECT_EQ(table.At(JD1), std::make_pair(5610, pinochleTop));
        EXPECT_EQ(table.At(QS1), std::make_pair(5960, pinochleTop));
        MeldDoublePinochle(g, who);
        left = 5610;
        for (const int card : kPinochleCards) {
            EXPECT_EQ(table.At(card), std::make_pair(left, pinochleTop)) << who << " " << card;
            left += 330;
        }
    }
}

TEST(MeldRows, CardPlayedOutOfARowLeavesAGapUntilTheRowIsLaidAgain) {
    RowTable table;
    Game& g = table.g;
    table.Give(TheRobot, FirstOfEachSuit(King));
    table.Give(TheRobot, FirstOfEachSuit(Ace));
    table.Give(TheRobot, {Second(KC), QC});
    MeldFours(g, TheRobot, King);
    // The King of Clubs is played from the row, as a trick does it.
    Card(g, KC).Place = PlacePlayed;
    Card(g, KC).Melded = false;
    table.hg.table.MoveCard(KC, 10440, 4680);
    MeldMarriage(g, TheRobot, Clubs);
    ASSERT_TRUE(g.MeldDone);
    EXPECT_EQ(table.At(KH).first, 2660);
    MeldFours(g, TheRobot, Ace);
    EXPECT_EQ(table.At(KH), std::make_pair(2330, 3450));
    EXPECT_EQ(table.At(AD), std::make_pair(2990, 3450));
    EXPECT_EQ(table.At(KC), std::make_pair(10440, 4680));
}

TEST(MeldRows, MarriedKingTakenByARunLeavesItsQueenBehindAllFaceUp) {
    RowTable table;
    Game& g = table.g;
    table.Give(TheRobot, {AH, TH, KH, QH, Second(QH), JH});
    MeldMarriage(g, TheRobot, Hearts);
    MeldRun(g, TheRobot);
    EXPECT_EQ(table.At(KH), std::make_pair(2660, 2250));
    EXPECT_EQ(table.At(Second(QH)), std::make_pair(2990, 2250));
    EXPECT_EQ(table.At(QH), std::make_pair(2350, 4650));
    for (const int card : {AH, TH, KH, QH, Second(QH), JH}) {
        EXPECT_EQ(table.hg.table.Picture(card).image, card) << card;
    }
}

TEST(MeldRows, RobotHandClosesUpBehindARunButNotBehindAPinochle) {
    RowTable table;
    Game& g = table.g;
    table.Give(TheRobot, {JD1, QS1, NC});
    MeldPinochle(g, TheRobot);
    EXPECT_NE(table.At(NC), std::make_pair(2880, 120));
    table.Give(TheRobot, {AH, TH, KH, QH, JH});
    MeldRun(g, TheRobot);
    EXPECT_EQ(table.At(NC), std::make_pair(2880, 120));
    EXPECT_EQ(table.hg.table.Picture(NC).image, CardBackImage);
}

}  // namespace
}  // namespace trickhaven
