// The robot's turn to meld: the twelve attempts in their order, one meld a
// turn, and the zero that a failed double posts.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "robot/meld_order.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

constexpr int AC = CardIndex(Ace, Clubs), TC = CardIndex(Ten, Clubs), JC = CardIndex(Jack, Clubs);

// Hearts are trumps; the second King of Hearts is turned up.
struct RobotTable : RoundOneTable {
    RobotTable() : RoundOneTable(Hearts, Second(KH), 7) {}
    std::string LastMeld() const { return hg.table.Caption(TableLabel::LbllLastMeldC); }
};

struct Turn {
    int points, card;  // card: one the turn's meld must flag
    bool CardRec::*flag;
    bool declareUp;  // the player's panel stays up: only a run or a four hides it
};

// With every meld in hand, each turn makes the next open meld of the list;
// the single is closed by the double.
TEST(RobotMeldTurns, OneMeldEachTurnInTheOrderOfTheList) {
    RobotTable table;
    Game& g = table.g;
    table.Give(TheRobot, {NH, KD, QD, KC, QC, KS, KH, QH, AD, AC, AH, AS, JC, JH, JS, TH});
    table.Give(TheRobot, kPinochleCards);
    g.MeldAwaited = true;
    const std::vector<Turn> turns{
        {10, NH, &CardRec::DixSwapped, true},     {500, JD2, &CardRec::InDoublePinochle, true},
        {20, KD, &CardRec::InMarriage, true},     {20, KC, &CardRec::InMarriage, true},
        {20, KS, &CardRec::InMarriage, true},     {40, KH, &CardRec::InMarriage, true},
        {100, AS, &CardRec::InFourAces, false},   {80, KS, &CardRec::InFourKings, false},
        {60, QS1, &CardRec::InFourQueens, false}, {40, JS, &CardRec::InFourJacks, false},
        {110, Second(KH), &CardRec::InRun, false}};
    int total = 0;
    for (const Turn& turn : turns) {
        ASSERT_FALSE(Card(g, turn.card).*turn.flag) << turn.points;
        table.hg.table.SetControlVisible(TableControl::FramDeclare, true);
        OpponentMelds(g);
        total += turn.points;
        EXPECT_TRUE(g.MeldDone && Card(g, turn.card).*turn.flag) << turn.points;
        EXPECT_EQ(table.LastMeld(), std::to_string(turn.points));
        EXPECT_EQ(g.OpponentTotalMelds, total);
        EXPECT_EQ(table.hg.table.IsControlVisible(TableControl::FramDeclare), turn.declareUp);
    }
    EXPECT_EQ(table.hg.table.PanelText(2), "Lorindascores for run 110");
    // Nothing is left; with the double made the failed attempts post nothing.
    OpponentMelds(g);
    EXPECT_FALSE(g.MeldDone);
    EXPECT_EQ(table.LastMeld(), "110");
    EXPECT_EQ(g.OpponentTotalMelds, total);
    EXPECT_TRUE(table.hg.table.Messages().empty());
    EXPECT_TRUE(g.MeldAwaited);
    EXPECT_EQ(g.PlayerTotalMelds, 0);
}

TEST(RobotMeldTurns, SingleBeforeAMarriageAndTheDoubleLaterScores460) {
    RobotTable table;
    Game& g = table.g;
    table.Give(TheRobot, {JD1, QS1, QS2, KD, QD});
    OpponentMelds(g);
    EXPECT_EQ(table.LastMeld(), "40");
    EXPECT_TRUE(Card(g, JD1).InPinochle);
    table.Give(TheRobot, {JD2});
    OpponentMelds(g);
    EXPECT_EQ(table.LastMeld(), "460");
    EXPECT_EQ(table.hg.table.PanelText(2), "Lorinda scores 460 for Double Pin ");
    OpponentMelds(g);
    EXPECT_TRUE(Card(g, KD).InMarriage);
    EXPECT_EQ(g.OpponentTotalMelds, 520);
}

TEST(RobotMeldTurns, FailedDoubleAttemptPostsZeroAndAPlayedCardMeldsNothing) {
    RobotTable table;
    Game& g = table.g;
    table.Give(TheRobot, {AD, TC, KD, QC});
    Card(g, QD).Place = PlacePlayed;
    table.hg.table.SetCaption(TableLabel::LbllLastMeldC, "500");
    OpponentMelds(g);
    EXPECT_FALSE(g.MeldDone);
    EXPECT_EQ(table.LastMeld(), "0");
    EXPECT_EQ(g.OpponentTotalMelds, 0);
    EXPECT_TRUE(table.hg.table.Messages().empty());
    for (int card = 1; card <= CardCount; ++card) EXPECT_EQ(CardFlagBits(Card(g, card)), 0) << card;
}

}  // namespace
}  // namespace trickhaven
