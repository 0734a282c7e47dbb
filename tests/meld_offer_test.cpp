// The player's meld offer: its two prompts, the two panels, one meld per
// offer, refusals that keep it open, Cancel, and the buttons that must do
// nothing.
#include "melds/meld_offer.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "round_one/stock_draw.h"
#include "round_one/trick_cycle.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

using K = TableEventKind;
const TableEvent kCancel{K::CancelClick}, kMakeMarriage{K::MakeMarriageClick};
const TableEvent kClubsMarriage{K::MarriageClick, Clubs}, kPinochleButton{K::PinochleClick};

// Hearts are trumps and the King of Hearts is turned up.
struct OfferTable : RoundOneTable {
    explicit OfferTable(const std::vector<int>& cards) : RoundOneTable(Hearts, KH, 6) {
        Give(ThePlayer, cards);
    }
    void Offer(const std::vector<TableEvent>& events) {
        hg.platform.script.assign(events.begin(), events.end());
        OfferMeld(g, "Meld?");
    }
    bool Up(TableControl panel) const { return hg.table.IsControlVisible(panel); }
};

// After a won trick, and after the player has taken his last card in trick 12.
TEST(MeldOffer, OpensWithThePromptOfItsPlace) {
    for (const auto& [open, prompt] :
         {std::pair<void (*)(Game&), std::string>{
              ResolveTrick, "Ada click Meld to make or Cancel to receive card."},
          {EndRoundOne, " Click a Meld to make or click Cancel to receive a card"}}) {
        OfferTable table({AH});
        Game& g = table.g;
        PlaceCards(g, PlacePlayed, {AH, NC});
        g.Leader = ThePlayer;
        g.LeadCard = AH;
        g.FollowCard = NC;
        g.LeadSuit = Hearts;
        g.FollowSuit = Clubs;
        table.hg.platform.stopWhen = [](const Game& game) { return game.MeldAwaited; };
        EXPECT_THROW(open(g), ScenarioOver);
        EXPECT_EQ(table.hg.table.PanelText(2), prompt);
        EXPECT_TRUE(table.Up(TableControl::FramDeclare));
    }
}

struct ButtonCase {
    std::string name;
    std::vector<int> cards;
    TableEvent button;
    int points;
};

class MeldButton : public ::testing::TestWithParam<ButtonCase> {};

// The button is pressed twice and then a marriage is asked for: all of it
// comes during the first meld's waits and none of it melds again.
TEST_P(MeldButton, OneMeldEndsTheOfferWhateverIsPressedDuringIt) {
    const ButtonCase& c = GetParam();
    OfferTable table(c.cards);
    Game& g = table.g;
    table.Give(ThePlayer, {KC, QC});
    std::vector<TableEvent> clicks{c.button, c.button, kMakeMarriage, kClubsMarriage, kCancel};
    if (c.button.kind == K::MarriageClick) clicks.insert(clicks.begin(), kMakeMarriage);
    table.Offer(clicks);
    EXPECT_TRUE(table.hg.platform.script.empty());
    EXPECT_EQ(g.PlayerTotalMelds, c.points);
    EXPECT_FALSE(g.MeldAwaited || g.MeldCommandRunning);
    EXPECT_FALSE(table.Up(TableControl::FramDeclare) || table.Up(TableControl::FramMarriage));
    EXPECT_TRUE(table.hg.table.Messages().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, MeldButton,
    ::testing::Values(ButtonCase{"Pinochle", {JD1, QS1}, {K::PinochleClick}, 40},
                      ButtonCase{"Double", kPinochleCards, {K::DoublePinochleClick}, 500},
                      ButtonCase{"Run", {AH, TH, Second(KH), QH, JH}, {K::RunClick}, 150},
                      ButtonCase{"FourKings", FirstOfEachSuit({King}), {K::FoursClick, 0}, 80},
                      ButtonCase{"FourQueens", FirstOfEachSuit({Queen}), {K::FoursClick, 1}, 60},
                      ButtonCase{"FourJacks", FirstOfEachSuit({Jack}), {K::FoursClick, 2}, 40},
                      ButtonCase{"FourAces", FirstOfEachSuit({Ace}), {K::FoursClick, 3}, 100},
                      ButtonCase{"Dix", {NH, Second(NH)}, {K::DixClick}, 10},
                      ButtonCase{"Royal", {Second(KH), QH}, {K::MarriageClick, Hearts}, 40}),
    [](const ::testing::TestParamInfo<ButtonCase>& info) { return info.param.name; });

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
    table.Offer({kClubsMarriage, kPinochleButton, aces, kMakeMarriage, kCancel, kPinochleButton,
                 hearts, kMakeMarriage, kClubsMarriage, kCancel});
    EXPECT_EQ(seen, " APD APD APD APM APM APM APD APM APD ");
    std::vector<std::string> titles;
    for (const MessageRecord& box : table.hg.table.Messages()) titles.push_back(box.title);
    EXPECT_EQ(titles,
              (std::vector<std::string>{" No Pinochle", "No Diamond", "No Queen.", "No Queen."}));
    EXPECT_EQ(g.PlayerTotalMelds, 0);
}

}  // namespace
}  // namespace trickhaven
