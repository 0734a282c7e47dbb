// The robot's turn to meld: the twelve attempts in their order, one meld a
// turn, and the zero that a failed double posts.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "robot/meld_order.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

// Hearts are trumps; the second King of Hearts is turned up.
struct RobotTable : RoundOneTable {
    RobotTable() : RoundOneTable(Hearts, Second(KH), 7) {}
    void Give(const std::vector<int>& cards) { RoundOneTable::Give(TheRobot, cards); }
    // As if these Kings and Queens had married in an earlier turn.
    void Married(const std::vector<int>& cards) {
        for (const int card : cards) Card(g, card).MarriageDone = true;
    }
    std::string LastMeld() const { return hg.table.Caption(TableLabel::LbllLastMeldC); }
};

struct OrderCase {
    std::string name;
    std::vector<int> cards;
    std::function<void(RobotTable&)> prepare;
    int points;
    int card;  // a card the meld made must have flagged
    bool CardRec::*flag;
};

class RobotMeldOrder : public ::testing::TestWithParam<OrderCase> {};

TEST_P(RobotMeldOrder, FirstOpenMeldOfTheListIsMade) {
    const OrderCase& c = GetParam();
    RobotTable table;
    Game& g = table.g;
    table.Give(c.cards);
    if (c.prepare) c.prepare(table);
    g.MeldAwaited = true;

    OpponentMelds(g);

    EXPECT_TRUE(g.MeldDone);
    EXPECT_EQ(table.LastMeld(), std::to_string(c.points));
    EXPECT_EQ(g.OpponentTotalMelds, c.points);
    EXPECT_TRUE(Card(g, c.card).*c.flag);
    EXPECT_TRUE(table.hg.table.Messages().empty());
    EXPECT_TRUE(g.MeldAwaited);
    EXPECT_EQ(g.PlayerTotalMelds, 0);
}

const auto kPinochlesMade = [](RobotTable& t) {
    t.g.OpponentPinochleMade = true;
    t.g.OpponentDoublePinochleMade = true;
};

INSTANTIATE_TEST_SUITE_P(
    Attempts, RobotMeldOrder,
    ::testing::Values(
        OrderCase{"DixBeforeDouble", {NH, JD1, JD2, QS1, QS2}, {}, 10, NH, &CardRec::DixSwapped},
        OrderCase{"DoubleBeforeSingle",
                  {JD1, JD2, QS1, QS2, KD, QD},
                  {},
                  500,
                  JD2,
                  &CardRec::InDoublePinochle},
        OrderCase{"SingleBeforeMarriage", {JD1, QS1, KD, QD}, {}, 40, JD1, &CardRec::InPinochle},
        OrderCase{"DiamondsBeforeClubs", {KC, QC, KD, QD}, {}, 20, KD, &CardRec::InMarriage},
        OrderCase{"ClubsBeforeSpades", {KS, QS2, KC, QC}, {}, 20, KC, &CardRec::InMarriage},
        OrderCase{"SpadesBeforeRoyalHearts", {KH, QH, KS, QS2}, {}, 20, KS, &CardRec::InMarriage},
        OrderCase{"MarriageBeforeFours",
                  {KD, QD, AD, CardIndex(Ace, Clubs), AH, CardIndex(Ace, Spades)},
                  {},
                  20,
                  KD,
                  &CardRec::InMarriage},
        OrderCase{"AcesBeforeKings",
                  {AD, CardIndex(Ace, Clubs), AH, CardIndex(Ace, Spades), KD, KC, KH, KS},
                  {},
                  100,
                  AD,
                  &CardRec::InFourAces},
        OrderCase{"KingsBeforeQueens",
                  {KD, KC, KH, KS, QD, QC, QH, QS2},
                  [](RobotTable& t) {
                      t.Married({KD, KC, KH, KS});
                  },
                  80,
                  KS,
                  &CardRec::InFourKings},
        OrderCase{"QueensBeforeJacks",
                  {QD, QC, QH, QS1, CardIndex(Jack, Diamonds), CardIndex(Jack, Clubs), JH,
                   CardIndex(Jack, Spades)},
                  kPinochlesMade,
                  60,
                  QS1,
                  &CardRec::InFourQueens},
        OrderCase{"JacksBeforeRun",
                  {AH, TH, KH, QH, JH, CardIndex(Jack, Diamonds), CardIndex(Jack, Clubs),
                   CardIndex(Jack, Spades)},
                  [](RobotTable& t) {
                      t.Married({KH, QH});
                  },
                  40,
                  JH,
                  &CardRec::InFourJacks},
        OrderCase{"RunLast",
                  {AH, TH, KH, QH, JH},
                  [](RobotTable& t) {
                      t.Married({KH, QH});
                      Card(t.g, KH).InMarriage = true;
                  },
                  110,
                  KH,
                  &CardRec::InRun}),
    [](const ::testing::TestParamInfo<OrderCase>& info) { return info.param.name; });

TEST(RobotMeldTurns, OneMeldEachTurnInTheOrderOfTheList) {
    RobotTable table;
    Game& g = table.g;
    table.Give(FirstOfEachSuit(Ace));
    table.Give({NH});
    OpponentMelds(g);
    EXPECT_EQ(table.LastMeld(), "10");
    EXPECT_FALSE(Card(g, AD).FoursDone);
    EXPECT_EQ(g.UpCard, NH);
    OpponentMelds(g);
    EXPECT_EQ(table.LastMeld(), "100");
    EXPECT_TRUE(Card(g, AD).InFourAces);
    OpponentMelds(g);
    EXPECT_FALSE(g.MeldDone);
    EXPECT_EQ(table.LastMeld(), "0");
    EXPECT_EQ(g.OpponentTotalMelds, 110);
}

TEST(RobotMeldTurns, RoyalMarriageComesFirstAndTheRunATurnLater) {
    RobotTable table;
    Game& g = table.g;
    table.Give({AH, TH, KH, QH, JH});
    OpponentMelds(g);
    EXPECT_EQ(table.LastMeld(), "40");
    EXPECT_FALSE(Card(g, AH).InRun);
    OpponentMelds(g);
    EXPECT_EQ(table.LastMeld(), "110");
    EXPECT_EQ(g.OpponentTotalMelds, 150);
    EXPECT_EQ(table.hg.table.PanelText(2), "Lorindascores for run 110");
}

TEST(RobotMeldTurns, ThreePinochleCardsGiveTheSingleAndTheFourthTheDouble) {
    RobotTable table;
    Game& g = table.g;
    table.Give({JD1, QS1, QS2});
    OpponentMelds(g);
    EXPECT_EQ(table.LastMeld(), "40");
    table.Give({JD2});
    OpponentMelds(g);
    EXPECT_EQ(table.LastMeld(), "460");
    EXPECT_EQ(table.hg.table.PanelText(2), "Lorinda scores 460 for Double Pin ");
}

TEST(RobotMeldTurns, PlayedCardBreaksTheMeld) {
    RobotTable table;
    Game& g = table.g;
    table.Give({KC, QC});
    Card(g, QC).Place = PlacePlayed;
    OpponentMelds(g);
    EXPECT_FALSE(g.MeldDone);
    EXPECT_FALSE(Card(g, KC).InMarriage);
}

struct IdleTurnCase {
    std::string name;
    bool doubleMade;
    std::string labelAfter;
};

class RobotIdleTurn : public ::testing::TestWithParam<IdleTurnCase> {};

TEST_P(RobotIdleTurn, FailedDoubleAttemptPostsZeroUnlessTheDoubleIsMade) {
    const IdleTurnCase& c = GetParam();
    RobotTable table;
    Game& g = table.g;
    table.Give({AD, CardIndex(Ten, Clubs), KD, QC});
    g.OpponentDoublePinochleMade = c.doubleMade;
    table.hg.table.SetCaption(TableLabel::LbllLastMeldC, "500");
    g.MeldAwaited = true;
    OpponentMelds(g);
    EXPECT_FALSE(g.MeldDone);
    EXPECT_EQ(table.LastMeld(), c.labelAfter);
    EXPECT_EQ(g.OpponentTotalMelds, 0);
    EXPECT_TRUE(table.hg.table.Messages().empty());
    EXPECT_TRUE(g.MeldAwaited);
    for (int card = 1; card <= CardCount; ++card) {
        EXPECT_EQ(CardFlagBits(Card(g, card)), 0) << card;
    }
}

INSTANTIATE_TEST_SUITE_P(Turns, RobotIdleTurn,
                         ::testing::Values(IdleTurnCase{"DoubleNotYetMade", false, "0"},
                                           IdleTurnCase{"DoubleAlreadyMade", true, "500"}),
                         [](const ::testing::TestParamInfo<IdleTurnCase>& info) {
                             return info.param.name;
                         });

}  // namespace
}  // namespace trickhaven
