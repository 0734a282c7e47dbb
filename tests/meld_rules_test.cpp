// What makes a meld and what it scores, for both sides: the rescoring of a
// run and a double, the flags that stop a second use, which of two like
// cards is taken, every refusal, and the two kinds of dix.
#include "melds/meld_rules.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

struct MeldTable : RoundOneTable {
    using RoundOneTable::RoundOneTable;
    void OpenOffer() {
        g.MeldAwaited = true;
        hg.table.SetControlVisible(TableControl::FramDeclare, true);
    }
    std::vector<int> Flagged(bool CardRec::*flag) const {
        std::vector<int> cards;
        for (int card = 1; card <= CardCount; ++card) {
            if (Card(g, card).*flag) cards.push_back(card);
        }
        return cards;
    }
    std::string LastMeldLabel(int who) const {
        return hg.table.Caption(who == ThePlayer ? TableLabel::LblLastMeldP
                                                 : TableLabel::LbllLastMeldC);
    }
};

using Meld = std::function<void(Game&, int)>;
const Meld kRun = [](Game& g, int who) { MeldRun(g, who); };
const Meld kDouble = [](Game& g, int who) { MeldDoublePinochle(g, who); };
const Meld kPinochle = [](Game& g, int who) { MeldPinochle(g, who); };
const Meld kDix = [](Game& g, int who) { MeldDix(g, who); };
Meld Fours(int value) {
    return [value](Game& g, int who) { MeldFours(g, who, value); };
}
Meld Marriage(int suit) {
    return [suit](Game& g, int who) { MeldMarriage(g, who, suit); };
}

struct ScoreCase {
    std::string name;
    int who;
    int trumps;
    std::vector<int> cards;
    std::vector<Meld> melds;
    std::vector<int> points;  // the last-meld label after each meld
};

class MeldScores : public ::testing::TestWithParam<ScoreCase> {};

TEST_P(MeldScores, EachMeldPostsItsPointsInOrder) {
    const ScoreCase& c = GetParam();
    MeldTable table(c.trumps);
    Game& g = table.g;
    table.Give(c.who, c.cards);
    int total = 0;
    for (std::size_t k = 0; k < c.melds.size(); ++k) {
        c.melds[k](g, c.who);
        EXPECT_TRUE(g.MeldDone) << "meld " << k;
        EXPECT_EQ(table.LastMeldLabel(c.who), std::to_string(c.points[k])) << "meld " << k;
        total += c.points[k];
    }
    const bool player = c.who == ThePlayer;
    EXPECT_EQ(player ? g.PlayerTotalMelds : g.OpponentTotalMelds, total);
    EXPECT_EQ(player ? g.PlayerTotal : g.OpponentTotal, total);
    EXPECT_EQ(player ? g.PlayerLastMeld : g.OpponentLastMeld, 0);
    EXPECT_EQ(
        table.hg.table.Caption(player ? TableLabel::LblTotalMeldsP : TableLabel::LblTotMeldsC),
        std::to_string(total));
    EXPECT_EQ(g.DelayMs, g.GameSpeed);
    EXPECT_TRUE(table.hg.table.Messages().empty());
}

const std::vector<int> kTrumpRun{AH, TH, KH, QH, JH};

INSTANTIATE_TEST_SUITE_P(
    Cases, MeldScores,
    ::testing::Values(
        ScoreCase{"RunAlone", ThePlayer, Hearts, kTrumpRun, {kRun}, {150}},
        ScoreCase{"RoyalMarriageThenRunLowersTheRun",
                  ThePlayer,
                  Hearts,
                  kTrumpRun,
                  {Marriage(Hearts), kRun},
                  {40, 110}},
        ScoreCase{"RunThenRoyalMarriageInFull",
                  ThePlayer,
                  Hearts,
                  kTrumpRun,
                  {kRun, Marriage(Hearts)},
                  {150, 40}},
        ScoreCase{"RunTakesTheFreeLaterKingAndQueen",
                  ThePlayer,
                  Hearts,
                  {AH, TH, KH, Second(KH), QH, Second(QH), JH},
                  {Marriage(Hearts), kRun},
                  {40, 150}},
        ScoreCase{"RunTakesAMarriedLaterKing",
                  ThePlayer,
                  Hearts,
                  {AH, TH, KH, Second(KH), QH, Second(QH), JH},
                  {Marriage(Hearts), Marriage(Hearts), kRun},
                  {40, 40, 110}},
        ScoreCase{"TwoRuns",
                  ThePlayer,
                  Hearts,
                  {AH, Second(AH), TH, Second(TH), KH, Second(KH), QH, Second(QH), JH, Second(JH)},
                  {kRun, kRun},
                  {150, 150}},
        ScoreCase{"PlainMarriage", ThePlayer, Hearts, {KC, QC}, {Marriage(Clubs)}, {20}},
        ScoreCase{"SingleThenDouble",
                  ThePlayer,
                  Hearts,
                  {JD1, JD2, QS1, QS2},
                  {kPinochle, kDouble},
                  {40, 460}},
        ScoreCase{"DoubleAlone", ThePlayer, Hearts, {JD1, JD2, QS1, QS2}, {kDouble}, {500}},
        ScoreCase{"EightAcesMakeTwoFours",
                  ThePlayer,
                  Hearts,
                  BothOfEachSuit(Ace),
                  {Fours(Ace), Fours(Ace)},
                  {100, 100}},
        ScoreCase{"QueenOfSpadesInSpadeTrumpsServesEveryMeld",
                  ThePlayer,
                  Spades,
                  {AS, TS, KS, QS1, JS, JD1},
                  {kPinochle, Marriage(Spades), kRun},
                  {40, 40, 110}},
        ScoreCase{"RobotRoyalMarriageThenRun",
                  TheRobot,
                  Hearts,
                  kTrumpRun,
                  {Marriage(Hearts), kRun},
                  {40, 110}},
        ScoreCase{"RobotSingleThenDouble",
                  TheRobot,
                  Hearts,
                  {JD1, JD2, QS1, QS2},
                  {kPinochle, kDouble},
                  {40, 460}}),
    [](const ::testing::TestParamInfo<ScoreCase>& info) { return info.param.name; });

struct TakenCase {
    std::string name;
    std::vector<int> cards;
    Meld meld;
    bool CardRec::*flag;
    std::vector<int> taken;
};

class LikeCardTaken : public ::testing::TestWithParam<TakenCase> {};

TEST_P(LikeCardTaken, MeldTakesTheNamedCopies) {
    const TakenCase& c = GetParam();
    MeldTable table(Hearts, Second(KD));
    table.Give(ThePlayer, c.cards);
    c.meld(table.g, ThePlayer);
    ASSERT_TRUE(table.g.MeldDone);
    EXPECT_EQ(table.Flagged(c.flag), c.taken);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LikeCardTaken,
    ::testing::Values(
        TakenCase{"RunTakesTheLastCopies",
                  {AH, Second(AH), TH, Second(TH), KH, Second(KH), QH, Second(QH), JH, Second(JH)},
                  kRun,
                  &CardRec::InRun,
                  {Second(AH), Second(TH), Second(KH), Second(QH), Second(JH)}},
        TakenCase{"FourTakesTheFirstCopies", BothOfEachSuit(Ace), Fours(Ace), &CardRec::InFourAces,
                  FirstOfEachSuit(Ace)},
        TakenCase{"MarriageTakesTheFirstCopies",
                  {KC, Second(KC), QC, Second(QC)},
                  Marriage(Clubs),
                  &CardRec::InMarriage,
                  {KC, QC}},
        TakenCase{"PinochleTakesTheFirstPair",
                  {JD1, JD2, QS1, QS2},
                  kPinochle,
                  &CardRec::InPinochle,
                  {JD1, QS1}},
        TakenCase{
            "PinochleWithTheSecondQueen", {JD1, QS2}, kPinochle, &CardRec::InPinochle, {JD1, QS2}},
        TakenCase{"PinochleWithTheSecondJack",
                  {JD2, QS1, QS2},
                  kPinochle,
                  &CardRec::InPinochle,
                  {JD2, QS1}},
        TakenCase{"DoubleTakesAllFour",
                  {JD1, JD2, QS1, QS2},
                  kDouble,
                  &CardRec::DoublePinochleDone,
                  {JD1, JD2, QS1, QS2}},
        TakenCase{"DixTakesTheFirstNine", {NH, Second(NH)}, kDix, &CardRec::DixSwapped, {NH}}),
    [](const ::testing::TestParamInfo<TakenCase>& info) { return info.param.name; });

TEST(MeldFlags, EachMeldMarksItsCardsAsTold) {
    MeldTable table;
    Game& g = table.g;
    table.Give(ThePlayer, {AH, TH, KH, QH, JH, JD1, JD2, QS1, QS2});
    MeldRun(g, ThePlayer);
    MeldDoublePinochle(g, ThePlayer);
    for (const int card : kTrumpRun) {
        const CardRec& rec = Card(g, card);
        EXPECT_TRUE(rec.Melded && rec.InRun && rec.RunDone) << card;
        EXPECT_FALSE(rec.InMarriage || rec.FoursDone || rec.InDoublePinochle) << card;
    }
    for (const int card : {JD1, JD2, QS1, QS2}) {
        const CardRec& rec = Card(g, card);
        EXPECT_TRUE(rec.Melded && rec.InDoublePinochle && rec.DoublePinochleMark &&
                    rec.DoublePinochleDone)
            << card;
        EXPECT_FALSE(rec.InPinochle) << card;
    }
    EXPECT_TRUE(g.PlayerDoublePinochleMade);
    EXPECT_FALSE(g.PlayerPinochleMade);
}

struct RefusalCase {
    std::string name;
    std::vector<int> cards;
    std::vector<Meld> before;  // melds made first, which must succeed
    Meld meld;
    std::string title;
    std::string button;
    std::string text;
};

class MeldRefused : public ::testing::TestWithParam<RefusalCase> {};

TEST_P(MeldRefused, PlayerIsToldAndNothingChanges) {
    const RefusalCase& c = GetParam();
    MeldTable table(Hearts, Second(NH));
    Game& g = table.g;
    table.Give(ThePlayer, c.cards);
    for (const Meld& meld : c.before) {
        table.OpenOffer();
        meld(g, ThePlayer);
        ASSERT_TRUE(g.MeldDone);
    }
    table.OpenOffer();
    std::vector<int> flags;
    for (int card = 0; card <= CardCount; ++card) flags.push_back(CardFlagBits(Card(g, card)));
    const std::int16_t totalBefore = g.PlayerTotalMelds;
    const std::size_t panelsBefore = table.hg.table.PanelHistory().size();
    const std::size_t boxesBefore = table.hg.table.Messages().size();
    g.MeldDone = false;

    c.meld(g, ThePlayer);

    EXPECT_FALSE(g.MeldDone);
    EXPECT_TRUE(g.MeldAwaited);
    EXPECT_TRUE(table.hg.table.IsControlVisible(TableControl::FramDeclare));
    ASSERT_EQ(table.hg.table.Messages().size(), boxesBefore + 1);
    const MessageRecord& box = table.hg.table.Messages().back();
    EXPECT_EQ(box.kind, "deluxe");
    EXPECT_EQ(box.title, c.title);
    EXPECT_EQ(box.buttons, (std::array<std::string, 3>{c.button, "", ""}));
    EXPECT_EQ(box.icon, 1);
    EXPECT_EQ(box.text, "Ada" + c.text);
    for (int card = 0; card <= CardCount; ++card) {
        EXPECT_EQ(CardFlagBits(Card(g, card)), flags[static_cast<std::size_t>(card)]) << card;
    }
    EXPECT_EQ(g.PlayerTotalMelds, totalBefore);
    EXPECT_EQ(table.hg.table.PanelHistory().size(), panelsBefore);
    EXPECT_EQ(g.DelayMs, g.GameSpeed);
}

const std::string kNoSuitText = " of that suit. Please try again or click Cancel to receive a card";

INSTANTIATE_TEST_SUITE_P(
    Cases, MeldRefused,
    ::testing::Values(
        RefusalCase{"NoRun",
                    {AH, TH, KH, QH},
                    {},
                    kRun,
                    "No Run",
                    "Oh Dear",
                    " sorry, you do appear to have a run.Please try again, or Cancel to receive a "
                    "card."},
        RefusalCase{"RunCardsAlreadyInARun",
                    kTrumpRun,
                    {kRun},
                    kRun,
                    "No Run",
                    "Oh Dear",
                    " sorry, you do appear to have a run.Please try again, or Cancel to receive a "
                    "card."},
        RefusalCase{"NoDiamondAce",
                    {},
                    {},
                    Fours(Ace),
                    "No Diamond",
                    "Oh Dear",
                    " sorry, you do not appear to have a Diamond" + kNoSuitText},
        RefusalCase{"NoClubKing",
                    {KD},
                    {},
                    Fours(King),
                    "No Club",
                    "Oh Dear",
                    " sorry, you do not appear to have a Club" + kNoSuitText},
        RefusalCase{"NoHeartQueen",
                    {QD, QC, CardIndex(Queen, Spades)},
                    {},
                    Fours(Queen),
                    "No Heart",
                    "Oh Dear",
                    " sorry, you do not appear to have a Heart" + kNoSuitText},
        RefusalCase{"NoSpadeJack",
                    {CardIndex(Jack, Diamonds), CardIndex(Jack, Clubs), JH},
                    {},
                    Fours(Jack),
                    "No Spade",
                    "Oh Dear",
                    " sorry, you do not appear to have a Spade" + kNoSuitText},
        RefusalCase{"KingsAlreadyInAFour",
                    FirstOfEachSuit(King),
                    {Fours(King)},
                    Fours(King),
                    "No Diamond",
                    "Oh Dear",
                    " sorry, you do not appear to have a Diamond" + kNoSuitText},
        RefusalCase{"DoubleAlreadyMade",
                    {JD1, JD2, QS1, QS2},
                    {kDouble},
                    kDouble,
                    "Already Melded",
                    "Right",
                    " you have already melded a Double Pinochle. Please try again or click cancel "
                    "to receive another card."},
        RefusalCase{"NoDouble",
                    {JD1, QS1, QS2},
                    {},
                    kDouble,
                    "No Double Pinochle",
                    "Oh Dear",
                    " sorry, you do not have a Double Pinochle. Try again or click Cancel to "
                    "receive a card"},
        RefusalCase{"PinochleAlreadyMade",
                    {JD1, QS1},
                    {kPinochle},
                    kPinochle,
                    "Already Melded",
                    "Right",
                    " you have already melded a Pinochle. Please try again or click cancel to "
                    "receive another card."},
        RefusalCase{"PinochleAfterDouble",
                    {JD1, JD2, QS1, QS2},
                    {kDouble},
                    kPinochle,
                    "Already Melded",
                    "Right",
                    " you have already melded a Pinochle. Please try again or click cancel to "
                    "receive another card."},
        RefusalCase{"NoPinochle",
                    {JD1, JD2},
                    {},
                    kPinochle,
                    " No Pinochle",
                    "Oh Dear",
                    " sorry, you do not have a Single Pinochle. Make different Meld or click "
                    "Cancel to receive card."},
        RefusalCase{"NoKing",
                    {QC},
                    {},
                    Marriage(Clubs),
                    "No King.",
                    "Oh Dear",
                    " sorry, you do not appear to have a King" + kNoSuitText},
        RefusalCase{"NoQueen",
                    {KC},
                    {},
                    Marriage(Clubs),
                    "No Queen.",
                    "Oh Dear",
                    " sorry, you do not appear to have a Queen" + kNoSuitText},
        RefusalCase{"PairAlreadyMarried",
                    {KC, QC},
                    {Marriage(Clubs)},
                    Marriage(Clubs),
                    "No King.",
                    "Oh Dear",
                    " sorry, you do not appear to have a King" + kNoSuitText},
        RefusalCase{"NoNine",
                    {NC},
                    {},
                    kDix,
                    "No Nine",
                    "Right",
                    " sorry, you do not have a Nine to Dix. Please try again or click Cancel to "
                    "receive a new card"},
        RefusalCase{"NineAlreadyDixed",
                    {NH},
                    {kDix},
                    kDix,
                    "No Nine",
                    "Right",
                    " sorry, you do not have a Nine to Dix. Please try again or click Cancel to "
                    "receive a new card"}),
    [](const ::testing::TestParamInfo<RefusalCase>& info) { return info.param.name; });

TEST(MeldDoublePinochle, FailedAttemptStillPostsZeroToTheLastMeld) {
    for (const int who : {ThePlayer, TheRobot}) {
        MeldTable table;
        Game& g = table.g;
        table.Give(who, {JD1, QS1});
        MeldPinochle(g, who);
        ASSERT_EQ(table.LastMeldLabel(who), "40");
        MeldDoublePinochle(g, who);
        EXPECT_FALSE(g.MeldDone);
        EXPECT_EQ(table.LastMeldLabel(who), "0") << who;
        EXPECT_EQ(who == ThePlayer ? g.PlayerTotalMelds : g.OpponentTotalMelds, 40) << who;
        EXPECT_EQ(table.hg.table.Messages().size(), who == ThePlayer ? 1U : 0U);
    }
}

struct DixSide {
    int who;
    int handPlace;
    int tableTop;
};

class DixExchange : public ::testing::TestWithParam<DixSide> {};

TEST_P(DixExchange, NineBecomesTheUpCardAndTheOldUpCardJoinsTheHand) {
    const DixSide& side = GetParam();
    MeldTable table(Hearts, KH);
    Game& g = table.g;
    table.Give(side.who, {NH, AS});
    table.OpenOffer();
    const std::int32_t start = table.hg.platform.TickCount();

    MeldDix(g, side.who);

    ASSERT_TRUE(g.MeldDone);
    EXPECT_EQ(g.UpCard, NH);
    EXPECT_EQ(g.TrumpSuit, Hearts);
    const CardRec& nine = Card(g, NH);
    EXPECT_EQ(nine.Place, PlaceUpCard);
    EXPECT_TRUE(nine.DixSwapped);
    EXPECT_FALSE(nine.Melded || nine.DixDone || nine.DixOnTable);
    EXPECT_EQ(Card(g, KH).Place, side.handPlace);
    EXPECT_FALSE(Card(g, KH).Melded);
    const CardPicture& upPicture = table.hg.table.Picture(NH);
    EXPECT_EQ(upPicture.left, 100);
    EXPECT_EQ(upPicture.top, 100);
    EXPECT_EQ(upPicture.image, NH);
    // The stock is laid over the new up card.
    EXPECT_GT(table.hg.table.Picture(1).z, upPicture.z);
    // The old up card lies in its new owner's row.
    EXPECT_EQ(table.hg.table.Picture(KH).top, side.tableTop);
    EXPECT_EQ(table.LastMeldLabel(side.who), "10");
    const std::string name = side.who == ThePlayer ? "Ada" : "Lorinda";
    EXPECT_EQ(table.hg.table.PanelText(2), name + " melded Dix for 10 points.");
    EXPECT_EQ(g.DelayMs, g.GameSpeed);
    EXPECT_EQ(table.hg.platform.TickCount() - start, g.GameSpeed + 1000);
    // Only the player's offer ends with the dix.
    EXPECT_EQ(g.MeldAwaited, side.who != ThePlayer);
    EXPECT_EQ(table.hg.table.IsControlVisible(TableControl::FramDeclare), side.who != ThePlayer);
    if (side.who == TheRobot) {
        EXPECT_EQ(table.hg.table.Picture(KH).image, CardBackImage);
    }
}

INSTANTIATE_TEST_SUITE_P(Sides, DixExchange,
                         ::testing::Values(DixSide{ThePlayer, PlacePlayerHand, 10080},
                                           DixSide{TheRobot, PlaceOpponentHand, 120}));

struct TableDixCase {
    std::string name;
    int who;
    int upCard;
    int upCardPlace;
    int trickCount;
    int top;
    std::int32_t elapsed;
};

class DixOnTheTable : public ::testing::TestWithParam<TableDixCase> {};

TEST_P(DixOnTheTable, NineLiesBesideTheMeldsAndTheUpCardStays) {
    const TableDixCase& c = GetParam();
    MeldTable table(Hearts, c.upCard);
    Game& g = table.g;
    Card(g, c.upCard).Place = c.upCardPlace;
    g.TrickCount = c.trickCount;
    table.Give(c.who, {NH});
    const std::int32_t start = table.hg.platform.TickCount();

    MeldDix(g, c.who);

    ASSERT_TRUE(g.MeldDone);
    EXPECT_EQ(g.UpCard, c.upCard);
    EXPECT_EQ(Card(g, c.upCard).Place, c.upCardPlace);
    const CardRec& nine = Card(g, NH);
    EXPECT_EQ(nine.Place, HandPlace(c.who));
    EXPECT_TRUE(nine.Melded && nine.DixOnTable && nine.DixDone);
    EXPECT_FALSE(nine.DixSwapped);
    EXPECT_EQ(table.hg.table.Picture(NH).left, 8820);
    EXPECT_EQ(table.hg.table.Picture(NH).top, c.top);
    if (c.who == TheRobot) {
        EXPECT_EQ(table.hg.table.Picture(NH).image, NH);
    }
    EXPECT_EQ(table.LastMeldLabel(c.who), "10");
    EXPECT_EQ(table.hg.table.PanelText(2),
              (c.who == ThePlayer ? "Ada" : "Lorinda") + std::string(" melded Dix for 10 points"));
    EXPECT_EQ(table.hg.platform.TickCount() - start, c.elapsed);
    EXPECT_EQ(g.DelayMs, g.GameSpeed);
}

// The staging row waits twice at GameSpeed + 250; the player's dix waits once
// more at GameSpeed.
INSTANTIATE_TEST_SUITE_P(
    Cases, DixOnTheTable,
    ::testing::Values(
        TableDixCase{"PlayerWithANineTurnedUp", ThePlayer, Second(NH), PlaceUpCard, 4, 8400, 800},
        TableDixCase{"RobotWithANineTurnedUp", TheRobot, Second(NH), PlaceUpCard, 4, 3000, 700},
        TableDixCase{"PlayerAfterTheRobotTookTheUpCard", ThePlayer, KH, PlaceOpponentHand, 12, 8400,
                     800},
        TableDixCase{"RobotAfterThePlayerTookTheUpCard", TheRobot, KH, PlacePlayerHand, 12, 3000,
                     700}),
    [](const ::testing::TestParamInfo<TableDixCase>& info) { return info.param.name; });

TEST(MeldDix, BothNinesExchangeFirstThenGoToTheTable) {
    MeldTable table(Hearts, KH);
    Game& g = table.g;
    table.Give(ThePlayer, {NH, Second(NH)});
    MeldDix(g, ThePlayer);
    ASSERT_EQ(g.UpCard, NH);
    MeldDix(g, ThePlayer);
    ASSERT_TRUE(g.MeldDone);
    EXPECT_EQ(g.UpCard, NH);
    EXPECT_TRUE(Card(g, Second(NH)).DixOnTable);
    EXPECT_EQ(Card(g, Second(NH)).Place, PlacePlayerHand);
    EXPECT_EQ(g.PlayerTotalMelds, 20);
    // The exchanged nine, should it come back to a hand, can be melded again.
    Card(g, NH).Place = PlacePlayerHand;
    g.UpCard = Second(KH);
    Card(g, g.UpCard).Place = PlaceUpCard;
    MeldDix(g, ThePlayer);
    EXPECT_TRUE(g.MeldDone);
    EXPECT_EQ(g.PlayerTotalMelds, 30);
}

TEST(MeldDix, NineTurnedUpAtTheDealCannotBeMelded) {
    MeldTable table(Hearts, NH);
    Game& g = table.g;
    // Taken into the robot's hand with the last pair, it keeps its Melded.
    Card(g, NH).Place = PlaceOpponentHand;
    Card(g, NH).Melded = true;
    g.TrickCount = 12;
    MeldDix(g, TheRobot);
    EXPECT_FALSE(g.MeldDone);
    EXPECT_EQ(g.OpponentTotalMelds, 0);
}

class RobotMeldRoutine : public ::testing::TestWithParam<int> {};

// Six routines, each tried with nothing to meld and with everything.
const std::vector<Meld> kEveryMeld{kRun, Fours(Queen), kDouble, kPinochle, Marriage(Spades), kDix};

TEST_P(RobotMeldRoutine, NeverOpensAMessageNorTouchesTheOffer) {
    const Meld& meld = kEveryMeld.at(static_cast<std::size_t>(GetParam()));
    for (const bool holds : {false, true}) {
        MeldTable table(Spades, KH);
        Game& g = table.g;
        if (holds) {
            table.Give(TheRobot, {AS, TS, KS, QS1, JS, JD1, JD2, QS2, CardIndex(Nine, Spades)});
            table.Give(TheRobot, {QD, QC, QH});
        }
        table.OpenOffer();
        meld(g, TheRobot);
        EXPECT_EQ(g.MeldDone, holds);
        EXPECT_TRUE(table.hg.table.Messages().empty());
        EXPECT_TRUE(g.MeldAwaited);
        EXPECT_EQ(g.PlayerTotalMelds, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(EveryRoutine, RobotMeldRoutine, ::testing::Range(0, 6));

TEST(RobotMelds, RunAndFoursHideTheDeclarePanelWhoeverMelds) {
    for (const Meld& meld : {kRun, Fours(King)}) {
        MeldTable table;
        table.Give(TheRobot, kTrumpRun);
        table.Give(TheRobot, FirstOfEachSuit(King));
        table.OpenOffer();
        meld(table.g, TheRobot);
        ASSERT_TRUE(table.g.MeldDone);
        EXPECT_FALSE(table.hg.table.IsControlVisible(TableControl::FramDeclare));
    }
}

TEST(MeldStatus, EachMeldWritesItsLineAndAMarriageNone) {
    MeldTable table;
    Game& g = table.g;
    table.Give(ThePlayer, {JD1, JD2, QS1, QS2, KC, QC});
    table.Give(ThePlayer, FirstOfEachSuit(Ace));
    MeldPinochle(g, ThePlayer);
    EXPECT_EQ(table.hg.table.PanelText(2), "Ada scores 40 for Single Pinochle");
    MeldDoublePinochle(g, ThePlayer);
    EXPECT_EQ(table.hg.table.PanelText(2), "Ada scores 460 for Double Pin ");
    MeldFours(g, ThePlayer, Ace);
    EXPECT_EQ(table.hg.table.PanelText(2), "Ada scores 100 for 4 Aces");
    MeldMarriage(g, ThePlayer, Clubs);
    EXPECT_EQ(table.hg.table.PanelText(2), "Ada scores 100 for 4 Aces");
}

}  // namespace
}  // namespace trickhaven
