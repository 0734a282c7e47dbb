// What makes a meld and what it scores: the cards each meld takes and the
// flags it leaves on them, the points and the status line, the rescoring of
// a run and a double, every refusal, and the two kinds of dix. Where melded
// cards lie and at what pace they get there: the staging row, the rows of
// each kind for both sides, the dix, and the hand around them; and the
// player's meld offer: the two panels, one meld per offer, refusals that keep
// it open, and Cancel.
#include "melds/meld_rows.h"

#include <gtest/gtest.h>

#include <tuple>

#include "melds/meld_offer.h"
#include "melds/meld_rules.h"
#include "table/deal.h"
#include "table/hand_rows.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

struct RowCase {
    const char* name;
    int who, upCard;
    std::vector<int> cards;
    std::vector<Meld> melds;
    std::vector<int> watched;
    std::string seen;
    friend void PrintTo(const RowCase& c, std::ostream* out) { *out << c.name; }
};

class MeldLaidOut : public ::testing::TestWithParam<RowCase> {};

// The hand is laid first, as in play.
TEST_P(MeldLaidOut, CardsFlyToTheStagingRowThenIntoTheirRow) {
    const RowCase& c = GetParam();
    RoundOneTable table(Hearts, c.upCard, 5);
    Game& g = table.g;
    table.Give(c.who, c.cards);
    ShowStock(g);
    c.who == ThePlayer ? RedrawHand(g) : ShowOpponentHand(g);
    for (std::size_t k = 0; k + 1 < c.melds.size(); ++k) c.melds[k](g, c.who);
    Watch watch(table.hg, c.watched.empty() ? c.cards : c.watched);
    c.melds.back()(g, c.who);
    EXPECT_EQ(watch.End(), c.seen);
}

// The Queen of Hearts played from her row to a trick; a King of the player's
// lying in a run, a four and a marriage, which no row of the robot's takes.
constexpr int AC = CardIndex(Ace, Clubs);
const Meld kOthersKing = [](Game& g, int) {
    CardRec& king = Card(g, Second(KD));
    king.Place = PlacePlayerHand;
    king.InRun = king.InFourKings = king.InMarriage = true;
};
const Meld kPlayQH = [](Game& g, int) { Card(g, QH).Place = PlacePlayed; };

// The last meld is watched; the cards watched are those given unless named.
INSTANTIATE_TEST_SUITE_P(
    Rows, MeldLaidOut,
    ::testing::Values(
        RowCase(
            "RobotSecondRun", TheRobot, Second(NH), BothCopies(kHeartRun),
            {kRun, kOthersKing, kRun}, {AH, TH, KH, QH, JH, Second(AH)},
            " 27@3130,120 29@3380,120 31@3630,120 33@3600,1680#33^*+350+350 "
            "31@4680,1680#31^*+350+350 29@5760,1680#29^*+350+350 27@6840,1680#27^*+350+350 "
            "25@7920,1680#25^*+350+350 25@2000,2250+100 26@2330,2250^+100 27@2660,2250^+100+100 "
            "29@3320,2250^+100+100 31@3980,2250^+100+100 33@4640,2250^+100+100+300"),
        RowCase("RobotKingsAfterAces", TheRobot, Second(NH), {KD, KC, KH, KS, AD, AC, AH, AS, NC},
                {Fours(Ace), kOthersKing, Fours(King)}, {},
                " 5@3600,1680#5^*+350+350 17@4680,1680#17^*+350+350 29@5760,1680#29^*+350+350 "
                "41@6840,1680#41^*+350+350 5@2000,3450 17@2330,3450 29@2660,3450 41@2990,3450 "
                "1@3320,3450 13@3650,3450 25@3980,3450 37@4310,3450^+300 23@2880,120^"),
        RowCase("RobotMarriageBesidePlayedQueen", TheRobot, Second(NH), {KC, QC, KH, QH, NC},
                {Marriage(Hearts), kPlayQH, kOthersKing, Marriage(Clubs)}, {},
                " 19@3600,1680#19^*+350+350 17@4680,1680#17^*+350+350 17@2000,4650+100 "
                "19@2350,4650^+100 29@2700,4650^+100+300 23@2880,120^"),
        RowCase("RobotPinochle", TheRobot, Second(NH), {JD1, QS1, NC}, {kPinochle}, {},
                " 9@3600,1680#9^*+350+350 43@4680,1680#43^*+350+350 9@5610,2250 43@5960,2250+300"),
        RowCase("RobotDoubleAfterSingle", TheRobot, Second(NH), kPinochleCards,
                {kPinochle, kDouble}, {},
                " 9@3600,1680^*+350+350 43@4680,1680^*+350+350 10@5760,1680#10^*+350+350 "
                "44@6840,1680#44^*+350+350 9@5610,2250 10@5940,2250 43@6270,2250 44@6600,2250+300"),
        RowCase("RobotDixOnTable", TheRobot, Second(NH), {NH, NC}, {kDix}, {},
                " 35@3600,1680#35*+350+350 35@8820,3000 23^"),
        RowCase("PlayerDixOnTable", ThePlayer, Second(NH), {NH, NC}, {kDix}, {},
                " 35@3600,8640*+350+350 35@8820,8400+100 23^"),
        RowCase("RobotDixExchange", TheRobot, KH, {NH, NC}, {kDix}, {NH, KH, NC, 48},
                " 35@4110,2295#35 29@2670,2070^+1100 35@100,100 29@3130,120#49 48^")));

// The player's run: all five cards are melded before the first flies, so a
// sort served while they fly lays only the rest of the hand (and cuts the
// wait short).
TEST(MeldRun, SortWhileTheRunFliesLeavesItsCardsOutOfTheHand) {
    RoundOneTable table;
    Game& g = table.g;
    table.Give(ThePlayer, {AH, TH, KH, QH, JH, AD, AS});
    RedrawHand(g);
    table.hg.platform.script.assign({TableEvent{TableEventKind::SortClick}});
    Watch watch(table.hg, {AH, TH, KH, QH, JH, AD, AS});
    MeldRun(g, ThePlayer);
    EXPECT_EQ(
        watch.End(),
        " 33@3600,8640^*+1 37@3000,10080^+99+100 31@4680,8640^*+350+350 29@5760,8640^*+350+350 "
        "27@6840,8640^*+350+350 25@7920,8640^*+350+350 25@2000,6405+100 27@2330,6405^+100 "
        "29@2660,6405^+100 31@2990,6405^+100 33@3320,6405^+100+300");
}

using K = TableEventKind;
const TableEvent kCancel{K::CancelClick}, kMakeMarriage{K::MakeMarriageClick};
const TableEvent kClubs{K::MarriageClick, Clubs}, kPinochleButton{K::PinochleClick};

// Hearts are trumps and the King of Hearts is turned up; the player has led
// the Ten of Spades to a trick that he wins.
struct OfferTable : RoundOneTable {
    explicit OfferTable(const std::vector<int>& cards) : RoundOneTable(Hearts, KH, 6) {
        Give(ThePlayer, cards);
        PlaceCards(g, PlacePlayed, {TS, NC});
        std::tie(g.Leader, g.LeadCard, g.LeadSuit, g.FollowCard, g.FollowSuit) =
            std::tuple(ThePlayer, TS, Spades, NC, Clubs);
    }
    void Offer(const std::vector<TableEvent>& clicks) {
        hg.platform.script.assign(clicks.begin(), clicks.end());
        OfferMeld(g, "Meld?");
    }
    bool Up(TableControl panel) const { return hg.table.IsControlVisible(panel); }
};

// Each button makes its meld and lays its row; the button pressed twice, a
// marriage and Cancel all come during the meld's waits and none of them acts.
TEST(MeldOffer, OneMeldEndsItWhateverIsPressedDuringIt) {
    for (const auto& [cards, button, last, seen] :
         {std::tuple<std::vector<int>, TableEvent, int, std::string>{
              {JD1, QS1}, {K::PinochleClick}, QS1, "40 at 5960,6405"},
          {kPinochleCards, {K::DoublePinochleClick}, QS2, "500 at 6600,6405"},
          {{AH, TH, Second(KH), QH, JH}, {K::RunClick}, JH, "150 at 3320,6405"},
          {FirstOfEachSuit({King}), {K::FoursClick, 0}, KS, "80 at 2990,7590"},
          {FirstOfEachSuit({Queen}), {K::FoursClick, 1}, QS1, "60 at 2990,7590"},
          {FirstOfEachSuit({Jack}), {K::FoursClick, 2}, JS, "40 at 2990,7590"},
          {FirstOfEachSuit({Ace}), {K::FoursClick, 3}, AS, "100 at 2990,7590"},
          {{NH, Second(NH)}, {K::DixClick}, NH, "10 at 100,100"},
          {{Second(KH), QH}, {K::MarriageClick, Hearts}, QH, "40 at 2350,8600"}}) {
        OfferTable table(cards);
        table.Give(ThePlayer, {KC, QC});
        std::vector<TableEvent> clicks{button, button, kMakeMarriage, kClubs, kCancel};
        if (button.kind == K::MarriageClick) clicks.insert(clicks.begin(), kMakeMarriage);
        table.Offer(clicks);
        const CardPicture& laid = table.hg.table.Picture(last);
        EXPECT_EQ(std::to_string(table.g.PlayerTotalMelds) + " at " + std::to_string(laid.left) +
                      ',' + std::to_string(laid.top),
                  seen);
        EXPECT_TRUE(table.hg.platform.script.empty() && table.hg.table.Messages().empty()) << seen;
        EXPECT_FALSE(table.g.MeldAwaited || table.g.MeldCommandRunning ||
                     table.Up(TableControl::FramDeclare) || table.Up(TableControl::FramMarriage));
    }
}

// Refusals leave the offer open at the first panel; the marriage panel holds
// no Cancel and no declare button, and a suit in which the player has no
// marriage is the way back. Cancel ends the offer without a meld.
TEST(MeldOffer, RefusalsKeepItOpenUntilCancel) {
    OfferTable table({JD1, Second(KH), KC});
    Game& g = table.g;
    g.PlayerMayPlay = true;
    std::string seen;
    table.hg.platform.afterEvent = [&](const Game& game, const TableEvent&) {
        seen += std::string(" ") + (game.MeldAwaited ? "A" : "") + (game.PlayerMayPlay ? "P" : "") +
                (table.Up(TableControl::FramDeclare) ? "D" : "") +
                (table.Up(TableControl::FramMarriage) ? "M" : "");
    };
    const TableEvent aces{K::FoursClick, 3}, hearts{K::MarriageClick, Hearts};
    table.Offer({kClubs, kPinochleButton, aces, kMakeMarriage, kCancel, kPinochleButton, hearts,
                 kMakeMarriage, kClubs, kCancel});
    EXPECT_EQ(seen, " APD APD APD APM APM APM APD APM APD ");
    std::vector<std::string> titles;
    for (const MessageRecord& box : table.hg.table.Messages()) titles.push_back(box.title);
    EXPECT_EQ(titles,
              (std::vector<std::string>{" No Pinochle", "No Diamond", "No Queen.", "No Queen."}));
    EXPECT_EQ(g.PlayerTotalMelds, 0);
}

// Every flagged card as "card:flags", one letter a flag in the order of the
// card record: Melded, DixSwapped, DixOnTable, InMarriage, InFourKings,
// InFourQueens, InFourJacks, InFourAces, InRun, InPinochle, InDoublePinochle,
// DoublePinochleMark, MarriageDone (w), RunDone, FoursDone, DoublePinochleDone
// (e), DixDone (n).
std::string Flags(const Game& g) {
    std::string text;
    for (int card = 1; card <= CardCount; ++card) {
        const int bits = CardFlagBits(Card(g, card));
        if (bits != 0) text += ' ' + std::to_string(card) + ':';
        for (int k = 0; k < 17; ++k) text += std::string(bits >> k & 1, "MSTmKQJARPDdwrfen"[k]);
    }
    return text;
}

struct MeldCase {
    const char* name;
    int who;
    std::vector<int> cards;
    std::vector<Meld> melds;
    std::vector<int> points;  // the last-meld label after each meld
    std::vector<std::string> statuses;
    std::string flags;  // and the up card
    std::string told;   // the refusal of the last meld: "title|button|text"
    friend void PrintTo(const MeldCase& c, std::ostream* out) { *out << c.name; }
};

class MeldMade : public ::testing::TestWithParam<MeldCase> {};

// The player's offer ends with his meld; the robot's melds leave it be. A
// refused meld leaves the offer, the cards and the status line as they were
// and tells the player why.
TEST_P(MeldMade, TakesItsCardsFlagsThemAndScoresOrTellsWhyNot) {
    const MeldCase& c = GetParam();
    RoundOneTable table(Hearts, KD);
    Game& g = table.g;
    table.Give(c.who, c.cards);
    const auto seen = [&] {
        std::string text = Flags(g) + " up:" + std::to_string(g.UpCard);
        for (const auto& [panel, status] : table.hg.table.PanelHistory()) text += '|' + status;
        return text;
    };
    const auto label = c.who == ThePlayer ? TableLabel::LblLastMeldP : TableLabel::LbllLastMeldC;
    const bool refused = !c.told.empty();
    std::string before, expected = c.flags;
    for (const std::string& status : c.statuses) expected += '|' + status;
    int total = 0;
    for (std::size_t k = 0; k < c.melds.size(); ++k) {
        before = seen();
        g.MeldDone = false;
        g.MeldAwaited = true;  // each meld on an offer of its own
        table.hg.table.SetControlVisible(TableControl::FramDeclare, true);
        c.melds[k](g, c.who);
        EXPECT_EQ(g.MeldDone, !refused || k + 1 < c.melds.size()) << k;
        EXPECT_EQ(table.hg.table.Caption(label), std::to_string(c.points[k])) << k;
        total += g.MeldDone ? c.points[k] : 0;
    }
    EXPECT_EQ(c.who == ThePlayer ? g.PlayerTotalMelds : g.OpponentTotalMelds, total);
    EXPECT_EQ(seen(), refused ? before : expected);
    std::string told;
    for (const MessageRecord& box : table.hg.table.Messages()) {
        told += box.kind + std::to_string(box.icon) + ' ' + box.title + '|' + box.buttons[0] +
                box.buttons[1] + box.buttons[2] + '|' + box.text;
    }
    EXPECT_EQ(told, refused ? "deluxe1 " + c.told : "");
    EXPECT_EQ(std::tuple(g.MeldAwaited, g.DelayMs),
              std::tuple(c.who == TheRobot || refused, g.GameSpeed));
    EXPECT_TRUE(c.who == TheRobot ||
                table.hg.table.IsControlVisible(TableControl::FramDeclare) == refused);
}

const Meld kRoyal = Marriage(Hearts);

// A run whose King or Queen a royal marriage already scored gets 110; a
// double after the single gets 460. The run takes the later of two like
// cards, every other meld the earlier. A marriage writes no status.
INSTANTIATE_TEST_SUITE_P(
    Cases, MeldMade,
    ::testing::Values(
        MeldCase("TwoRuns", ThePlayer, BothCopies(kHeartRun), {kRun, kRun}, {150, 150},
                 {"Adascores for run 150", "Adascores for run 150"},
                 " 25:MRr 26:MRr 27:MRr 28:MRr 29:MRr 30:MRr 31:MRr 32:MRr 33:MRr 34:MRr up:5", ""),
        MeldCase("RunOnAMarriedQueen", ThePlayer, {AH, TH, KH, Second(KH), QH, JH}, {kRoyal, kRun},
                 {40, 110}, {"Adascores for run 110"},
                 " 25:MRr 27:MRr 29:Mmw 30:MRr 31:MmRwr 33:MRr up:5", ""),
        MeldCase("RunOnAMarriedKing", TheRobot, {AH, TH, KH, QH, Second(QH), JH}, {kRoyal, kRun},
                 {40, 110}, {"Lorindascores for run 110"},
                 " 25:MRr 27:MRr 29:MmRwr 31:Mmw 32:MRr 33:MRr up:5", ""),
        MeldCase("Marriage", TheRobot, {KC, Second(KC), QC, Second(QC)}, {Marriage(Clubs)}, {20},
                 {}, " 17:Mmw 19:Mmw up:5", ""),
        MeldCase("SingleThenDouble", ThePlayer, kPinochleCards, {kPinochle, kDouble}, {40, 460},
                 {"Ada scores 40 for Single Pinochle", "Ada scores 460 for Double Pin "},
                 " 9:MPDde 10:MDde 43:MPDde 44:MDde up:5", ""),
        MeldCase("SecondJackFirstQueen", TheRobot, {JD2, QS1, QS2}, {kPinochle}, {40},
                 {"Lorinda scores 40 for Single Pinochle"}, " 10:MP 43:MP up:5", ""),
        MeldCase("Fours", ThePlayer, BothCopies(FirstOfEachSuit({Ace, King, Queen, Jack})),
                 {Fours(Ace), Fours(Ace), Fours(King), Fours(Queen), Fours(Jack)},
                 {100, 100, 80, 60, 40},
                 {"Ada scores 100 for 4 Aces", "Ada scores 100 for 4 Aces",
                  "Ada scores 80 for 4 Kings", "Ada scores 60 for 4 Queens",
                  "Ada scores 40 for 4 Jacks"},
                 " 1:MAf 2:MAf 5:MKf 7:MQf 9:MJf 13:MAf 14:MAf 17:MKf 19:MQf 21:MJf 25:MAf 26:MAf "
                 "29:MKf 31:MQf 33:MJf 37:MAf 38:MAf 41:MKf 43:MQf 45:MJf up:5",
                 ""),
        // The first nine takes the turned-up King; the second finds a nine
        // turned up and lies on the table.
        MeldCase("DixExchangeThenOnTable", TheRobot, {NH, Second(NH)}, {kDix, kDix}, {10, 10},
                 {"Lorinda melded Dix for 10 points.", "Lorinda melded Dix for 10 points"},
                 " 35:S 36:MTn up:35", ""),
        // After trick 12 the up card lies in a hand: the nine goes to the table.
        MeldCase("DixAfterTrick12", ThePlayer, {NH, KD}, {kDix}, {10},
                 {"Ada melded Dix for 10 points"}, " 35:MTn up:5", "")));

std::string NoneOf(const std::string& what) {
    return " sorry, you do not appear to have a " + what +
           " of that suit. Please try again or click Cancel to receive a card";
}
std::string Already(const std::string& what) {
    return " you have already melded a " + what +
           ". Please try again or click cancel to receive another card.";
}
// The nine turned up at the deal, taken into the hand with the last pair.
const Meld kTurnedUpNine = [](Game& g, int) { Card(g, NH).Melded = g.MeldDone = true; };

// The second of two melds is refused when the first holds a card it needs;
// a failed double shows its 0.
INSTANTIATE_TEST_SUITE_P(
    Refused, MeldMade,
    ::testing::Values(
        MeldCase(
            "NoRun", ThePlayer, kHeartRun, {kRun, kRun}, {150, 150}, {}, "",
            "No Run|Oh Dear|Ada sorry, you do appear to have a run.Please try again, or Cancel "
            "to receive a card."),
        MeldCase("NoDiamond", ThePlayer, {}, {Fours(Ace)}, {0}, {}, "",
                 "No Diamond|Oh Dear|Ada" + NoneOf("Diamond")),
        MeldCase("NoSpade", ThePlayer, {JD1, CardIndex(Jack, Clubs), JH}, {Fours(Jack)}, {0}, {},
                 "", "No Spade|Oh Dear|Ada" + NoneOf("Spade")),
        MeldCase("SecondDouble", ThePlayer, kPinochleCards, {kDouble, kDouble}, {500, 500}, {}, "",
                 "Already Melded|Right|Ada" + Already("Double Pinochle")),
        MeldCase("NoDouble", ThePlayer, {JD1, QS1, QS2}, {kPinochle, kDouble}, {40, 0}, {}, "",
                 "No Double Pinochle|Oh Dear|Ada sorry, you do not have a Double Pinochle. Try "
                 "again or click Cancel to receive a card"),
        MeldCase("SecondSingle", ThePlayer, kPinochleCards, {kPinochle, kPinochle}, {40, 40}, {},
                 "", "Already Melded|Right|Ada" + Already("Pinochle")),
        MeldCase("SingleAfterDouble", ThePlayer, kPinochleCards, {kDouble, kPinochle}, {500, 500},
                 {}, "", "Already Melded|Right|Ada" + Already("Pinochle")),
        MeldCase("NoPinochle", ThePlayer, {JD1, JD2}, {kPinochle}, {0}, {}, "",
                 " No Pinochle|Oh Dear|Ada sorry, you do not have a Single Pinochle. Make "
                 "different Meld or click Cancel to receive card."),
        MeldCase("NoKing", ThePlayer, {KC, QC}, {Marriage(Clubs), Marriage(Clubs)}, {20, 20}, {},
                 "", "No King.|Oh Dear|Ada" + NoneOf("King")),
        MeldCase("NoQueen", ThePlayer, {KC}, {Marriage(Clubs)}, {0}, {}, "",
                 "No Queen.|Oh Dear|Ada" + NoneOf("Queen")),
        MeldCase("NoNine", ThePlayer, {NH, NC}, {kTurnedUpNine, kDix}, {0, 0}, {}, "",
                 "No Nine|Right|Ada sorry, you do not have a Nine to Dix. Please try again or "
                 "click Cancel to receive a new card")));

}  // namespace
}  // namespace trickhaven
