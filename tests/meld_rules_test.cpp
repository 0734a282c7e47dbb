// What makes a meld and what it scores: the rescoring of a run and a double,
// the flags that stop a second use, which of two like cards is taken, every
// refusal, and the two kinds of dix.
#include "melds/meld_rules.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <ostream>
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
    std::string LastMeldLabel(int who) const {
        return hg.table.Caption(who == ThePlayer ? TableLabel::LblLastMeldP
                                                 : TableLabel::LbllLastMeldC);
    }
};

using Meld = std::function<void(Game&, int)>;
const Meld kRun = MeldRun, kDouble = MeldDoublePinochle, kPinochle = MeldPinochle, kDix = MeldDix;
Meld Fours(int value) {
    return [value](Game& g, int who) { MeldFours(g, who, value); };
}
Meld Marriage(int suit) {
    return [suit](Game& g, int who) { MeldMarriage(g, who, suit); };
}
const Meld kRoyal = Marriage(Hearts);
// A heart run with a spare King and Queen.
const std::vector<int> kRunAndPair{AH, TH, KH, Second(KH), QH, Second(QH), JH};

void PrintCards(const std::vector<int>& cards, std::ostream* out) {
    for (const int card : cards) *out << card << ' ';
}

struct ScoreCase {
    int trumps;
    std::vector<Meld> melds;
    std::vector<int> cards, points;  // points: the last-meld label after each meld
};
// Cases print as what they are about, not as bytes, in the test names.
void PrintTo(const ScoreCase& c, std::ostream* out) {
    *out << "points ";
    PrintCards(c.points, out);
}

class MeldScores : public ::testing::TestWithParam<ScoreCase> {};

TEST_P(MeldScores, EachMeldPostsItsPointsInOrder) {
    const ScoreCase& c = GetParam();
    MeldTable table(c.trumps);
    Game& g = table.g;
    table.Give(ThePlayer, c.cards);
    int total = 0;
    for (std::size_t k = 0; k < c.melds.size(); ++k) {
        c.melds[k](g, ThePlayer);
        EXPECT_TRUE(g.MeldDone) << "meld " << k;
        EXPECT_EQ(table.LastMeldLabel(ThePlayer), std::to_string(c.points[k])) << "meld " << k;
        total += c.points[k];
    }
    EXPECT_EQ(g.PlayerTotalMelds, total);
    EXPECT_TRUE(table.hg.table.Messages().empty());
}

// A run whose King or Queen a royal marriage already scored gets 110; a
// double after the single gets 460.
INSTANTIATE_TEST_SUITE_P(
    Cases, MeldScores,
    ::testing::Values(
        ScoreCase(Hearts, {kRun, kRun}, BothCopies(kHeartRun), {150, 150}),
        ScoreCase(Hearts, {kRoyal, kRun}, kHeartRun, {40, 110}),
        ScoreCase(Hearts, {kRun, kRoyal}, kHeartRun, {150, 40}),
        ScoreCase(Hearts, {kRoyal, kRun}, kRunAndPair, {40, 150}),
        ScoreCase(Hearts, {kRoyal, kRun}, {AH, TH, KH, Second(KH), QH, JH}, {40, 110}),
        ScoreCase(Hearts, {kRoyal, kRun}, {AH, TH, KH, QH, Second(QH), JH}, {40, 110}),
        ScoreCase(Hearts, {kRoyal, kRoyal, kRun}, kRunAndPair, {40, 40, 110}),
        ScoreCase(Hearts, {Marriage(Clubs)}, {KC, QC}, {20}),
        ScoreCase(Hearts, {kPinochle, kDouble}, kPinochleCards, {40, 460}),
        ScoreCase(Hearts, {kDouble}, kPinochleCards, {500}),
        ScoreCase(Hearts, {Fours(Ace), Fours(Ace)}, BothOfEachSuit(Ace), {100, 100}),
        ScoreCase(Spades, {kPinochle, Marriage(Spades), kRun}, {AS, TS, KS, QS1, JS, JD1},
                  {40, 40, 110})));

struct TakenCase {
    Meld meld;
    bool CardRec::*flag;
    std::vector<int> cards, taken;
};
void PrintTo(const TakenCase& c, std::ostream* out) {
    *out << "takes ";
    PrintCards(c.taken, out);
}

class LikeCardTaken : public ::testing::TestWithParam<TakenCase> {};

TEST_P(LikeCardTaken, MeldTakesTheNamedCopies) {
    const TakenCase& c = GetParam();
    MeldTable table(Hearts, Second(KD));
    table.Give(ThePlayer, c.cards);
    c.meld(table.g, ThePlayer);
    std::vector<int> flagged;
    for (int card = 1; card <= CardCount; ++card) {
        if (Card(table.g, card).*c.flag) flagged.push_back(card);
    }
    EXPECT_EQ(flagged, c.taken);
}

// The run takes the later copy, every other meld the earlier.
INSTANTIATE_TEST_SUITE_P(
    Cases, LikeCardTaken,
    ::testing::Values(
        TakenCase(kRun, &CardRec::RunDone, kRunAndPair, {AH, TH, Second(KH), Second(QH), JH}),
        TakenCase(Fours(Ace), &CardRec::InFourAces, BothOfEachSuit(Ace), FirstOfEachSuit(Ace)),
        TakenCase(Marriage(Clubs), &CardRec::InMarriage, {KC, Second(KC), QC, Second(QC)},
                  {KC, QC}),
        TakenCase(kPinochle, &CardRec::InPinochle, kPinochleCards, {JD1, QS1}),
        TakenCase(kPinochle, &CardRec::InPinochle, {JD1, QS2}, {JD1, QS2}),
        TakenCase(kPinochle, &CardRec::InPinochle, {JD2, QS1, QS2}, {JD2, QS1}),
        TakenCase(kDix, &CardRec::DixSwapped, {NH, Second(NH)}, {NH})));

struct RefusalCase {
    std::vector<int> cards;
    std::vector<Meld> before;  // melds made first, which must succeed
    Meld meld;
    std::string title, button, text;
};
void PrintTo(const RefusalCase& c, std::ostream* out) {
    *out << '"' << c.title << '"';
}

class MeldRefused : public ::testing::TestWithParam<RefusalCase> {};

TEST_P(MeldRefused, PlayerIsToldAndNothingChanges) {
    const RefusalCase& c = GetParam();
    MeldTable table(Hearts, Second(NH));
    Game& g = table.g;
    table.Give(ThePlayer, c.cards);
    for (const Meld& meld : c.before) {
        meld(g, ThePlayer);
        ASSERT_TRUE(g.MeldDone) << c.title;
    }
    table.OpenOffer();
    std::vector<int> flags;
    for (int card = 1; card <= CardCount; ++card) flags.push_back(CardFlagBits(Card(g, card)));
    const int total = g.PlayerTotalMelds;
    const std::size_t panels = table.hg.table.PanelHistory().size();
    g.MeldDone = false;

    c.meld(g, ThePlayer);

    EXPECT_FALSE(g.MeldDone);
    EXPECT_TRUE(g.MeldAwaited);
    EXPECT_TRUE(table.hg.table.IsControlVisible(TableControl::FramDeclare));
    ASSERT_EQ(table.hg.table.Messages().size(), 1U);
    const MessageRecord& box = table.hg.table.Messages().back();
    EXPECT_EQ(box.kind, "deluxe");
    EXPECT_EQ(box.icon, 1);
    EXPECT_EQ(box.title, c.title);
    EXPECT_EQ(box.buttons, (std::array<std::string, 3>{c.button, "", ""}));
    EXPECT_EQ(box.text, "Ada" + c.text);
    for (int card = 1; card <= CardCount; ++card) {
        EXPECT_EQ(CardFlagBits(Card(g, card)), flags[static_cast<std::size_t>(card - 1)]) << card;
    }
    EXPECT_EQ(g.PlayerTotalMelds, total);
    EXPECT_EQ(table.hg.table.PanelHistory().size(), panels);
    EXPECT_EQ(g.DelayMs, g.GameSpeed);
}

std::string NoneOf(const std::string& what) {
    return " sorry, you do not appear to have a " + what +
           " of that suit. Please try again or click Cancel to receive a card";
}
std::string Already(const std::string& what) {
    return " you have already melded a " + what +
           ". Please try again or click cancel to receive another card.";
}

// The second of two melds is refused when the first holds a card it needs.
INSTANTIATE_TEST_SUITE_P(
    Cases, MeldRefused,
    ::testing::Values(
        RefusalCase({AH, TH, KH, QH, JH, Second(AH), Second(TH), Second(KH), Second(QH)}, {kRun},
                    kRun, "No Run", "Oh Dear",
                    " sorry, you do appear to have a run.Please try again, or Cancel to receive a "
                    "card."),
        RefusalCase({}, {}, Fours(Ace), "No Diamond", "Oh Dear", NoneOf("Diamond")),
        RefusalCase({KD, KC, KH, KS, Second(KD)}, {Fours(King)}, Fours(King), "No Club", "Oh Dear",
                    NoneOf("Club")),
        RefusalCase({QD, QC, QS1}, {}, Fours(Queen), "No Heart", "Oh Dear", NoneOf("Heart")),
        RefusalCase({JD1, CardIndex(Jack, Clubs), JH}, {}, Fours(Jack), "No Spade", "Oh Dear",
                    NoneOf("Spade")),
        RefusalCase(kPinochleCards, {kDouble}, kDouble, "Already Melded", "Right",
                    Already("Double Pinochle")),
        RefusalCase({JD1, QS1, QS2}, {}, kDouble, "No Double Pinochle", "Oh Dear",
                    " sorry, you do not have a Double Pinochle. Try again or click Cancel to "
                    "receive a card"),
        RefusalCase(kPinochleCards, {kPinochle}, kPinochle, "Already Melded", "Right",
                    Already("Pinochle")),
        RefusalCase(kPinochleCards, {kDouble}, kPinochle, "Already Melded", "Right",
                    Already("Pinochle")),
        RefusalCase({JD1, JD2}, {}, kPinochle, " No Pinochle", "Oh Dear",
                    " sorry, you do not have a Single Pinochle. Make different Meld or click "
                    "Cancel to receive card."),
        RefusalCase({KC, QC}, {Marriage(Clubs)}, Marriage(Clubs), "No King.", "Oh Dear",
                    NoneOf("King")),
        RefusalCase({KC}, {}, Marriage(Clubs), "No Queen.", "Oh Dear", NoneOf("Queen")),
        RefusalCase({NH, NC}, {kDix}, kDix, "No Nine", "Right",
                    " sorry, you do not have a Nine to Dix. Please try again or click Cancel to "
                    "receive a new card")));

struct DixCase {
    int who, upCard, upCardPlace, trick;
    bool exchange;
    int top, elapsed;  // top: of the old up card in the hand, or of the nine on the table
};
void PrintTo(const DixCase& c, std::ostream* out) {
    *out << (c.who == ThePlayer ? "player" : "robot")
         << (c.exchange ? " exchanges" : " on the table") << " in trick " << c.trick;
}

class DixMeld : public ::testing::TestWithParam<DixCase> {};

TEST_P(DixMeld, NineTakesTheUpCardOrLiesOnTheTable) {
    const DixCase& c = GetParam();
    MeldTable table(Hearts, c.upCard, c.trick);
    Game& g = table.g;
    Card(g, c.upCard).Place = c.upCardPlace;
    table.Give(c.who, {NH, AS});
    table.OpenOffer();

    MeldDix(g, c.who);

    ASSERT_TRUE(g.MeldDone);
    EXPECT_EQ(table.LastMeldLabel(c.who), "10");
    EXPECT_EQ(table.hg.table.PanelText(2), (c.who == ThePlayer ? "Ada" : "Lorinda") +
                                               std::string(" melded Dix for 10 points") +
                                               (c.exchange ? "." : ""));
    EXPECT_EQ(table.hg.platform.TickCount(), c.elapsed);
    EXPECT_EQ(g.DelayMs, g.GameSpeed);
    // Only the player's offer ends with the dix.
    EXPECT_EQ(g.MeldAwaited, c.who == TheRobot);
    EXPECT_EQ(table.hg.table.IsControlVisible(TableControl::FramDeclare), c.who == TheRobot);
    const CardRec& nine = Card(g, NH);
    const CardPicture& picture = table.hg.table.Picture(NH);
    if (c.exchange) {
        EXPECT_EQ(g.UpCard, NH);
        EXPECT_EQ(nine.Place, PlaceUpCard);
        EXPECT_TRUE(nine.DixSwapped);
        EXPECT_FALSE(nine.Melded || nine.DixDone || nine.DixOnTable);
        EXPECT_EQ(Card(g, c.upCard).Place, HandPlace(c.who));
        EXPECT_EQ(std::make_pair(picture.left, picture.top), std::make_pair(100, 100));
        if (c.who == TheRobot) {
            EXPECT_EQ(picture.image, NH);
        }
        EXPECT_GT(table.hg.table.Picture(1).z, picture.z);  // the stock lies over it
        EXPECT_EQ(table.hg.table.Picture(c.upCard).top, c.top);
        EXPECT_EQ(table.hg.table.Picture(c.upCard).image,
                  c.who == TheRobot ? CardBackImage : c.upCard);
    } else {
        EXPECT_EQ(g.UpCard, c.upCard);
        EXPECT_EQ(Card(g, c.upCard).Place, c.upCardPlace);
        EXPECT_EQ(nine.Place, HandPlace(c.who));
        EXPECT_TRUE(nine.Melded && nine.DixOnTable && nine.DixDone);
        EXPECT_FALSE(nine.DixSwapped);
        EXPECT_EQ(std::make_pair(picture.left, picture.top), std::make_pair(8820, c.top));
        if (c.who == TheRobot) {
            EXPECT_EQ(picture.image, NH);
        }
    }
}

// After trick 12 the up card lies in a hand and the nine goes to the table.
INSTANTIATE_TEST_SUITE_P(
    Cases, DixMeld,
    ::testing::Values(DixCase{ThePlayer, KH, PlaceUpCard, 4, true, 10080, 1100},
                      DixCase{TheRobot, KH, PlaceUpCard, 4, true, 120, 1100},
                      DixCase{ThePlayer, Second(NH), PlaceUpCard, 4, false, 8400, 800},
                      DixCase{TheRobot, Second(NH), PlaceUpCard, 4, false, 3000, 700},
                      DixCase{ThePlayer, KH, PlaceOpponentHand, 12, false, 8400, 800},
                      DixCase{TheRobot, KH, PlacePlayerHand, 12, false, 3000, 700}));

TEST(MeldDix, SecondNineGoesToTheTableAndAnExchangedNineCountsAgain) {
    MeldTable table(Hearts, KH);
    Game& g = table.g;
    table.Give(ThePlayer, {NH, Second(NH)});
    MeldDix(g, ThePlayer);
    MeldDix(g, ThePlayer);
    EXPECT_EQ(g.UpCard, NH);
    EXPECT_TRUE(Card(g, Second(NH)).DixOnTable);
    EXPECT_EQ(g.PlayerTotalMelds, 20);
    Card(g, NH).Place = PlacePlayerHand;
    g.UpCard = Second(KH);
    Card(g, g.UpCard).Place = PlaceUpCard;
    MeldDix(g, ThePlayer);
    EXPECT_EQ(g.PlayerTotalMelds, 30);
}

TEST(MeldDix, NineTurnedUpAtTheDealCannotBeMelded) {
    MeldTable table(Hearts, NH, 12);
    Game& g = table.g;
    // Taken into the robot's hand with the last pair, it keeps its Melded.
    Card(g, NH).Place = PlaceOpponentHand;
    Card(g, NH).Melded = true;
    MeldDix(g, TheRobot);
    EXPECT_FALSE(g.MeldDone);
    EXPECT_EQ(g.OpponentTotalMelds, 0);
}

TEST(MeldStatus, EachMeldWritesItsLineAndAFailedDoublePostsZero) {
    MeldTable table;
    Game& g = table.g;
    table.Give(ThePlayer, {JD1, QS1, KC, QC});
    table.Give(ThePlayer, FirstOfEachSuit(Ace));
    MeldPinochle(g, ThePlayer);
    EXPECT_EQ(table.hg.table.PanelText(2), "Ada scores 40 for Single Pinochle");
    MeldDoublePinochle(g, ThePlayer);
    EXPECT_EQ(table.LastMeldLabel(ThePlayer), "0");
    table.Give(ThePlayer, {JD2, QS2});
    MeldDoublePinochle(g, ThePlayer);
    EXPECT_EQ(table.hg.table.PanelText(2), "Ada scores 460 for Double Pin ");
    MeldFours(g, ThePlayer, Ace);
    EXPECT_EQ(table.hg.table.PanelText(2), "Ada scores 100 for 4 Aces");
    MeldMarriage(g, ThePlayer, Clubs);
    EXPECT_EQ(table.hg.table.PanelText(2), "Ada scores 100 for 4 Aces");
    EXPECT_EQ(g.PlayerTotalMelds, 620);
}

}  // namespace
}  // namespace trickhaven
