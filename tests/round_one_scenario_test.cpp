// The player's click on a card: what is ignored, what is refused and with
// which words, and what is played in each round; who wins a trick and what
// it is worth, the robot's choice of the last two cards, and the last two
// tricks of Round One and its closing sequence on a laid table, at the
// medium speed, read step by step from the table's timeline.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <regex>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "round_one/card_click.h"
#include "round_one/stock_draw.h"
#include "round_one/trick_cycle.h"
#include "tests/meld_fixtures.h"
#include "tests/told_messages.h"

namespace trickhaven {
namespace {

constexpr int TD = CardIndex(Ten, Diamonds), NS = CardIndex(Nine, Spades);
constexpr int AC = CardIndex(Ace, Clubs), TC = CardIndex(Ten, Clubs);
constexpr int JC = CardIndex(Jack, Clubs), ND = CardIndex(Nine, Diamonds);
constexpr int P = ThePlayer, R = TheRobot;

TEST(Trick, WinnerIsTheLeaderUnlessTheSuitOrATrumpBeatsAndTheValueAddsTheCardPoints) {
    // Hearts are trumps. Led, followed, the leader, the winner, the points.
    for (const auto& [what, led, followed, leader, winner, points] :
         {std::tuple{"two identical aces: the one led", AC, Second(AC), R, R, 22},
          {"trump king on a plain ace", AC, KH, P, R, 15},
          {"a king under the ten of its suit", TS, KS, P, P, 14},
          {"a ten over the king of its suit", KS, TS, R, P, 14},
          {"third suit ace on a led nine", ND, AS, P, P, 11},
          {"nine of trumps on a plain nine", NC, NH, R, P, 0},
          {"queen and jack of two plain suits", QS1, JD1, R, R, 5}}) {
        SCOPED_TRACE(what);
        RoundOneTable t;
        t.g.Leader = leader;
        t.g.LeadCard = led;
        t.g.LeadSuit = Card(t.g, led).Suit;
        t.g.FollowCard = followed;
        t.g.FollowSuit = Card(t.g, followed).Suit;
        EXPECT_EQ(TrickWinner(t.g), winner);
        EXPECT_EQ(TrickValue(t.g), points);
    }
}

TEST(TakeLastStock, RobotTakesTheStockCardOnlyAsAHigherTrumpOverNoAceOrTen) {
    // The up card, the last stock card, whether the robot takes the latter.
    for (const auto& [what, up, last, takesStock] :
         {std::tuple{"trump ace above a trump king", KH, AH, true},
          {"turned-up ten kept above the ace", TH, AH, false},
          {"turned-up ace kept", AH, Second(AH), false},
          {"equal trump not taken", KH, Second(KH), false},
          {"lower trump not taken", QH, JH, false},
          {"plain ace never taken", NH, CardIndex(Ace, Clubs), false}}) {
        SCOPED_TRACE(what);
        RoundOneTable t(Hearts, up, 12);
        Card(t.g, last).Place = PlaceStock;
        t.g.LastStockCard = last;
        TakeLastStock(t.g);
        EXPECT_EQ(Told(t.hg.table).at(0),
                  takesStock ? "Taking Stock card [O.K||] 1: Lorinda has decided to take the last "
                               "Stock card."
                             : "Taking trump card [O.K||] 1: Lorinda has decided to take the "
                               "UpCard trump.");
        EXPECT_EQ(Card(t.g, takesStock ? last : up).Place, PlaceOpponentHand);
        EXPECT_EQ(Card(t.g, takesStock ? up : last).Place, PlacePlayerHand);
    }
}

// Walks the timeline through the steps, each line "<gap> <pattern>", and
// gives them back with the gap found since the step before; the walk starts
// at the first step.
std::string Paces(const std::vector<std::string>& timeline, const std::string& steps) {
    std::istringstream in(steps);
    std::string out, gap, pattern;
    auto at = timeline.begin();
    for (int before = -1; in >> gap && std::getline(in, pattern);) {
        const std::regex step(pattern.substr(1));
        at = std::find_if(at, timeline.end(), [&](const std::string& line) {
            return std::regex_match(line.substr(line.find(' ') + 1), step);
        });
        if (at == timeline.end()) return out + "missing" + pattern + "\n";
        out += std::to_string(before < 0 ? 0 : std::stoi(*at) - before) + pattern + "\n";
        before = std::stoi(*at++);
    }
    return out;
}

// A card of Ada's flies after her click and its wait.
std::string AdaPlays(const std::string& prompt) {
    return "0 panel 2 Ada please click " + prompt + R"(
1 panel 2 Ada is playing \w+ of \w+
100 move \d+ 7800 6540
400 move \d+ 11760 4680
)";
}

// The robot's card turns face up and flies; its hand closes up.
std::string RobotPlays(int wait) {
    return std::to_string(wait) + R"( image (\d+) \1
0 move \d+ 7800 3240
250 move \d+ 10440 4680
250 move \d+ \d+ 120
0 panel 2 Lorinda has played .*
)";
}

// A trick of Round One up to the winner's meld: played, booked, and
// gathered to the winner's pile, the card led on top.
std::string Trick(int trick, int wait, bool adaLeads, bool adaWins, int pile) {
    std::string steps = std::to_string(wait) + " panel 3 Tricks " + std::to_string(trick) + "\n";
    steps += adaLeads ? AdaPlays("card you wish to play\\.") + RobotPlays(750) + "0"
                      : RobotPlays(250) + AdaPlays("the card you wish to play") + "400";
    const std::string followLeft = adaLeads ? "10440" : "11760";
    steps += " caption LblLastTrick" + std::string(adaWins ? "P" : "C") + R"( \d+
500 image \d+ 49
250 move \d+ )" +
             followLeft + R"( 4680
250 move \d+ )" +
             followLeft + R"( 4680
250 card \d+ hidden
0 move \d+ )" +
             std::to_string(pile) + (adaWins ? " 7560\n" : " 2640\n");
    return steps + (adaWins ? R"(750 show FramDeclare
0 panel 2 Ada click Meld to make or Cancel to receive card\.
)"
                            : "");
}

// The draws after trick 11, the winner's first, each after a wait. The
// player's card shows its face on its way.
const std::string kAdaDraws = R"(0 hide FramDeclare
0 image (\d+) \1
0 move \d+ 1755 7500
600 move \d+ 1800 7700
)";
const std::string kRobotDraws = "0 move \\d+ 2820 2280\n";
const std::string kAdaDrawsFirst = "1 hide FramDeclare\n100 caption LblStock Stock 3\n" +
                                   kAdaDraws + "700 caption LblStock Stock 2\n" + kRobotDraws;
const std::string kRobotDrawsFirst = "600 caption LbllLastMeldC 0\n100 caption LblStock Stock 3\n" +
                                     kRobotDraws + "700 caption LblStock Stock 2\n" + kAdaDraws;
const std::string kRoundTwoOpens = "0 hide LblKnock\n0 panel 4 Round 2\n0 message Round Two\n";

// Ada holds the trumps but the Nine and a Jack, both Aces of Hearts and a
// Nine of Clubs; the robot holds Clubs and Spades without a meld. Three stock
// cards are left, the Jack of trumps turned up. Ada plays the two cards
// named and cancels the meld offers: her Ace of trumps wins over the robot's
// lead, her Ace of Hearts wins her lead, and the robot takes her Nine of
// Clubs with its Ace and wins its own lead. At the offer after the last pair
// she first clicks a card of the robot and one of her own, and melds a run
// when she took the up card; while the run is laid out she clicks her own
// card once more.
struct LastTricks : RoundOneTable {
    LastTricks(int leader, std::array<int, 2> plays, int choice)
        : RoundOneTable(Diamonds, JD2, 10) {
        for (int card = 1; card <= CardCount; ++card) {
            if (card != g.UpCard) Card(g, card).Place = PlacePlayed;
        }
        Give(ThePlayer, {AD, Second(AD), TD, Second(TD), KD, Second(KD), QD, Second(QD), JD1, AH,
                         Second(AH), NC});
        Give(TheRobot, BothCopies({AC, TC, JC, AS, TS, NS}));
        PlaceCards(g, PlaceStock, {JS, Second(JS), KH});
        g.StockLeft = 4;
        g.Leader = leader;
        g.PlayerPileLeft = g.OpponentPileLeft = 10890;
        hg.platform.policy = [this, plays, choice](Game& game) -> std::optional<TableEvent> {
            const bool stray =
                game.MeldAwaited ? strays < 2 : strays == 2 && game.MeldCommandRunning;
            if (game.RoundOneClosing && stray) return Click(strays++ == 0 ? TC : TD);
            if (game.MeldAwaited) {
                return TableEvent{game.RoundOneClosing && choice == 1
                                      ? TableEventKind::RunClick
                                      : TableEventKind::CancelClick};
            }
            if (!game.PlayerMayPlay || game.RoundOneClosing) return std::nullopt;
            return Click(plays.at(played++));
        };
        hg.platform.stopWhen = [](const Game& game) { return game.RoundTwoOn; };
        hg.table.answerDeluxe = [choice](const MessageRecord& box) {
            return box.title == "Make choice" ? choice : 0;
        };
        try {
            ContinueRoundOne(g);
        } catch (const ScenarioOver&) {
        }
        for (const MessageRecord& box : hg.table.Messages()) titles += box.title + ",";
        // As Round Two opens: the two hands, PlayerMayPlay, RoundOneOn, the
        // number of melded cards, where the up card went, and where the Ace
        // of Hearts lies (image, left, top, shown): led, it stays face down
        // on the pile; followed, it is hidden with its face.
        const CardPicture& ace = hg.table.Picture(AH);
        opening = {0,         0,        g.PlayerMayPlay, g.RoundOneOn, 0, Card(g, JD2).Place,
                   ace.image, ace.left, ace.top,         ace.visible};
        for (int card = 1; card <= CardCount; ++card) {
            opening[0] += Card(g, card).Place == PlacePlayerHand;
            opening[1] += Card(g, card).Place == PlaceOpponentHand;
            opening[4] += Card(g, card).Melded;
        }
    }

    static TableEvent Click(int card) { return {TableEventKind::CardClick, card}; }

    std::size_t strays = 0, played = 0;
    std::vector<int> opening;
    std::string titles;
};

TEST(RoundOne, AdaWinsTheLastTricksChoosesAndIsOfferedAMeldAgain) {
    // Her answer at "Make choice", the words after her name, what follows the
    // second offer, the boxes shown and where the up card goes.
    for (const auto& [choice, taking, after, titles, upCard] :
         {std::tuple{0, "taking last Stock Card", "3 hide FramDeclare\n0 hide FramDeclare\n",
                     "Make choice,Round Two,", PlaceOpponentHand},
          {1, "taking the Trump card\\.", "1 message Tut Tut\n", "Make choice,Tut Tut,Round Two,",
           PlacePlayerHand}}) {
        LastTricks t(TheRobot, {AD, AH}, choice);
        const std::string steps = Trick(11, 0, false, true, 10890) + kAdaDrawsFirst +
                                  Trick(12, 600, true, true, 10980) + R"(1 hide FramDeclare
0 image (\d+) \1
0 caption LblStock Stock 0
0 caption LblLastTrickP 10
0 message Make choice
0 panel 2 Ada is )" + taking + R"(
0 show FramDeclare
0 panel 2  Click a Meld to make or click Cancel to receive a card
)" + after + (choice == 0 ? kRoundTwoOpens : "");
        EXPECT_EQ(Paces(t.hg.table.timeline, steps), steps);
        // Her stray clicks play nothing; only with the up card taken is her
        // turn open, and the robot's card brings its box.
        EXPECT_EQ(t.titles, titles);
        EXPECT_EQ(t.opening, (std::vector<int>{12, 12, true, false, 0, upCard, CardBackImage, 10980,
                                               7560, true}));
        // Taking the up card, she melds a run with sounds of its own.
        if (choice == 1) continue;
        EXPECT_EQ(t.hg.platform.sounds.size(), 8U);
    }
}

TEST(RoundOne, RobotWinsTheLastTricksTakesTheUpCardThenMelds) {
    LastTricks t(ThePlayer, {NC, AH}, 0);
    const std::string steps = Trick(11, 0, true, false, 10890) + kRobotDrawsFirst +
                              Trick(12, 600, false, false, 10980) + R"(500 image (\d+) \1
0 caption LblStock Stock 0
0 caption LblLastTrickC 10
0 panel 2 Lorinda deciding which card to take
100 message Taking trump card
700 move \d+ 2820 2280
600 move \d+ 1755 7500
600 move \d+ 1800 7700
600 caption LblStock 0
100 caption LbllLastMeldC 0
)" + kRoundTwoOpens;
    EXPECT_EQ(Paces(t.hg.table.timeline, steps), steps);
    EXPECT_EQ(t.opening, (std::vector<int>{12, 12, false, false, 0, PlaceOpponentHand, AH, 11760,
                                           4680, false}));
}

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
