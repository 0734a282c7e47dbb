// The player's click on a card: what is ignored, what is refused and with
// which words, what is played, and the rules of Round Two.
#include "round_one/card_click.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

constexpr int TC = CardIndex(Ten, Clubs), TD = CardIndex(Ten, Diamonds);

// Hearts are trumps, the Nine of Clubs is turned up, the robot has led the
// King of Hearts and the player's card is awaited.
struct ClickTable : RoundOneTable {
    ClickTable() : RoundOneTable(Hearts, NC) {
        Give(ThePlayer, {AS, QS1, JS, TC, AD, Second(AH)});
        Give(TheRobot, {KC, JD1, AH});
        PlaceCards(g, PlacePlayed, {KH, NH});
        g.Leader = TheRobot;
        g.LeadCard = KH;
        g.LeadSuit = Hearts;
        g.PlayerMayPlay = true;
    }
    const std::vector<MessageRecord>& Messages() const { return hg.table.Messages(); }

    // Clicks the card with clicks on three other cards of the hand waiting,
    // one for each wait of the flight, which play nothing; gives where the
    // card lay in the first wait.
    int ClickAndLookIntoTheWait(int card) {
        int place = 0;
        for (const int other : {JS, QS1, Second(AH)}) {
            hg.platform.script.push_back({TableEventKind::CardClick, other});
        }
        hg.platform.afterEvent = [&](const Game& game, const TableEvent&) {
            if (place == 0) place = Card(game, card).Place;
        };
        PicCard_Click(g, card);
        EXPECT_TRUE(hg.platform.script.empty());
        for (const int other : {JS, QS1, Second(AH)}) {
            EXPECT_EQ(Card(g, other).Place, g.RoundOneOn ? PlacePlayerHand : PlacePlayed);
        }
        return place;
    }
};

// The box of a refusal: text, its one button, title.
using Box = std::tuple<std::string, std::string, std::string>;

void ExpectRefusal(const ClickTable& t, const Box& expected) {
    ASSERT_EQ(t.Messages().size(), 1U);
    const MessageRecord& box = t.Messages()[0];
    EXPECT_EQ(Box(box.text, box.buttons[0], box.title), expected);
    EXPECT_EQ(std::tuple(box.kind, box.buttons[1] + box.buttons[2], box.icon),
              std::tuple("deluxe", "", 3));
    EXPECT_TRUE(t.g.PlayerMayPlay);
}

TEST(CardClick, RefusesWithItsWordsOrIgnoresAndPlaysNothing) {
    const auto none = [](ClickTable&) {};
    const auto panelUp = [](ClickTable& t) {
        Card(t.g, JD1).Melded = true;
        t.hg.table.SetControlVisible(TableControl::FramDeclare, true);
    };
    const Box peep{"Ada You really musn't try to look at Lorinda card you know!", "Just Peeping",
                   "Tut Tut"};
    const Box played{"Ada These cards have been played and are now out of the hand.", "Right",
                     "Cards out of game"};
    const Box up{"Ada This is the UpCard Nine of Clubs and the suit is trumps", "Right",
                 "The Up Card"};
    // The card, what is arranged first, and the refusal (none: ignored).
    using Row = std::tuple<const char*, int, std::function<void(ClickTable&)>, Box>;
    for (const auto& [what, card, arrange, refusal] : std::vector<Row>{
             {"robot's card", KC, none, peep},
             {"robot's melded card, meld panel up", JD1, panelUp, peep},
             {"card on the trick", KH, none, played},
             {"up card", NC, none, up},
             {"no game", AS, [](ClickTable& t) { t.g.GameOn = false; }, {}},
             {"robot's card out of turn", KC, [](ClickTable& t) { t.g.PlayerMayPlay = false; }, {}},
             {"stock card", TD, none, {}},
             {"own card, meld panel up", AS, panelUp, {}},
             {"own card, meld awaited", AS, [](ClickTable& t) { t.g.MeldAwaited = true; }, {}},
             {"own card, Round One closing",
              AS,
              [](ClickTable& t) { t.g.RoundOneClosing = true; },
              {}},
             {"up card in trick 12", NC, [](ClickTable& t) { t.g.TrickCount = 12; }, {}}}) {
        SCOPED_TRACE(what);
        ClickTable t;
        arrange(t);
        const int place = Card(t.g, card).Place;
        PicCard_Click(t.g, card);
        EXPECT_EQ(Card(t.g, card).Place, place);
        EXPECT_EQ(std::tuple(t.g.LeadCard, t.g.FollowCard), std::tuple(KH, 0));
        EXPECT_EQ(t.hg.platform.TickCount(), 0);
        if (std::get<2>(refusal).empty()) {
            EXPECT_TRUE(t.Messages().empty());
        } else {
            ExpectRefusal(t, refusal);
        }
    }
}

TEST(CardClick, RoundOnePlaysAnyCardOnceAndItLeavesTheHandAfterTheFirstWait) {
    for (const auto& [card, leader] : {std::pair{AS, ThePlayer}, {TC, TheRobot}, {AD, TheRobot}}) {
        ClickTable t;
        t.g.Leader = leader;
        t.g.GameSpeed = t.g.DelayMs = 25;
        Card(t.g, card).Melded = true;
        EXPECT_EQ(t.ClickAndLookIntoTheWait(card), PlacePlayerHand);
        EXPECT_TRUE(t.Messages().empty());
        const bool led = leader == ThePlayer;
        EXPECT_EQ(std::tuple(t.g.LeadCard, t.g.FollowCard),
                  std::tuple(led ? card : KH, led ? 0 : card));
        EXPECT_EQ(led ? t.g.LeadSuit : t.g.FollowSuit, Card(t.g, card).Suit);
        EXPECT_EQ(std::tuple(Card(t.g, card).Place, Card(t.g, card).Melded, t.g.PlayerMayPlay),
                  std::tuple(PlacePlayed, false, false));
        const CardPicture& p = t.hg.table.Picture(card);
        EXPECT_EQ(std::tuple(p.left, p.top, p.image), std::tuple(11760, 4680, card));
        EXPECT_EQ(t.hg.table.PanelText(2), "Ada is playing " + Card(t.g, card).Name);
        EXPECT_EQ(t.g.DelayMs, 25);
        EXPECT_EQ(t.hg.platform.TickCount(), 25 + 2 * (25 + 300));
        EXPECT_EQ(t.hg.platform.sounds, std::vector<std::string>{"carddeal1.wav"});
    }
}

TEST(RoundTwoClick, FollowSuitElseTrumpAndTheCardLeavesTheHandInItsTurn) {
    const Box follow{"Ada You have a card of the same suit and must play it.", "Ah Right",
                     "Must follow suit."};
    const Box trump{"Ada You have a Trump and must play it.", "O.K", "You have a Trump"};
    // The hand (its first card is kept), the card led by the robot (none: the
    // player leads), the card refused and its box, the card played (melded)
    // and where it lies in the first wait.
    using Row = std::tuple<const char*, std::vector<int>, int, int, Box, int, int>;
    for (const auto& [what, hand, led, refused, refusal, played, placeInWait] :
         std::vector<Row>{{"must follow suit", {KH, AS, NH}, AH, AS, follow, NH, PlacePlayerHand},
                          {"must trump", {AD, NH, AS}, KC, AD, trump, NH, PlacePlayed},
                          {"neither suit nor trump", {AS, AD}, KC, 0, {}, AD, PlacePlayed},
                          {"own lead", {TC, AS, KH}, 0, 0, {}, AS, PlacePlayed}}) {
        SCOPED_TRACE(what);
        ClickTable t;
        Game& g = t.g;
        for (int card = 1; card <= CardCount; ++card) Card(g, card).Place = PlacePlayed;
        // The robot's Club and trump bind nobody but him.
        t.Give(TheRobot, {Second(KC), TH});
        t.Give(ThePlayer, hand);
        Card(g, played).Melded = true;
        g.RoundOneOn = false;
        g.RoundTwoOn = true;
        g.TrickCount = 15;
        g.Leader = led != 0 ? TheRobot : ThePlayer;
        g.LeadCard = led;
        g.LeadSuit = led != 0 ? Card(g, led).Suit : NoSuit;
        if (refused != 0) {
            PicCard_Click(g, refused);
            ExpectRefusal(t, refusal);
            EXPECT_EQ(Card(g, refused).Place, PlacePlayerHand);
        }
        EXPECT_EQ(t.ClickAndLookIntoTheWait(played), placeInWait);
        EXPECT_EQ(t.Messages().size(), refused != 0 ? 1U : 0U);
        EXPECT_EQ(led != 0 ? g.FollowCard : g.LeadCard, played);
        EXPECT_EQ(std::tuple(Card(g, played).Place, Card(g, played).Melded, g.PlayerMayPlay),
                  std::tuple(PlacePlayed, false, false));
        EXPECT_EQ(t.hg.table.PanelText(2), "Ada is playing " + Card(g, played).Name);
        // The row has closed up.
        EXPECT_EQ(t.hg.table.Picture(hand[0]).left, 2500);
    }
}

}  // namespace
}  // namespace trickhaven
