// The robot's card in Round One: its lead, its answer, its lowest card.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "robot/round_one_choice.h"
#include "tests/headless/headless_game.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

constexpr int Second = 1;  // offset of the second copy of a card

struct RobotTable {
    explicit RobotTable(const std::vector<int>& robotHand, int trumps = Hearts) {
        ClearTable(hg.game);
        for (const int card : robotHand) {
            Card(hg.game, card).Place = PlaceOpponentHand;
        }
        hg.game.GameOn = true;
        hg.game.RoundOneOn = true;
        hg.game.TrumpSuit = trumps;
    }
    HeadlessGame hg;
};

struct LeadCase {
    std::string name;
    std::vector<int> hand;
    int trumps;
    int expected;
};

class RobotLeads : public ::testing::TestWithParam<LeadCase> {};

TEST_P(RobotLeads, LeadsTheCardOfItsFirstMatchingTest) {
    const LeadCase& c = GetParam();
    RobotTable table(c.hand, c.trumps);
    table.hg.game.Leader = TheRobot;
    EXPECT_EQ(ChooseOpponentCard(table.hg.game), c.expected);
    EXPECT_TRUE(table.hg.table.Messages().empty());
}

const int AC = CardIndex(Ace, Clubs), AH = CardIndex(Ace, Hearts), AS = CardIndex(Ace, Spades),
          AD = CardIndex(Ace, Diamonds);
const int TC = CardIndex(Ten, Clubs), TH = CardIndex(Ten, Hearts), TD = CardIndex(Ten, Diamonds),
          TS = CardIndex(Ten, Spades);
const int KC = CardIndex(King, Clubs), KH = CardIndex(King, Hearts), KD = CardIndex(King, Diamonds),
          KS = CardIndex(King, Spades);
const int QC = CardIndex(Queen, Clubs), QH = CardIndex(Queen, Hearts),
          QS = CardIndex(Queen, Spades), QD = CardIndex(Queen, Diamonds);
const int JC = CardIndex(Jack, Clubs), JH = CardIndex(Jack, Hearts), JS = CardIndex(Jack, Spades),
          JD = CardIndex(Jack, Diamonds);
const int NC = CardIndex(Nine, Clubs), NH = CardIndex(Nine, Hearts), NS = CardIndex(Nine, Spades),
          ND = CardIndex(Nine, Diamonds);

INSTANTIATE_TEST_SUITE_P(
    Cases, RobotLeads,
    ::testing::Values(
        LeadCase{
            "AcesOfClubsBeforeAcesOfHearts", {AH, AH + Second, AC, AC + Second, NC}, Hearts, AC},
        LeadCase{"PairOfTrumpAcesIsLed", {AH, AH + Second, KC, QS}, Hearts, AH},
        LeadCase{"AcesBeforeTensWhateverTheSuit", {TD, TD + Second, AS, AS + Second}, Hearts, AS},
        LeadCase{"TensBeforeAPlainNine", {TS, TS + Second, NC}, Hearts, TS},
        LeadCase{"PlainNineWhenNothingPaired", {AS, NC, KD}, Hearts, NC},
        LeadCase{"PlainNineBeforeJacks", {JS, JS + Second, ND}, Hearts, ND},
        LeadCase{"NineOfTrumpsIsNoPlainNine", {NH, JC, JC + Second}, Hearts, JC},
        LeadCase{"JacksOfSpadesTestedFirst", {JC, JC + Second, JS, JS + Second, KD}, Hearts, JS},
        LeadCase{"JacksOfDiamondsNeverPaired", {JD, JD + Second, JH, JH + Second}, Clubs, JH},
        LeadCase{"JacksBeforeQueens", {QC, QC + Second, JH, JH + Second}, Spades, JH},
        LeadCase{"QueensBeforeKings", {KD, KD + Second, QH, QH + Second}, Clubs, QH},
        LeadCase{"KingsInSuitOrder", {KC, KC + Second, KD, KD + Second}, Spades, KD},
        LeadCase{"QueensOfSpadesNotPaired", {QS, QS + Second, AD, KC}, Hearts, KC},
        LeadCase{"PlainClubOrHeartBeforeAceOrKing", {AS, KD, TC}, Hearts, TC},
        LeadCase{"TrumpSuitPassedOverByThePlainChoice", {TC, AH}, Clubs, AH},
        LeadCase{"JackOfClubsPassedOverByThePlainChoice", {JC, QC, AD, KH}, Hearts, AD},
        LeadCase{"FirstNonTrumpBeforeAnyTrump", {KH, JS}, Hearts, JS},
        LeadCase{"OnlyTrumpsGiveTheFirstTrump", {JH, NH, TH}, Hearts, TH}),
    [](const ::testing::TestParamInfo<LeadCase>& info) { return info.param.name; });

struct FollowCase {
    std::string name;
    std::vector<int> hand;
    int trumps;
    int led;
    int expected;
};

class RobotFollows : public ::testing::TestWithParam<FollowCase> {};

TEST_P(RobotFollows, AnswersTheLedCard) {
    const FollowCase& c = GetParam();
    RobotTable table(c.hand, c.trumps);
    Game& g = table.hg.game;
    g.Leader = ThePlayer;
    g.LeadCard = c.led;
    g.LeadSuit = Card(g, c.led).Suit;
    Card(g, c.led).Place = PlacePlayed;
    EXPECT_EQ(ChooseOpponentCard(g), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RobotFollows,
    ::testing::Values(
        FollowCase{"WinsWithTheAceBeforeTheTen", {TC, AC + Second, NS}, Hearts, KC, AC + Second},
        FollowCase{"SpendsAnAceOnANine", {AC, NS}, Hearts, NC, AC},
        FollowCase{"NeverWinsWithQueenOrJack", {QC, JC, KH, AD}, Hearts, NC, KH},
        FollowCase{"EqualCardDoesNotWin", {AC + Second, KD}, Hearts, AC, KD},
        FollowCase{"PlainNineBeforeTrumping", {AH, NS}, Hearts, AC, NS},
        FollowCase{"TrumpsWithTheLowerIndex", {KH, TH, JD}, Hearts, KC, TH},
        FollowCase{"NoTrumpingWithNineJackOrQueen", {NH, JH, QH, KS}, Hearts, AC, JH},
        FollowCase{"NoTrumpingOnALedTrump", {TH, KS}, Hearts, AH, KS},
        FollowCase{"HigherTrumpOnALedTrump", {TH, KS}, Hearts, KH, TH},
        FollowCase{"OnlyTheLedSuitWinsInSuit", {AS, KD}, Hearts, KC, KD}),
    [](const ::testing::TestParamInfo<FollowCase>& info) { return info.param.name; });

struct LowestCase {
    std::string name;
    std::vector<int> hand;
    bool roundOne;
    int expected;
};

class RobotLowest : public ::testing::TestWithParam<LowestCase> {};

TEST_P(RobotLowest, GivesTheCardOfItsFirstPass) {
    const LowestCase& c = GetParam();
    RobotTable table(c.hand, Hearts);
    table.hg.game.RoundOneOn = c.roundOne;
    EXPECT_EQ(LowestOpponentCard(table.hg.game), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RobotLowest,
    ::testing::Values(LowestCase{"PinochleCardsKeptInRoundOne", {JD, QS, KC, AS}, true, KC},
                      LowestCase{"PinochleCardsGoInRoundTwo", {JD, QS, KC, AS}, false, JD},
                      LowestCase{"QueenOfSpadesGoesInRoundTwo", {QS, AD}, false, QS},
                      LowestCase{"QueenOfSpadesOnlyByTheLastPasses", {QS, AD}, true, AD},
                      LowestCase{"OtherJackBeforeTheJackOfDiamonds", {JD, JS}, true, JS},
                      LowestCase{"TrumpJackBeforeAPlainKing", {KC, JH}, true, JH},
                      LowestCase{"PlainNineFirst", {JS, NS, NH}, true, NS},
                      LowestCase{"NineOfTrumpsOnlyAtTheEnd", {NH, AD}, true, AD},
                      LowestCase{"NineOfTrumpsWhenAlone", {NH}, true, NH},
                      LowestCase{"TenBeforeAce", {AC, TS}, true, TS},
                      LowestCase{"EmptyHand", {}, true, 0}),
    [](const ::testing::TestParamInfo<LowestCase>& info) { return info.param.name; });

struct PairCase {
    std::string name;
    int (*test)(const Game&);
    std::vector<int> hand;
    int expected;
};

class PairTests : public ::testing::TestWithParam<PairCase> {};

TEST_P(PairTests, NameTheFirstFullPair) {
    const PairCase& c = GetParam();
    RobotTable table(c.hand);
    EXPECT_EQ(c.test(table.hg.game), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PairTests,
    ::testing::Values(
        PairCase{"AcesOneOfEachSuit", BothAcesCard, {AD, AC, AH, AS}, 0},
        PairCase{"AcesOfSpades", BothAcesCard, {AS, AS + Second, AD}, AS},
        PairCase{"TensOfHearts", BothTensCard, {TH, TH + Second}, TH},
        PairCase{"KingsOfSpades", BothKingsCard, {KS, KS + Second}, KS},
        PairCase{"QueensOfSpades", BothQueensCard, {QS, QS + Second}, 0},
        PairCase{"QueensOfDiamonds", BothQueensCard, {QD, QD + Second}, QD},
        PairCase{"JacksOfDiamonds", BothJacksCard, {JD, JD + Second}, 0},
        PairCase{"JacksSpadesBeforeClubs", BothJacksCard, {JC, JC + Second, JS, JS + Second}, JS},
        PairCase{"JacksClubsBeforeHearts", BothJacksCard, {JH, JH + Second, JC, JC + Second}, JC}),
    [](const ::testing::TestParamInfo<PairCase>& info) { return info.param.name; });

TEST(RobotPairs, CopyInThePlayersHandBreaksThePair) {
    RobotTable table({AC});
    Card(table.hg.game, AC + Second).Place = PlacePlayerHand;
    EXPECT_EQ(BothAcesCard(table.hg.game), 0);
}

TEST(RobotMeldedCards, AreAsFreeToPlayAsTheOthers) {
    RobotTable table({KS, KS + Second, QS});
    Card(table.hg.game, KS).Melded = true;
    Card(table.hg.game, QS).Melded = true;
    table.hg.game.Leader = TheRobot;
    EXPECT_EQ(ChooseOpponentCard(table.hg.game), KS);
}

TEST(RobotChoice, NothingWhenNoGameIsOn) {
    RobotTable table({AC, AC + Second});
    table.hg.game.GameOn = false;
    table.hg.game.Leader = TheRobot;
    EXPECT_EQ(ChooseOpponentCard(table.hg.game), 0);
    EXPECT_TRUE(table.hg.table.Messages().empty());
}

TEST(RobotChoice, EmptyHandSaysSoInBothRoles) {
    for (const int leader : {TheRobot, ThePlayer}) {
        RobotTable table({});
        Game& g = table.hg.game;
        g.Leader = leader;
        g.LeadCard = AC;
        g.LeadSuit = Clubs;
        EXPECT_EQ(ChooseOpponentCard(g), 0);
        ASSERT_EQ(table.hg.table.Messages().size(), 1U);
        const MessageRecord& box = table.hg.table.Messages().front();
        EXPECT_EQ(box.kind, "plain");
        EXPECT_EQ(box.text, " If you can read this something wrong, has not found a card");
        EXPECT_EQ(box.title, "Trickhaven");
    }
}

}  // namespace
}  // namespace trickhaven
