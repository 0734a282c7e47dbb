// The player's meld offer: the two panels, one meld per offer, refusals that
// keep it open, and Cancel.
#include "melds/meld_offer.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

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
