// The robot's turn to meld: the twelve attempts in their order, one meld a
// turn, and a turn that finds nothing.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "robot/meld_order.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

constexpr int AC = CardIndex(Ace, Clubs), TC = CardIndex(Ten, Clubs);

// Hearts are trumps; the second King of Hearts is turned up.
struct RobotTable : RoundOneTable {
    RobotTable() : RoundOneTable(Hearts, Second(KH), 7) {}
    std::string LastMeld() const { return hg.table.Caption(TableLabel::LbllLastMeldC); }
};

struct Turn {
    int points, card;  // card: one that the turn's meld must flag
    bool CardRec::*flag;
};

// With every meld in hand, each turn makes the first open meld of the list:
// dix, double, marriages Diamonds, Clubs, Spades, Hearts, fours Aces, Kings,
// Queens, Jacks, the run.
TEST(RobotMeldTurns, OneMeldEachTurnInTheOrderOfTheList) {
    RobotTable table;
    Game& g = table.g;
    table.Give(TheRobot, {NH, KD, QD, KC, QC, KS, KH, QH, AD, AC, AH, AS, CardIndex(Jack, Clubs),
                          JH, JS, TH});
    table.Give(TheRobot, kPinochleCards);
    g.MeldAwaited = true;
    const std::vector<Turn> turns{
        {10, NH, &CardRec::DixSwapped},     {500, JD2, &CardRec::InDoublePinochle},
        {20, KD, &CardRec::InMarriage},     {20, KC, &CardRec::InMarriage},
        {20, KS, &CardRec::InMarriage},     {40, KH, &CardRec::InMarriage},
        {100, AS, &CardRec::InFourAces},    {80, KS, &CardRec::InFourKings},
        {60, QS1, &CardRec::InFourQueens},  {40, JS, &CardRec::InFourJacks},
        {110, Second(KH), &CardRec::InRun}, {0, 0, nullptr}};
    int total = 0;
    for (const Turn& turn : turns) {
        SCOPED_TRACE(turn.points);
        ASSERT_FALSE(turn.card != 0 && Card(g, turn.card).*turn.flag);
        OpponentMelds(g);
        total += turn.points;
        EXPECT_EQ(g.MeldDone, turn.card != 0);
        EXPECT_TRUE(turn.card == 0 || Card(g, turn.card).*turn.flag);
        EXPECT_EQ(g.OpponentTotalMelds, total);
    }
    // With the double made, a turn that finds nothing posts nothing.
    EXPECT_EQ(table.LastMeld(), "110");
    EXPECT_TRUE(table.hg.table.Messages().empty());
    EXPECT_TRUE(g.MeldAwaited);
    EXPECT_EQ(g.PlayerTotalMelds, 0);
}

TEST(RobotMeldTurns, NothingToMeldPostsZeroThenTheSingleComesBeforeAMarriage) {
    RobotTable table;
    Game& g = table.g;
    table.Give(TheRobot, {JD1, KD, AD, TC, AC});
    table.hg.table.SetCaption(TableLabel::LbllLastMeldC, "500");
    OpponentMelds(g);
    EXPECT_FALSE(g.MeldDone);
    EXPECT_EQ(table.LastMeld(), "0");
    for (int card = 1; card <= CardCount; ++card) EXPECT_EQ(CardFlagBits(Card(g, card)), 0) << card;
    table.Give(TheRobot, {QS1, QD});
    OpponentMelds(g);
    EXPECT_TRUE(g.MeldDone && Card(g, QS1).InPinochle && !Card(g, QD).InMarriage);
    OpponentMelds(g);
    EXPECT_TRUE(g.MeldDone && Card(g, QD).InMarriage);
    EXPECT_EQ(g.OpponentTotalMelds, 60);
}

}  // namespace
}  // namespace trickhaven
