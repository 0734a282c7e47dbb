// Where melded cards lie and at what pace they get there: the staging row,
// the rows of each kind for both sides, the dix, and the hand around them;
// and the player's meld offer: the two panels, one meld per offer, refusals
// that keep it open, and Cancel.
#include "melds/meld_rows.h"

#include <gtest/gtest.h>

#include <tuple>

#include "melds/meld_offer.h"
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

}  // namespace
}  // namespace trickhaven
