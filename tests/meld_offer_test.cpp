// The player's meld offer: the two panels, one meld per offer, refusals that
// keep it open, Cancel, and the buttons that must do nothing.
#include "melds/meld_offer.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "game/session.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

using K = TableEventKind;
const std::string kPrompt = "Ada click Meld to make or Cancel to receive card.";
const TableEvent kCancel{K::CancelClick};
const TableEvent kMakeMarriage{K::MakeMarriageClick};
const TableEvent kClubsMarriage{K::MarriageClick, Clubs};

// Hearts are trumps and the King of Hearts is turned up.
struct OfferTable : RoundOneTable {
    explicit OfferTable(const std::vector<int>& cards) : RoundOneTable(Hearts, KH, 6) {
        Give(ThePlayer, cards);
    }
    void Offer(const std::vector<TableEvent>& events) {
        hg.platform.script.assign(events.begin(), events.end());
        OfferMeld(g, kPrompt);
    }
    bool Visible(TableControl control) const { return hg.table.IsControlVisible(control); }
};

TEST(MeldOffer, OpensWithItsPromptAndCancelEndsItWithoutAMeld) {
    OfferTable table({JD1, QS1});
    Game& g = table.g;
    g.PlayerMayPlay = true;
    bool seenOpen = false;
    table.hg.platform.stopWhen = [&](const Game& game) {
        seenOpen = seenOpen || (game.MeldAwaited && table.Visible(TableControl::FramDeclare) &&
                                table.hg.table.PanelText(2) == kPrompt);
        return false;
    };
    table.Offer({kCancel});
    EXPECT_TRUE(seenOpen);
    EXPECT_FALSE(g.MeldAwaited);
    EXPECT_FALSE(g.PlayerMayPlay);
    EXPECT_FALSE(table.Visible(TableControl::FramDeclare));
    EXPECT_EQ(g.PlayerTotalMelds, 0);
    EXPECT_TRUE(table.hg.table.Messages().empty());
}

struct ButtonCase {
    std::string name;
    std::vector<int> cards;
    TableEvent button;
    int points;
};
// Cases print as their button, not as bytes, in the test names.
void PrintTo(const ButtonCase& c, std::ostream* out) {
    *out << c.name;
}

class MeldButton : public ::testing::TestWithParam<ButtonCase> {};

// The button is pressed twice and then a marriage is asked for: all of it
// comes during the first meld's waits and none of it melds again.
TEST_P(MeldButton, OneMeldEndsTheOfferWhateverIsPressedDuringIt) {
    const ButtonCase& c = GetParam();
    OfferTable table(c.cards);
    Game& g = table.g;
    table.Give(ThePlayer, {KC, QC});
    std::vector<TableEvent> clicks{c.button, c.button, kMakeMarriage, kClubsMarriage};
    if (c.button.kind == K::MarriageClick) clicks.insert(clicks.begin(), kMakeMarriage);
    table.Offer(clicks);
    EXPECT_TRUE(table.hg.platform.script.empty());
    EXPECT_EQ(g.PlayerTotalMelds, c.points);
    EXPECT_FALSE(Card(g, KC).InMarriage);
    EXPECT_FALSE(g.MeldAwaited || g.MeldCommandRunning);
    EXPECT_FALSE(table.Visible(TableControl::FramDeclare));
    EXPECT_FALSE(table.Visible(TableControl::FramMarriage));
    EXPECT_TRUE(table.hg.table.Messages().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, MeldButton,
    ::testing::Values(ButtonCase{"Pinochle", {JD1, QS1}, {K::PinochleClick}, 40},
                      ButtonCase{"Double", {JD1, JD2, QS1, QS2}, {K::DoublePinochleClick}, 500},
                      ButtonCase{"Run", {AH, TH, Second(KH), QH, JH}, {K::RunClick}, 150},
                      ButtonCase{"FourKings", BothOfEachSuit(King), {K::FoursClick, 0}, 80},
                      ButtonCase{"FourQueens", BothOfEachSuit(Queen), {K::FoursClick, 1}, 60},
                      ButtonCase{"FourJacks", BothOfEachSuit(Jack), {K::FoursClick, 2}, 40},
                      ButtonCase{"FourAces", BothOfEachSuit(Ace), {K::FoursClick, 3}, 100},
                      ButtonCase{"Dix", {NH, Second(NH)}, {K::DixClick}, 10},
                      ButtonCase{"Royal", {Second(KH), QH}, {K::MarriageClick, Hearts}, 40}),
    [](const ::testing::TestParamInfo<ButtonCase>& info) { return info.param.name; });

TEST(MeldOffer, RefusedMeldsKeepTheOfferOpenAtTheFirstPanel) {
    OfferTable table({JD1, Second(KH)});
    int openAfterRefusal = 0;
    table.hg.platform.afterEvent = [&](const Game& game, const TableEvent& event) {
        if (event.kind == K::MakeMarriageClick) return;
        openAfterRefusal += game.MeldAwaited && table.Visible(TableControl::FramDeclare) &&
                            !table.Visible(TableControl::FramMarriage);
    };
    table.Offer({{K::PinochleClick},
                 {K::FoursClick, 3},
                 kMakeMarriage,
                 {K::MarriageClick, Hearts},
                 kCancel});
    EXPECT_EQ(openAfterRefusal, 3);
    std::vector<std::string> titles;
    for (const MessageRecord& box : table.hg.table.Messages()) titles.push_back(box.title);
    EXPECT_EQ(titles, (std::vector<std::string>{" No Pinochle", "No Diamond", "No Queen."}));
    EXPECT_EQ(table.g.PlayerTotalMelds, 0);
}

// A suit button before the panel opens, Cancel and a declare button on it do
// nothing.
TEST(MeldOffer, MarriagePanelHasNoCancelAndHoldsTheDeclareButtons) {
    OfferTable table({JD1, QS1, KC, QC});
    Game& g = table.g;
    bool stillOpen = false;
    table.hg.platform.afterEvent = [&](const Game& game, const TableEvent& event) {
        if (event.kind == K::PinochleClick) {
            stillOpen = game.MeldAwaited && table.Visible(TableControl::FramMarriage) &&
                        !table.Visible(TableControl::FramDeclare);
        }
    };
    table.Offer({kClubsMarriage, kMakeMarriage, kCancel, {K::PinochleClick}, kClubsMarriage});
    EXPECT_TRUE(stillOpen);
    EXPECT_TRUE(table.hg.platform.script.empty());
    EXPECT_FALSE(g.PlayerPinochleMade);
    EXPECT_TRUE(Card(g, KC).InMarriage);
    EXPECT_EQ(g.PlayerTotalMelds, 20);
}

const std::vector<std::function<void(Game&)>> kEveryButton{
    [](Game& g) { CmdDBezique_Click(g); },         [](Game& g) { CmdBezique_Click(g); },
    [](Game& g) { CmdSequence_Click(g); },         [](Game& g) { CmdFours_Click(g, 3); },
    [](Game& g) { cmdDec7Trumps_Click(g); },       [](Game& g) { CmdMakeMarriage_Click(g); },
    [](Game& g) { CmdMarriage_Click(g, Hearts); }, [](Game& g) { CmdCancel_Click(g); },
};

// No offer with the panels left up, an offer with its panels hidden, and a
// meld still laying out its cards.
TEST(MeldButtons, NoButtonActsWithoutItsOpenPanel) {
    using State = std::array<bool, 3>;
    for (const auto& [awaited, panelsUp, running] :
         {State{false, true, false}, State{true, false, false}, State{true, true, true}}) {
        for (std::size_t k = 0; k < kEveryButton.size(); ++k) {
            SCOPED_TRACE(testing::Message() << awaited << panelsUp << " button " << k);
            OfferTable table({AH, TH, Second(KH), QH, JH, NH, JD1, JD2, QS1, QS2});
            Game& g = table.g;
            g.MeldAwaited = awaited;
            g.MeldCommandRunning = running;
            g.PlayerMayPlay = true;
            table.hg.table.SetControlVisible(TableControl::FramDeclare, panelsUp);
            table.hg.table.SetControlVisible(TableControl::FramMarriage, panelsUp);
            kEveryButton[k](g);
            EXPECT_EQ(g.MeldAwaited, awaited);
            EXPECT_TRUE(g.PlayerMayPlay);
            EXPECT_EQ(g.MeldCommandRunning, running);
            EXPECT_EQ(table.Visible(TableControl::FramDeclare), panelsUp);
            EXPECT_EQ(table.Visible(TableControl::FramMarriage), panelsUp);
            EXPECT_TRUE(table.hg.table.Messages().empty());
            for (int card = 1; card <= CardCount; ++card) {
                EXPECT_EQ(CardFlagBits(Card(g, card)), 0) << card;
            }
        }
    }
}

TEST(MeldOffer, NewGameDuringAMeldUnwindsAndFreesTheButtons) {
    OfferTable table({JD1, QS1});
    Game& g = table.g;
    g.GameOn = false;
    table.hg.platform.script.assign({{K::PinochleClick}, {K::MenuNewGame}});
    EXPECT_THROW(OfferMeld(g, kPrompt), GameAbandoned);
    EXPECT_EQ(g.Request, SessionRequest::NewGame);
    EXPECT_FALSE(g.MeldCommandRunning);
    EXPECT_EQ(g.PlayerTotalMelds, 0);
}

}  // namespace
}  // namespace trickhaven
