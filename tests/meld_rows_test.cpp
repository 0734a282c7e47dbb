// Where melded cards lie: the staging row, the rows of each kind for both
// sides, their steps and pauses, and the gaps that played cards leave.
#include "melds/meld_rows.h"

#include <gtest/gtest.h>

#include <functional>
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
    int who;
    int slot;
    int left;
    int top;
};

class StagingRow : public ::testing::TestWithParam<StagingCase> {};

TEST_P(StagingRow, CardStopsAtItsSlotWithASoundAndTwoWaits) {
    const StagingCase& c = GetParam();
    RowTable table;
    const int card = KC;
    table.Give(c.who, {card, QC});
    table.hg.table.SetCardImage(card, CardBackImage);
    table.hg.table.BringCardToFront(QC);
    MoveToMeldRow(table.g, c.who, c.slot, card);
    EXPECT_EQ(table.At(card), std::make_pair(c.left, c.top));
    EXPECT_GT(table.hg.table.Picture(card).z, table.hg.table.Picture(QC).z);
    // Only the robot's card needs turning face up.
    EXPECT_EQ(table.hg.table.Picture(card).image, c.who == TheRobot ? card : CardBackImage);
    EXPECT_EQ(table.hg.platform.sounds, std::vector<std::string>{"carddeal1.wav"});
    EXPECT_EQ(table.hg.platform.TickCount(), 2 * (100 + 250));
    EXPECT_EQ(table.g.DelayMs, table.g.GameSpeed);
}

INSTANTIATE_TEST_SUITE_P(Slots, StagingRow,
                         ::testing::Values(StagingCase{ThePlayer, 1, 3600, 8640},
                                           StagingCase{ThePlayer, 3, 5760, 8640},
                                           StagingCase{TheRobot, 2, 4680, 1680},
                                           StagingCase{TheRobot, 5, 7920, 1680}));

struct RowCase {
    std::string name;
    int who;
    bool CardRec::*flag;
    std::vector<int> cards;  // flagged, in any order
    std::function<void(Game&, int)> show;
    std::vector<std::pair<int, int>> laid;  // card and Left, in the order laid
    int top;
    std::int32_t elapsed;
};

class MeldRowLayout : public ::testing::TestWithParam<RowCase> {};

TEST_P(MeldRowLayout, LaysTheFlaggedCardsOfTheSideFaceUpInOrder) {
    const RowCase& c = GetParam();
    RowTable table;
    Game& g = table.g;
    table.Give(c.who, c.cards);
    for (const int card : c.cards) Card(g, card).*c.flag = true;
    // The other side's flagged card and a played one keep out of the row.
    const int other = Second(CardIndex(Nine, Spades));
    table.Give(c.who == ThePlayer ? TheRobot : ThePlayer, {other});
    Card(g, other).*c.flag = true;
    const int played = CardIndex(Nine, Diamonds);
    Card(g, played).Place = PlacePlayed;
    Card(g, played).*c.flag = true;
    for (int card = 1; card <= CardCount; ++card) table.hg.table.SetCardImage(card, CardBackImage);

    c.show(g, c.who);

    long z = 0;
    for (const auto& [card, left] : c.laid) {
        EXPECT_EQ(table.At(card), std::make_pair(left, c.top)) << card;
        EXPECT_EQ(table.hg.table.Picture(card).image, card) << card;
        EXPECT_GT(table.hg.table.Picture(card).z, z) << card;
        z = table.hg.table.Picture(card).z;
    }
    for (const int outside : {other, played}) {
        EXPECT_EQ(table.hg.table.Picture(outside).image, CardBackImage);
    }
    EXPECT_EQ(table.hg.platform.TickCount(), c.elapsed);
    EXPECT_EQ(g.DelayMs, g.GameSpeed);
}

const auto kShowRun = [](Game& g, int who) { ShowRunCards(g, who); };
const auto kShowFours = [](Game& g, int who) { ShowFoursCards(g, who); };
const auto kShowPinochle = [](Game& g, int who) { ShowPinochleCards(g, who); };
const auto kShowDouble = [](Game& g, int who) { ShowDoublePinochleCards(g, who); };
const auto kShowMarriage = [](Game& g, int who) { ShowMarriageCards(g, who); };

// A row ends with a rest of GameSpeed + 200; the run and the marriages also
// wait GameSpeed after each card.
INSTANTIATE_TEST_SUITE_P(
    Rows, MeldRowLayout,
    ::testing::Values(RowCase{"PlayerRunAcesToJacks",
                              ThePlayer,
                              &CardRec::InRun,
                              {JH, QH, KH, TH, AH},
                              kShowRun,
                              {{AH, 2000}, {TH, 2330}, {KH, 2660}, {QH, 2990}, {JH, 3320}},
                              6405,
                              5 * 100 + 300},
                      RowCase{"RobotTwoRunsSideBySide",
                              TheRobot,
                              &CardRec::InRun,
                              {AH, Second(AH), TH, Second(TH), KH, Second(KH), QH, Second(QH), JH,
                               Second(JH)},
                              kShowRun,
                              {{AH, 2000},
                               {Second(AH), 2330},
                               {TH, 2660},
                               {Second(TH), 2990},
                               {KH, 3320},
                               {Second(KH), 3650},
                               {QH, 3980},
                               {Second(QH), 4310},
                               {JH, 4640},
                               {Second(JH), 4970}},
                              2250,
                              10 * 100 + 300},
                      RowCase{"RobotFoursInIndexOrder",
                              TheRobot,
                              &CardRec::InFourQueens,
                              FirstOfEachSuit(Queen),
                              kShowFours,
                              {{7, 2000}, {19, 2330}, {31, 2660}, {43, 2990}},
                              3450,
                              300},
                      RowCase{"PlayerPinochleStepsWide",
                              ThePlayer,
                              &CardRec::InPinochle,
                              {QS1, JD2},
                              kShowPinochle,
                              {{JD2, 5610}, {QS1, 5960}},
                              6405,
                              300},
                      RowCase{"RobotDoubleStepsNarrow",
                              TheRobot,
                              &CardRec::InDoublePinochle,
                              {QS2, QS1, JD2, JD1},
                              kShowDouble,
                              {{JD1, 5610}, {JD2, 5940}, {QS1, 6270}, {QS2, 6600}},
                              2250,
                              300},
                      RowCase{"PlayerMarriageKingFirst",
                              ThePlayer,
                              &CardRec::InMarriage,
                              {QC, KC},
                              kShowMarriage,
                              {{KC, 2000}, {QC, 2350}},
                              8600,
                              2 * 100 + 300},
                      RowCase{"RobotMarriages",
                              TheRobot,
                              &CardRec::InMarriage,
                              {QC, KC, QH, KH},
                              kShowMarriage,
                              {{KC, 2000}, {QC, 2350}, {KH, 2700}, {QH, 3050}},
                              4650,
                              4 * 100 + 300}),
    [](const ::testing::TestParamInfo<RowCase>& info) { return info.param.name; });

TEST(FoursRow, KingsComeFirstAndTheAcesFollowAt3320) {
    for (const int who : {ThePlayer, TheRobot}) {
        RowTable table;
        Game& g = table.g;
        table.Give(who, FirstOfEachSuit(King));
        table.Give(who, FirstOfEachSuit(Ace));
        MeldFours(g, who, King);
        MeldFours(g, who, Ace);
        const int top = who == ThePlayer ? 7590 : 3450;
        int left = 2000;
        for (const int value : {King, Ace}) {
            for (const int card : FirstOfEachSuit(value)) {
                EXPECT_EQ(table.At(card), std::make_pair(left, top)) << who << " " << card;
                left += 330;
            }
        }
    }
}

TEST(PinochleRow, DoubleAfterSingleLaysAllFourNarrower) {
    RowTable table;
    Game& g = table.g;
    table.Give(ThePlayer, {JD1, JD2, QS1, QS2});
    MeldPinochle(g, ThePlayer);
    EXPECT_EQ(table.At(JD1), std::make_pair(5610, 6405));
    EXPECT_EQ(table.At(QS1), std::make_pair(5960, 6405));
    MeldDoublePinochle(g, ThePlayer);
    EXPECT_EQ(table.At(JD1), std::make_pair(5610, 6405));
    EXPECT_EQ(table.At(JD2), std::make_pair(5940, 6405));
    EXPECT_EQ(table.At(QS1), std::make_pair(6270, 6405));
    EXPECT_EQ(table.At(QS2), std::make_pair(6600, 6405));
}

TEST(MeldRows, CardPlayedOutOfARowLeavesAGapUntilTheRowIsLaidAgain) {
    RowTable table;
    Game& g = table.g;
    const std::vector<int> kings = FirstOfEachSuit(King);
    table.Give(TheRobot, kings);
    table.Give(TheRobot, FirstOfEachSuit(Ace));
    table.Give(TheRobot, {Second(KC), QC});
    MeldFours(g, TheRobot, King);
    // The King of Clubs is played from the row, as a trick does it.
    Card(g, KC).Place = PlacePlayed;
    Card(g, KC).Melded = false;
    table.hg.table.MoveCard(KC, 10440, 4680);
    // A meld of another kind leaves the fours row as it was.
    MeldMarriage(g, TheRobot, Clubs);
    ASSERT_TRUE(g.MeldDone);
    EXPECT_EQ(table.At(kings[0]).first, 2000);
    EXPECT_EQ(table.At(kings[2]).first, 2660);
    EXPECT_EQ(table.At(kings[3]).first, 2990);
    // The next four lays the row again and closes the gap.
    MeldFours(g, TheRobot, Ace);
    EXPECT_EQ(table.At(kings[0]), std::make_pair(2000, 3450));
    EXPECT_EQ(table.At(kings[2]), std::make_pair(2330, 3450));
    EXPECT_EQ(table.At(kings[3]), std::make_pair(2660, 3450));
    EXPECT_EQ(table.At(CardIndex(Ace, Diamonds)), std::make_pair(2990, 3450));
    EXPECT_EQ(table.At(CardIndex(Ace, Spades)), std::make_pair(3980, 3450));
    EXPECT_EQ(table.At(KC), std::make_pair(10440, 4680));
}

TEST(MeldRows, MarriedKingTakenByARunLeavesItsQueenBehind) {
    RowTable table;
    Game& g = table.g;
    table.Give(TheRobot, {AH, TH, KH, QH, Second(QH), JH});
    MeldMarriage(g, TheRobot, Hearts);
    EXPECT_EQ(table.At(KH), std::make_pair(2000, 4650));
    EXPECT_EQ(table.At(QH), std::make_pair(2350, 4650));
    MeldRun(g, TheRobot);
    ASSERT_TRUE(g.MeldDone);
    EXPECT_EQ(table.At(KH), std::make_pair(2660, 2250));
    EXPECT_EQ(table.At(Second(QH)), std::make_pair(2990, 2250));
    EXPECT_EQ(table.At(QH), std::make_pair(2350, 4650));
    // Every melded card of the robot shows its face.
    for (const int card : {AH, TH, KH, QH, Second(QH), JH}) {
        EXPECT_EQ(table.hg.table.Picture(card).image, card) << card;
    }
}

TEST(MeldRows, RobotHandClosesUpBehindARunButNotBehindAPinochle) {
    RowTable table;
    Game& g = table.g;
    const int spare = CardIndex(Nine, Clubs);
    table.Give(TheRobot, {JD1, QS1, spare});
    MeldPinochle(g, TheRobot);
    // The spare card's place in the face-down row is where the deal left it.
    EXPECT_NE(table.At(spare), std::make_pair(2880, 120));
    table.Give(TheRobot, {AH, TH, KH, QH, JH});
    MeldRun(g, TheRobot);
    EXPECT_EQ(table.At(spare), std::make_pair(2880, 120));
    EXPECT_EQ(table.hg.table.Picture(spare).image, CardBackImage);
}

}  // namespace
}  // namespace trickhaven
