// The player's click on a card: what is ignored, what is refused and with
// which words, what is played, and the rules of Round Two.
#include "round_one/card_click.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/headless/headless_game.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

const int KH = CardIndex(King, Hearts), AH = CardIndex(Ace, Hearts), NH = CardIndex(Nine, Hearts);
const int AS = CardIndex(Ace, Spades), QS = CardIndex(Queen, Spades), JS = CardIndex(Jack, Spades);
const int TC = CardIndex(Ten, Clubs), KC = CardIndex(King, Clubs), NC = CardIndex(Nine, Clubs);
const int AD = CardIndex(Ace, Diamonds), JD = CardIndex(Jack, Diamonds);

// A trick of Round One awaiting the player's card: Hearts are trumps, the up
// card is the Nine of Clubs, the robot has led the King of Hearts.
struct ClickTable {
    ClickTable() {
        Game& g = hg.game;
        ClearTable(g);
        g.GameOn = true;
        g.RoundOneOn = true;
        g.PlayerName = "Ann";
        g.OpponentName = "Lorinda";
        g.TrumpSuit = Hearts;
        g.TrickCount = 4;
        g.UpCard = NC;
        Card(g, NC).Place = PlaceUpCard;
        PlaceCards(g, PlacePlayerHand, {AS, QS, JS, TC, AD, AH + 1});
        PlaceCards(g, PlaceOpponentHand, {KC, JD, AH});
        PlaceCards(g, PlacePlayed, {KH, NH});
        g.Leader = TheRobot;
        g.LeadCard = KH;
        g.LeadSuit = Hearts;
        g.PlayerMayPlay = true;
        g.DelayMs = g.GameSpeed;
    }
    const std::vector<MessageRecord>& Messages() const { return hg.table.Messages(); }
    HeadlessGame hg;
};

struct Refusal {
    std::string name;
    int card;
    std::string text;
    std::string button;
    std::string title;
};

class ClickRefused : public ::testing::TestWithParam<Refusal> {};

TEST_P(ClickRefused, AnswersWithItsMessageAndKeepsTheTurnOpen) {
    const Refusal& c = GetParam();
    ClickTable table;
    Game& g = table.hg.game;
    Card(g, JD).Melded = true;
    table.hg.table.SetCardImage(KH, CardBackImage);
    const int placeBefore = Card(g, c.card).Place;
    PicCard_Click(g, c.card);
    ASSERT_EQ(table.Messages().size(), 1U);
    const MessageRecord& box = table.Messages().front();
    EXPECT_EQ(box.kind, "deluxe");
    EXPECT_EQ(box.text, c.text);
    EXPECT_EQ(box.buttons, (std::array<std::string, 3>{c.button, "", ""}));
    EXPECT_EQ(box.icon, 3);
    EXPECT_EQ(box.title, c.title);
    EXPECT_TRUE(g.PlayerMayPlay);
    EXPECT_EQ(Card(g, c.card).Place, placeBefore);
    EXPECT_EQ(g.FollowCard, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ClickRefused,
    ::testing::Values(Refusal{"RobotsCard", KC,
                              "Ann You really musn't try to look at Lorinda card you know!",
                              "Just Peeping", "Tut Tut"},
                      Refusal{"RobotsMeldedCard", JD,
                              "Ann You really musn't try to look at Lorinda card you know!",
                              "Just Peeping", "Tut Tut"},
                      Refusal{"CardOnTheTrickPile", KH,
                              "Ann These cards have been played and are now out of the hand.",
                              "Right", "Cards out of game"},
                      Refusal{"UpCard", NC,
                              "Ann This is the UpCard Nine of Clubs and the suit is trumps",
                              "Right", "The Up Card"}),
    [](const ::testing::TestParamInfo<Refusal>& info) { return info.param.name; });

struct Ignored {
    std::string name;
    int card;
    void (*arrange)(ClickTable&);
};

class ClickIgnored : public ::testing::TestWithParam<Ignored> {};

TEST_P(ClickIgnored, SaysAndPlaysNothing) {
    const Ignored& c = GetParam();
    ClickTable table;
    Game& g = table.hg.game;
    c.arrange(table);
    const bool mayPlay = g.PlayerMayPlay;
    const int placeBefore = Card(g, c.card).Place;
    const CardPicture before = table.hg.table.Picture(c.card);
    PicCard_Click(g, c.card);
    EXPECT_TRUE(table.Messages().empty());
    EXPECT_EQ(g.PlayerMayPlay, mayPlay);
    EXPECT_EQ(Card(g, c.card).Place, placeBefore);
    EXPECT_EQ(table.hg.table.Picture(c.card).left, before.left);
    EXPECT_EQ(g.FollowCard, 0);
    EXPECT_EQ(table.hg.platform.TickCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ClickIgnored,
    ::testing::Values(
        Ignored{"NoGameOn", AS, [](ClickTable& t) { t.hg.game.GameOn = false; }},
        Ignored{"RobotsCardOutOfTurn", KC, [](ClickTable& t) { t.hg.game.PlayerMayPlay = false; }},
        Ignored{"PlayedCardOutOfTurn", KH, [](ClickTable& t) { t.hg.game.PlayerMayPlay = false; }},
        Ignored{"OwnCardOutOfTurn", AS, [](ClickTable& t) { t.hg.game.PlayerMayPlay = false; }},
        Ignored{"StockCard", CardIndex(Ten, Diamonds), [](ClickTable&) {}},
        Ignored{
            "OwnCardWhileMeldPanelShows", AS,
            [](ClickTable& t) { t.hg.table.SetControlVisible(TableControl::FramDeclare, true); }},
        Ignored{"OwnCardWhileAMeldIsAwaited", AS,
                [](ClickTable& t) { t.hg.game.MeldAwaited = true; }},
        Ignored{"OwnCardWhileRoundOneCloses", AS,
                [](ClickTable& t) { t.hg.game.RoundOneClosing = true; }},
        Ignored{"UpCardInTrickTwelve", NC, [](ClickTable& t) { t.hg.game.TrickCount = 12; }}),
    [](const ::testing::TestParamInfo<Ignored>& info) { return info.param.name; });

TEST(CardClick, RobotsCardStillRefusedWhileMeldPanelShows) {
    ClickTable table;
    table.hg.table.SetControlVisible(TableControl::FramDeclare, true);
    PicCard_Click(table.hg.game, KC);
    ASSERT_EQ(table.Messages().size(), 1U);
    EXPECT_EQ(table.Messages().front().title, "Tut Tut");
}

TEST(CardClick, RoundOneAnswersAKingOfHeartsWithAnyCard) {
    for (const int card : {AS, TC, AD}) {
        ClickTable table;
        Game& g = table.hg.game;
        g.GameSpeed = 25;
        PicCard_Click(g, card);
        EXPECT_TRUE(table.Messages().empty());
        EXPECT_EQ(g.FollowCard, card);
        EXPECT_EQ(g.FollowSuit, Card(g, card).Suit);
        EXPECT_EQ(g.LeadCard, KH);
        EXPECT_FALSE(g.PlayerMayPlay);
        EXPECT_EQ(Card(g, card).Place, PlacePlayed);
        const CardPicture& picture = table.hg.table.Picture(card);
        EXPECT_EQ(picture.left, 11760);
        EXPECT_EQ(picture.top, 4680);
        EXPECT_EQ(picture.image, card);
        EXPECT_EQ(g.DelayMs, 25);
        EXPECT_EQ(table.hg.table.PanelText(2), "Ann is playing " + Card(g, card).Name);
    }
}

TEST(CardClick, PlayerLeadIsRecordedAsTheLead) {
    ClickTable table;
    Game& g = table.hg.game;
    g.Leader = ThePlayer;
    g.LeadCard = 0;
    g.LeadSuit = NoSuit;
    PicCard_Click(g, QS);
    EXPECT_EQ(g.LeadCard, QS);
    EXPECT_EQ(g.LeadSuit, Spades);
    EXPECT_EQ(g.FollowCard, 0);
}

TEST(CardClick, MeldedCardOfTheHandCanBePlayed) {
    ClickTable table;
    Game& g = table.hg.game;
    Card(g, QS).Melded = true;
    PicCard_Click(g, QS);
    EXPECT_EQ(Card(g, QS).Place, PlacePlayed);
    EXPECT_FALSE(Card(g, QS).Melded);
    EXPECT_EQ(g.FollowCard, QS);
}

TEST(CardClick, FlightTakesItsWaitsAndTheCardFliesFromTheHand) {
    ClickTable table;
    Game& g = table.hg.game;
    g.GameSpeed = 100;
    g.DelayMs = 100;
    // A harmless click on the stock during the first wait shows the card
    // still in the hand while Round One announces it.
    table.hg.platform.script.push_back({TableEventKind::CardClick, CardIndex(Ten, Diamonds)});
    int placeDuringFirstWait = 0;
    table.hg.platform.afterEvent = [&](const Game& game, const TableEvent&) {
        placeDuringFirstWait = Card(game, AS).Place;
    };
    PicCard_Click(g, AS);
    EXPECT_EQ(placeDuringFirstWait, PlacePlayerHand);
    // WaitDelay at 100, then the two hops at 100 + 300.
    EXPECT_EQ(table.hg.platform.TickCount(), 100 + 400 + 400);
    EXPECT_EQ(table.hg.platform.sounds, std::vector<std::string>{"carddeal1.wav"});
}

TEST(CardClick, SecondClickDuringTheFlightPlaysNothing) {
    for (const int leader : {ThePlayer, TheRobot}) {
        ClickTable table;
        Game& g = table.hg.game;
        g.Leader = leader;
        // One more click in each of the flight's waits.
        for (const int card : {TC, AD, JS}) {
            table.hg.platform.script.push_back({TableEventKind::CardClick, card});
        }
        PicCard_Click(g, AS);
        EXPECT_TRUE(table.hg.platform.script.empty());
        EXPECT_EQ(Card(g, AS).Place, PlacePlayed);
        for (const int card : {TC, AD, JS}) {
            EXPECT_EQ(Card(g, card).Place, PlacePlayerHand) << card;
        }
        EXPECT_EQ(leader == ThePlayer ? g.LeadCard : g.FollowCard, AS);
        EXPECT_TRUE(table.Messages().empty());
    }
}

// Round Two: Hearts trumps, the robot has led a Club unless said otherwise.
struct RoundTwoClick {
    RoundTwoClick(std::initializer_list<int> hand, int led) {
        Game& g = table.hg.game;
        for (int card = 1; card <= CardCount; ++card) {
            Card(g, card).Place = PlacePlayed;
        }
        PlaceCards(g, PlacePlayerHand, hand);
        g.RoundOneOn = false;
        g.RoundTwoOn = true;
        g.TrickCount = 15;
        g.LeadCard = led;
        g.LeadSuit = Card(g, led).Suit;
    }
    Game& game() { return table.hg.game; }
    ClickTable table;
};

TEST(RoundTwoClick, MustFollowSuitThenTheSuitCardPlays) {
    RoundTwoClick trick({KH, AS, NH}, AH);
    PicCard_Click(trick.game(), AS);
    ASSERT_EQ(trick.table.Messages().size(), 1U);
    const MessageRecord& box = trick.table.Messages().front();
    EXPECT_EQ(box.text, "Ann You have a card of the same suit and must play it.");
    EXPECT_EQ(box.buttons, (std::array<std::string, 3>{"Ah Right", "", ""}));
    EXPECT_EQ(box.icon, 3);
    EXPECT_EQ(box.title, "Must follow suit.");
    EXPECT_TRUE(trick.game().PlayerMayPlay);
    EXPECT_EQ(Card(trick.game(), AS).Place, PlacePlayerHand);

    // A lower card of the suit will do.
    PicCard_Click(trick.game(), NH);
    EXPECT_EQ(trick.table.Messages().size(), 1U);
    EXPECT_EQ(trick.game().FollowCard, NH);
    EXPECT_EQ(Card(trick.game(), NH).Place, PlacePlayed);
    EXPECT_FALSE(trick.game().PlayerMayPlay);
}

TEST(RoundTwoClick, MustTrumpWithNoCardOfTheSuit) {
    RoundTwoClick trick({AS, NH, AD}, KC);
    for (const int plain : {AS, AD}) {
        PicCard_Click(trick.game(), plain);
    }
    ASSERT_EQ(trick.table.Messages().size(), 2U);
    const MessageRecord& box = trick.table.Messages().back();
    EXPECT_EQ(box.text, "Ann You have a Trump and must play it.");
    EXPECT_EQ(box.buttons, (std::array<std::string, 3>{"O.K", "", ""}));
    EXPECT_EQ(box.icon, 3);
    EXPECT_EQ(box.title, "You have a Trump");
    EXPECT_TRUE(trick.game().PlayerMayPlay);

    PicCard_Click(trick.game(), NH);
    EXPECT_EQ(trick.game().FollowCard, NH);
    EXPECT_EQ(trick.game().FollowSuit, Hearts);
    EXPECT_FALSE(trick.game().PlayerMayPlay);
}

TEST(RoundTwoClick, AnyCardWithNeitherSuitNorTrump) {
    RoundTwoClick trick({AS, AD}, KC);
    PicCard_Click(trick.game(), AD);
    EXPECT_TRUE(trick.table.Messages().empty());
    EXPECT_EQ(trick.game().FollowCard, AD);
    EXPECT_EQ(Card(trick.game(), AD).Place, PlacePlayed);
}

TEST(RoundTwoClick, OwnLeadIsNeverRefused) {
    RoundTwoClick trick({KH, AS, TC}, KC);
    trick.game().Leader = ThePlayer;
    PicCard_Click(trick.game(), AS);
    EXPECT_TRUE(trick.table.Messages().empty());
    EXPECT_EQ(trick.game().LeadCard, AS);
    EXPECT_EQ(trick.game().LeadSuit, Spades);
    EXPECT_EQ(trick.table.hg.table.PanelText(2), "Ann is playing Ace of Spades");
}

struct RoundTwoOrder {
    std::string name;
    int leader;
    int card;
    int placeInWait;
};

class RoundTwoClickOrder : public ::testing::TestWithParam<RoundTwoOrder> {};

TEST_P(RoundTwoClickOrder, CardLeavesTheHandBeforeOrAfterTheWait) {
    const RoundTwoOrder& c = GetParam();
    // The player holds a Club and a trump; the robot led a Club, or a Spade
    // of which he has none.
    RoundTwoClick trick({TC, NH}, c.card == NH ? AS : KC);
    Game& g = trick.game();
    g.Leader = c.leader;
    // A click on a played card serves as a look into the wait.
    trick.table.hg.platform.script.push_back({TableEventKind::CardClick, KH});
    int placeInWait = 0;
    bool mayPlayInWait = true;
    trick.table.hg.platform.afterEvent = [&](const Game& game, const TableEvent&) {
        placeInWait = Card(game, c.card).Place;
        mayPlayInWait = game.PlayerMayPlay;
    };
    PicCard_Click(g, c.card);
    EXPECT_EQ(placeInWait, c.placeInWait);
    EXPECT_FALSE(mayPlayInWait);
    EXPECT_EQ(Card(g, c.card).Place, PlacePlayed);
    // The row has closed up: the card kept lies first.
    const int kept = c.card == TC ? NH : TC;
    EXPECT_EQ(trick.table.hg.table.Picture(kept).left, 2500);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RoundTwoClickOrder,
    ::testing::Values(RoundTwoOrder{"Lead", ThePlayer, TC, PlacePlayed},
                      RoundTwoOrder{"FollowingSuit", TheRobot, TC, PlacePlayerHand},
                      RoundTwoOrder{"Trumping", TheRobot, NH, PlacePlayed}),
    [](const ::testing::TestParamInfo<RoundTwoOrder>& info) { return info.param.name; });

TEST(HasSuitPlayer, CountsOnlyThePlayersHandMeldedCardsToo) {
    ClickTable table;
    Game& g = table.hg.game;
    Card(g, AD).Melded = true;
    EXPECT_TRUE(HasSuitPlayer(g, Diamonds));
    EXPECT_TRUE(HasTrumps(g, Hearts));
    Card(g, AH + 1).Place = PlacePlayed;
    EXPECT_FALSE(HasTrumps(g, Hearts));  // the robot's Ace of Hearts is not his
    EXPECT_TRUE(HasSuitPlayer(g, Clubs));
    Card(g, TC).Place = PlaceOpponentHand;
    EXPECT_FALSE(HasSuitPlayer(g, Clubs));
}

}  // namespace
}  // namespace trickhaven
