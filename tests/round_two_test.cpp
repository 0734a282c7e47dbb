// The tricks of Round Two, on a table laid by hand and in whole hands played
// on the headless table.
#include "round_two/round_two.h"

#include <gtest/gtest.h>

#include <deque>
#include <tuple>

#include "game/session.h"
#include "headless/player_policy.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

constexpr int NineD = CardIndex(Nine, Diamonds), JackC = CardIndex(Jack, Clubs);

// The last tricks of a hand, Spades trumps; the player clicks the cards in
// turn, each when a card is awaited.
void PlayLastTricks(HeadlessGame& hg, int leader, const std::vector<int>& player,
                    const std::vector<int>& robot, std::deque<int> clicks, int playerTotal = 0) {
    Game& g = hg.game;
    ClearTable(g);
    g.OpponentName = "Lorinda";
    g.TargetScore = 1000;
    g.PlayerTotal = static_cast<std::int16_t>(playerTotal);
    g.GameOn = true;
    g.RoundTwoOn = true;
    g.TrumpSuit = Spades;
    g.Leader = leader;
    g.PlayerMayPlay = leader == ThePlayer;
    g.TrickCount = 24 - static_cast<int>(player.size());
    for (const int card : player) Card(g, card).Place = PlacePlayerHand;
    for (const int card : robot) Card(g, card).Place = PlaceOpponentHand;
    hg.platform.policy = [clicks](Game& game) mutable -> std::optional<TableEvent> {
        if (clicks.empty() || !CardAwaited(game)) return std::nullopt;
        const int card = clicks.front();
        clicks.pop_front();
        return TableEvent{TableEventKind::CardClick, card};
    };
    try {
        ContinueRoundTwo(g);
    } catch (const GameAbandoned&) {
    }
}

// True when the texts appear in the status panels in this order.
bool PanelsTold(const HeadlessTable& table, const std::vector<std::string>& texts) {
    auto next = texts.begin();
    for (const auto& [panel, text] : table.PanelHistory()) {
        if (next != texts.end() && text == *next) ++next;
    }
    return next == texts.end();
}

std::vector<std::string> Titles(const HeadlessTable& table) {
    std::vector<std::string> titles;
    for (const MessageRecord& m : table.Messages()) titles.push_back(m.title);
    return titles;
}

// The robot leads; a Spade on Hearts and a Club with a trump in hand are
// refused and keep the turn open; the player then wins and leads.
TEST(RoundTwo, TricksAreLedAnsweredBookedAndTheHandCloses) {
    HeadlessGame hg;
    const Game& g = hg.game;
    PlayLastTricks(hg, TheRobot, {TH, KS, JackC}, {AH, NineD, NC}, {KS, TH, JackC, KS, JackC});
    EXPECT_TRUE(PanelsTold(
        hg.table,
        {"Tricks 22", "Lorinda plays Ace of Hearts", "Player your lead, please click card to play",
         "Lorinda 's trick score is 21", "Tricks 23", "Lorinda plays Nine of Diamonds",
         "Player 's trick score is 4", "Player your turn, please click card to play", "Tricks 24",
         "Player your lead, please click card to play", "Lorinda plays Nine of Clubs",
         "Player 's trick score is 2"}));
    EXPECT_EQ(g.TrickCount, 24);
    EXPECT_EQ(std::tuple(g.PlayerTotal, g.OpponentTotal), std::tuple(6, 21));
    EXPECT_EQ(hg.table.Caption(TableLabel::LblTotTricksP), "6");
    EXPECT_EQ(hg.table.Caption(TableLabel::LblTotTricskC), "21");
    EXPECT_EQ(Titles(hg.table), (std::vector<std::string>{"Must follow suit.", "You have a Trump",
                                                          "Hand Lost", "Total Scores"}));
    for (int card = 1; card <= CardCount; ++card) {
        EXPECT_TRUE(Card(g, card).Place != PlacePlayerHand &&
                    Card(g, card).Place != PlaceOpponentHand);
    }
}

TEST(RoundTwo, TargetWaitsForTheLastTrick) {
    HeadlessGame hg;
    Game& g = hg.game;
    int trickAtTheEnd = 0;
    hg.table.answerDeluxe = [&](const MessageRecord&) {
        trickAtTheEnd = Card(g, KC).Place == PlacePlayed ? g.TrickCount : 0;
        return 1;
    };
    PlayLastTricks(hg, ThePlayer, {AH, NC}, {NH, KC}, {AH, NC}, 995);
    EXPECT_EQ(trickAtTheEnd, 24);
    EXPECT_EQ(g.Request, SessionRequest::Quit);
    ASSERT_EQ(Titles(hg.table), std::vector<std::string>{"Play again?"});
    EXPECT_NE(hg.table.Messages()[0].text.find(" points 1006 against 4 "), std::string::npos);
}

TEST(WholeHand, TrickPointsAddUpTo250And260WithANineTurnedUp) {
    int ninesTurnedUp = 0;
    for (std::uint64_t seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE(seed);
        HeadlessGame hg(seed);
        PlayerPolicy player(PolicyKind::First, seed);
        int nineBonus = -1;
        bool totalsShown = false;
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.platform.policy = [&](Game& g) {
            // Read at the deal: a dix later makes the Nine the up card.
            if (g.RoundOneOn && nineBonus < 0) nineBonus = Card(g, g.UpCard).Value == Nine ? 10 : 0;
            return player.Next(g);
        };
        hg.table.answerDeluxe = [&](const MessageRecord& m) {
            const Game& g = hg.game;
            if (m.title == "Total Scores") {
                totalsShown = true;
                EXPECT_EQ(g.PlayerTotalTricks + g.OpponentTotalTricks, 250 + nineBonus);
                EXPECT_EQ(g.PlayerTotal, g.PlayerTotalMelds + g.PlayerTotalTricks);
                EXPECT_EQ(g.OpponentTotal, g.OpponentTotalMelds + g.OpponentTotalTricks);
            }
            return player.Answer(m);
        };
        hg.platform.stopWhen = [](const Game& g) { return g.HandNumber == 2; };
        ASSERT_TRUE(hg.Run());
        EXPECT_TRUE(totalsShown);
        ninesTurnedUp += nineBonus > 0 ? 1 : 0;
    }
    EXPECT_GT(ninesTurnedUp, 0);
}

}  // namespace
}  // namespace trickhaven
