// The player's click on a card: what is ignored, what is refused and with
// which words, and what is played in each round.
#include "round_one/card_click.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <tuple>

#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

using Lines = std::vector<std::string>;

TEST(CardClick, RefusesWithItsWordsOrIgnoresAndPlaysNothing) {
    const auto panelUp = [](RoundOneTable& t) {
        Card(t.g, JD1).Melded = true;
        t.hg.table.SetControlVisible(TableControl::FramDeclare, true);
    };
    const auto closing = [](RoundOneTable& t) { t.g.RoundOneClosing = true; };
    // The card, what is arranged first, and what is said (nothing: ignored).
    using Row = std::tuple<const char*, int, std::function<void(RoundOneTable&)>, std::string>;
    for (const auto& [what, card, arrange, said] : std::vector<Row>{
             {"robot's melded card, meld panel up", JD1, panelUp,
              "Tut Tut [Just Peeping||] 3: Ada You really musn't try to look at Lorinda card you "
              "know!"},
             {"card on the trick", KH, nullptr,
              "Cards out of game [Right||] 3: Ada These cards have been played and are now out of "
              "the hand."},
             {"up card", NC, nullptr,
              "The Up Card [Right||] 3: Ada This is the UpCard Nine of Clubs and the suit is "
              "trumps"},
             {"robot's card, no game", KC, [](RoundOneTable& t) { t.g.GameOn = false; }, ""},
             {"out of turn", KC, [](RoundOneTable& t) { t.g.PlayerMayPlay = false; }, ""},
             {"own card, meld panel up", AS, panelUp, ""},
             {"own card, meld awaited", AS, [](RoundOneTable& t) { t.g.MeldAwaited = true; }, ""},
             {"own card, Round One closing", AS, closing, ""},
             {"up card in trick 12", NC, [](RoundOneTable& t) { t.g.TrickCount = 12; }, ""}}) {
        SCOPED_TRACE(what);
        // Hearts are trumps, the Nine of Clubs is turned up, the robot has
        // led the King of Hearts and the player's card is awaited.
        RoundOneTable t(Hearts, NC);
        t.Give(ThePlayer, {AS});
        t.Give(TheRobot, {KC, JD1});
        PlaceCards(t.g, PlacePlayed, {KH, NH});
        t.g.PlayerMayPlay = true;
        if (arrange) arrange(t);
        const auto before = std::tuple(Card(t.g, card).Place, 0, 0, t.g.PlayerMayPlay);
        EXPECT_FALSE(ClickWouldPlay(t.g, card));
        PicCard_Click(t.g, card);
        EXPECT_EQ(Told(t.hg.table), said.empty() ? Lines{} : Lines{said});
        EXPECT_EQ(
            std::tuple(Card(t.g, card).Place, t.g.LeadCard, t.g.FollowCard, t.g.PlayerMayPlay),
            before);
    }
}

TEST(CardClick, PlaysOnceToTheFrontAndInRoundTwoFollowsSuitElseTrumps) {
    const Lines follow{
        "Must follow suit. [Ah Right||] 3: Ada You have a card of the same suit and must play it."};
    const Lines trump{"You have a Trump [O.K||] 3: Ada You have a Trump and must play it."};
    // The round, the hand (its first card is kept), the card led by the robot
    // (none: the player leads), the card refused and its box, the card
    // played (melded) and where it lies in the first wait.
    using Row = std::tuple<const char*, int, std::vector<int>, int, int, Lines, int, int>;
    for (const auto& [what, round, hand, led, refused, refusal, played, placeInWait] :
         std::vector<Row>{
             {"Round One, any card on a Heart", 1, {KH, AD}, AH, 0, {}, AD, PlacePlayerHand},
             {"must follow suit", 2, {KH, AS, NH}, AH, AS, follow, NH, PlacePlayerHand},
             {"must trump", 2, {AD, NH, AS}, KC, AD, trump, NH, PlacePlayed},
             {"neither suit nor trump", 2, {AS, AD}, KC, 0, {}, AD, PlacePlayed},
             {"own lead", 2, {QC, AS, KH}, 0, 0, {}, AS, PlacePlayed}}) {
        SCOPED_TRACE(what);
        RoundOneTable t(Hearts, NC);
        t.g.PlayerMayPlay = true;
        for (int card = 1; card <= CardCount; ++card) Card(t.g, card).Place = PlacePlayed;
        // The robot's Club and trump bind nobody but him.
        t.Give(TheRobot, {Second(KC), TH});
        t.Give(ThePlayer, hand);
        Card(t.g, played).Melded = true;
        t.g.RoundOneOn = round == 1;
        t.g.RoundTwoOn = round == 2;
        t.g.Leader = led != 0 ? TheRobot : ThePlayer;
        t.g.LeadCard = led;
        t.g.LeadSuit = led != 0 ? Card(t.g, led).Suit : NoSuit;
        // The test that tells a screen reader which cards are playable agrees
        // with the click.
        EXPECT_TRUE(ClickWouldPlay(t.g, played));
        if (refused != 0) {
            EXPECT_FALSE(ClickWouldPlay(t.g, refused));
            PicCard_Click(t.g, refused);
        }
        // A click on the kept card in each wait of the flight plays nothing.
        int placeSeen = 0;
        t.hg.platform.script.assign(3, {TableEventKind::CardClick, hand[0]});
        t.hg.platform.afterEvent = [&](const Game& game, const TableEvent&) {
            if (placeSeen == 0) placeSeen = Card(game, played).Place;
        };
        PicCard_Click(t.g, played);
        EXPECT_EQ(placeSeen, placeInWait);
        EXPECT_EQ(Told(t.hg.table), refusal);
        EXPECT_EQ(std::tuple(t.g.LeadCard, t.g.FollowCard),
                  std::tuple(led != 0 ? led : played, led != 0 ? played : 0));
        EXPECT_EQ(led != 0 ? t.g.FollowSuit : t.g.LeadSuit, Card(t.g, played).Suit);
        EXPECT_EQ(std::tuple(Card(t.g, played).Place, Card(t.g, played).Melded, t.g.PlayerMayPlay,
                             Card(t.g, hand[0]).Place),
                  std::tuple(PlacePlayed, false, false, PlacePlayerHand));
        // Brought to the front at each of its two hops.
        long front = 0;
        for (int other = 1; other <= CardCount; ++other) {
            front = std::max(front, other != played ? t.hg.table.Picture(other).z : 0);
        }
        EXPECT_EQ(t.hg.table.Picture(played).z, front + 2);
    }
}

}  // namespace
}  // namespace trickhaven
