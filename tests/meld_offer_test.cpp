// The player's meld offer: the two panels, one meld per offer, refusals that
// keep it open, Cancel, and the buttons that must do nothing.
#include "melds/meld_offer.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "game/session.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

const std::string kPrompt = "Ada click Meld to make or Cancel to receive card.";

TableEvent Click(TableEventKind kind, int index = 0) {
    return TableEvent{kind, index};
}
const TableEvent kCancel = Click(TableEventKind::CancelClick);
const TableEvent kMakeMarriage = Click(TableEventKind::MakeMarriageClick);

// Hearts are trumps and the King of Hearts is turned up.
struct OfferTable : RoundOneTable {
    OfferTable() : RoundOneTable(Hearts, KH, 6) {}
    void Give(const std::vector<int>& cards) { RoundOneTable::Give(ThePlayer, cards); }
    void Offer(const std::vector<TableEvent>& events) {
        hg.platform.script.assign(events.begin(), events.end());
        OfferMeld(g, kPrompt);
    }
    bool Visible(TableControl control) const { return hg.table.IsControlVisible(control); }
};

TEST(MeldOffer, OpensWithItsPromptAndCancelEndsItWithoutAMeld) {
    OfferTable table;
    Game& g = table.g;
    table.Give({JD1, QS1});
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
    EXPECT_FALSE(table.Visible(TableControl::FramMarriage));
    EXPECT_EQ(table.hg.table.PanelText(2), kPrompt);
    EXPECT_EQ(g.PlayerTotalMelds, 0);
    EXPECT_FALSE(Card(g, JD1).Melded);
    EXPECT_TRUE(table.hg.table.Messages().empty());
}

struct MeldButtonCase {
    std::string name;
    std::vector<int> cards;
    std::vector<TableEvent> clicks;
    int points;
};

class MeldButton : public ::testing::TestWithParam<MeldButtonCase> {};

TEST_P(MeldButton, OneMeldEndsTheOffer) {
    const MeldButtonCase& c = GetParam();
    OfferTable table;
    Game& g = table.g;
    table.Give(c.cards);
    // Cards for a second meld of another kind, which the offer must not give.
    table.Give({KC, QC});
    std::vector<TableEvent> clicks = c.clicks;
    clicks.insert(clicks.end(), {kMakeMarriage, Click(TableEventKind::MarriageClick, Clubs)});
    table.Offer(clicks);
    EXPECT_EQ(g.PlayerTotalMelds, c.points);
    EXPECT_EQ(table.hg.table.Caption(TableLabel::LblLastMeldP), std::to_string(c.points));
    EXPECT_FALSE(Card(g, KC).InMarriage);
    EXPECT_FALSE(g.MeldAwaited);
    EXPECT_FALSE(g.MeldCommandRunning);
    EXPECT_FALSE(table.Visible(TableControl::FramDeclare));
    EXPECT_FALSE(table.Visible(TableControl::FramMarriage));
    EXPECT_TRUE(table.hg.table.Messages().empty());
    // The hand row closes up over the melded cards.
    for (int card = 1; card <= CardCount; ++card) {
        const CardRec& rec = Card(g, card);
        if (rec.Place == PlacePlayerHand && !rec.Melded) {
            EXPECT_EQ(table.hg.table.Picture(card).top, 10080) << card;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, MeldButton,
    ::testing::Values(
        MeldButtonCase{"Pinochle", {JD1, QS1}, {Click(TableEventKind::PinochleClick)}, 40},
        MeldButtonCase{"DoublePinochle",
                       {JD1, JD2, QS1, QS2},
                       {Click(TableEventKind::DoublePinochleClick)},
                       500},
        MeldButtonCase{"Run", {AH, TH, Second(KH), QH, JH}, {Click(TableEventKind::RunClick)}, 150},
        MeldButtonCase{
            "FourKings", BothOfEachSuit(King), {Click(TableEventKind::FoursClick, 0)}, 80},
        MeldButtonCase{
            "FourQueens", BothOfEachSuit(Queen), {Click(TableEventKind::FoursClick, 1)}, 60},
        MeldButtonCase{
            "FourJacks", BothOfEachSuit(Jack), {Click(TableEventKind::FoursClick, 2)}, 40},
        MeldButtonCase{
            "FourAces", BothOfEachSuit(Ace), {Click(TableEventKind::FoursClick, 3)}, 100},
        MeldButtonCase{"Dix", {NH}, {Click(TableEventKind::DixClick)}, 10},
        MeldButtonCase{"RoyalMarriage",
                       {Second(KH), QH},
                       {kMakeMarriage, Click(TableEventKind::MarriageClick, Hearts)},
                       40}),
    [](const ::testing::TestParamInfo<MeldButtonCase>& info) { return info.param.name; });

struct RefusedCase {
    std::string name;
    std::vector<TableEvent> clicks;  // the last one is refused
    std::string title;
};

class RefusedButton : public ::testing::TestWithParam<RefusedCase> {};

TEST_P(RefusedButton, OfferStaysOpenAtTheFirstPanel) {
    const RefusedCase& c = GetParam();
    OfferTable table;
    Game& g = table.g;
    table.Give({JD1, Second(KH)});
    std::vector<TableEvent> clicks = c.clicks;
    clicks.push_back(kCancel);
    std::size_t served = 0;
    bool openAfterRefusal = false;
    table.hg.platform.afterEvent = [&](const Game& game, const TableEvent&) {
        if (++served != c.clicks.size()) return;
        openAfterRefusal = game.MeldAwaited && table.Visible(TableControl::FramDeclare) &&
                           !table.Visible(TableControl::FramMarriage);
    };
    table.Offer(clicks);
    EXPECT_TRUE(openAfterRefusal);
    ASSERT_EQ(table.hg.table.Messages().size(), 1U);
    EXPECT_EQ(table.hg.table.Messages().front().title, c.title);
    EXPECT_EQ(g.PlayerTotalMelds, 0);
    EXPECT_FALSE(g.MeldAwaited);
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, RefusedButton,
    ::testing::Values(
        RefusedCase{"Pinochle", {Click(TableEventKind::PinochleClick)}, " No Pinochle"},
        RefusedCase{
            "DoublePinochle", {Click(TableEventKind::DoublePinochleClick)}, "No Double Pinochle"},
        RefusedCase{"Run", {Click(TableEventKind::RunClick)}, "No Run"},
        RefusedCase{"FourAces", {Click(TableEventKind::FoursClick, 3)}, "No Diamond"},
        RefusedCase{"Dix", {Click(TableEventKind::DixClick)}, "No Nine"},
        RefusedCase{"MarriageWithoutAQueen",
                    {kMakeMarriage, Click(TableEventKind::MarriageClick, Hearts)},
                    "No Queen."}),
    [](const ::testing::TestParamInfo<RefusedCase>& info) { return info.param.name; });

TEST(MeldOffer, MarriagePanelHasNoCancelAndHoldsTheDeclareButtons) {
    OfferTable table;
    Game& g = table.g;
    table.Give({JD1, QS1, KC, QC});
    bool stillOpen = false;
    table.hg.platform.afterEvent = [&](const Game& game, const TableEvent& event) {
        if (event.kind == TableEventKind::PinochleClick) {
            stillOpen = game.MeldAwaited && table.Visible(TableControl::FramMarriage) &&
                        !table.Visible(TableControl::FramDeclare);
        }
    };
    table.Offer({kMakeMarriage, kCancel, Click(TableEventKind::PinochleClick),
                 Click(TableEventKind::MarriageClick, Clubs)});
    EXPECT_TRUE(stillOpen);
    EXPECT_FALSE(g.PlayerPinochleMade);
    EXPECT_TRUE(Card(g, KC).InMarriage);
    EXPECT_EQ(g.PlayerTotalMelds, 20);
    EXPECT_FALSE(table.Visible(TableControl::FramDeclare));
    EXPECT_FALSE(table.Visible(TableControl::FramMarriage));
}

TEST(MeldOffer, SuitButtonsDoNothingBeforeTheMarriagePanelOpens) {
    OfferTable table;
    table.Give({KC, QC});
    table.Offer({Click(TableEventKind::MarriageClick, Clubs), kCancel});
    EXPECT_FALSE(Card(table.g, KC).InMarriage);
    EXPECT_EQ(table.g.PlayerTotalMelds, 0);
}

struct PressedTwiceCase {
    std::string name;
    std::vector<int> cards;
    std::vector<TableEvent> clicks;
    int points;
};

class PressedTwice : public ::testing::TestWithParam<PressedTwiceCase> {};

TEST_P(PressedTwice, SecondPressWhileTheCardsFlyMeldsNothing) {
    const PressedTwiceCase& c = GetParam();
    OfferTable table;
    Game& g = table.g;
    table.Give(c.cards);
    table.Offer(c.clicks);
    // Every click was served, the last ones inside the first meld's waits.
    EXPECT_TRUE(table.hg.platform.script.empty());
    EXPECT_EQ(g.PlayerTotalMelds, c.points);
    EXPECT_TRUE(table.hg.table.Messages().empty());
    EXPECT_FALSE(g.MeldCommandRunning);
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, PressedTwice,
    ::testing::Values(PressedTwiceCase{"Dix",
                                       {NH, Second(NH)},
                                       {Click(TableEventKind::DixClick),
                                        Click(TableEventKind::DixClick)},
                                       10},
                      PressedTwiceCase{"Pinochle",
                                       {JD1, QS1},
                                       {Click(TableEventKind::PinochleClick),
                                        Click(TableEventKind::PinochleClick)},
                                       40},
                      PressedTwiceCase{"DoublePinochle",
                                       {JD1, JD2, QS1, QS2},
                                       {Click(TableEventKind::DoublePinochleClick),
                                        Click(TableEventKind::DoublePinochleClick)},
                                       500},
                      PressedTwiceCase{"Marriage",
                                       {KC, Second(KC), QC, Second(QC)},
                                       {kMakeMarriage, Click(TableEventKind::MarriageClick, Clubs),
                                        Click(TableEventKind::MarriageClick, Clubs)},
                                       20}),
    [](const ::testing::TestParamInfo<PressedTwiceCase>& info) { return info.param.name; });

TEST(MeldOffer, SecondDixPressKeepsTheOtherNineInTheHand) {
    OfferTable table;
    Game& g = table.g;
    table.Give({NH, Second(NH)});
    table.Offer({Click(TableEventKind::DixClick), Click(TableEventKind::DixClick)});
    EXPECT_EQ(g.UpCard, NH);
    EXPECT_EQ(Card(g, KH).Place, PlacePlayerHand);
    EXPECT_EQ(Card(g, Second(NH)).Place, PlacePlayerHand);
    EXPECT_FALSE(Card(g, Second(NH)).DixSwapped || Card(g, Second(NH)).DixDone);
}

using Handler = std::function<void(Game&)>;
const std::vector<Handler> kEveryButton{
    [](Game& g) { CmdDBezique_Click(g); },         [](Game& g) { CmdBezique_Click(g); },
    [](Game& g) { CmdSequence_Click(g); },         [](Game& g) { CmdFours_Click(g, 3); },
    [](Game& g) { cmdDec7Trumps_Click(g); },       [](Game& g) { CmdMakeMarriage_Click(g); },
    [](Game& g) { CmdMarriage_Click(g, Hearts); }, [](Game& g) { CmdCancel_Click(g); },
};

struct ClosedPanelCase {
    std::string name;
    bool meldAwaited;
    bool declareVisible;
    bool marriageVisible;
    bool commandRunning;
};

class ButtonsIgnored : public ::testing::TestWithParam<ClosedPanelCase> {};

TEST_P(ButtonsIgnored, NoButtonActsWithoutItsOpenPanel) {
    const ClosedPanelCase& c = GetParam();
    for (std::size_t k = 0; k < kEveryButton.size(); ++k) {
        OfferTable table;
        Game& g = table.g;
        table.Give({AH, TH, Second(KH), QH, JH, NH, JD1, JD2, QS1, QS2});
        table.Give(BothOfEachSuit(Ace));
        g.MeldAwaited = c.meldAwaited;
        g.MeldCommandRunning = c.commandRunning;
        g.PlayerMayPlay = true;
        table.hg.table.SetControlVisible(TableControl::FramDeclare, c.declareVisible);
        table.hg.table.SetControlVisible(TableControl::FramMarriage, c.marriageVisible);

        kEveryButton[k](g);

        EXPECT_EQ(g.MeldAwaited, c.meldAwaited) << k;
        EXPECT_TRUE(g.PlayerMayPlay) << k;
        EXPECT_EQ(g.MeldCommandRunning, c.commandRunning) << k;
        EXPECT_EQ(table.Visible(TableControl::FramDeclare), c.declareVisible) << k;
        EXPECT_EQ(table.Visible(TableControl::FramMarriage), c.marriageVisible) << k;
        EXPECT_TRUE(table.hg.table.Messages().empty()) << k;
        EXPECT_EQ(g.UpCard, KH) << k;
        for (int card = 1; card <= CardCount; ++card) {
            EXPECT_EQ(CardFlagBits(Card(g, card)), 0) << k << " " << card;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    States, ButtonsIgnored,
    ::testing::Values(ClosedPanelCase{"NoOfferPanelsHidden", false, false, false, false},
                      ClosedPanelCase{"NoOfferPanelsLeftUp", false, true, true, false},
                      ClosedPanelCase{"OfferWithBothPanelsHidden", true, false, false, false},
                      ClosedPanelCase{"MeldStillLayingOut", true, true, true, true}),
    [](const ::testing::TestParamInfo<ClosedPanelCase>& info) { return info.param.name; });

TEST(MeldOffer, NewGameDuringAMeldUnwindsAndFreesTheButtons) {
    OfferTable table;
    Game& g = table.g;
    g.GameOn = false;
    table.Give({JD1, QS1});
    table.hg.platform.script.assign(
        {Click(TableEventKind::PinochleClick), Click(TableEventKind::MenuNewGame)});
    EXPECT_THROW(OfferMeld(g, kPrompt), GameAbandoned);
    EXPECT_EQ(g.Request, SessionRequest::NewGame);
    EXPECT_FALSE(g.MeldCommandRunning);
    // Abandoned before its points were posted.
    EXPECT_EQ(g.PlayerTotalMelds, 0);
}

}  // namespace
}  // namespace trickhaven
