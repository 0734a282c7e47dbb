// The start of the program and "New Game", also in the middle of a deal.
#include <gtest/gtest.h>

#include <sstream>

#include "headless/headless_game.h"
#include "headless/player_policy.h"

namespace trickhaven {
namespace {

// Everything a new game could disturb, as one comparable text.
std::string Snapshot(const Game& g) {
    std::ostringstream out;
    for (int card = 1; card <= CardCount; ++card) {
        out << Card(g, card).Place << ':' << CardFlagBits(Card(g, card)) << ' ';
    }
    out << g.GameOn << g.Dealer << g.Leader << int{g.HandNumber} << g.RoundOneOn << g.RoundTwoOn
        << ' ' << g.TrickCount << ' ' << g.PlayerMayPlay << g.MeldAwaited << ' ' << g.TrumpSuit
        << ' ' << g.UpCard << ' ' << g.StockLeft << ' ' << g.DelayMs << ' ' << g.DelayStart << ' '
        << g.PlayerTotal << ' ' << g.OpponentTotal << ' ' << g.PlayerTotalTricks << ' '
        << g.OpponentTotalTricks << ' ' << g.TargetScore;
    return out.str();
}

int CardsInHands(const Game& g) {
    int count = 0;
    for (int card = 1; card <= CardCount; ++card) {
        const int place = Card(g, card).Place;
        count += place == PlacePlayerHand || place == PlaceOpponentHand ? 1 : 0;
    }
    return count;
}

long Riffles(const HeadlessGame& hg) {
    return std::count(hg.platform.sounds.begin(), hg.platform.sounds.end(), "riffle.wav");
}

TEST(FormLoad, OpensOnAnIdleTableWithTheStockFaceDown) {
    HeadlessGame hg(3);
    hg.platform.stopWhen = [](const Game&) { return true; };
    ASSERT_TRUE(hg.Run());
    const Game& g = hg.game;
    EXPECT_FALSE(g.GameOn);
    EXPECT_TRUE(g.Dealer == ThePlayer || g.Dealer == TheRobot);
    EXPECT_EQ(g.TargetScore, 1000);
    EXPECT_EQ(hg.table.Title(), " Target Score 1000");
    EXPECT_EQ(hg.table.PanelText(2), "Player press F2 for new game or use Menu.");
    EXPECT_EQ(hg.table.Caption(TableLabel::LblBotsName), "Lorinda");
    EXPECT_EQ(hg.table.Caption(TableLabel::LblBName), "Lorinda");
    EXPECT_EQ(hg.table.Caption(TableLabel::LblPlayer), "Player");
    EXPECT_EQ(hg.table.Caption(TableLabel::LblPname), "Player");
    EXPECT_FALSE(hg.table.IsControlVisible(TableControl::CmdSort));
    for (int card = 1; card <= CardCount; ++card) {
        EXPECT_EQ(Card(g, card).Place, PlaceStock);
        EXPECT_TRUE(hg.table.Picture(card).visible);
        EXPECT_EQ(hg.table.Picture(card).image, CardBackImage);
        EXPECT_EQ(hg.table.Picture(card).left, 540 + 3 * (card - 1));
    }
}

TEST(FormLoad, TheFirstDealerIsDrawnAtRandom) {
    int dealtBy[3] = {0, 0, 0};
    for (std::uint64_t seed = 1; seed <= 200; ++seed) {
        HeadlessGame hg(seed);
        hg.platform.stopWhen = [](const Game&) { return true; };
        ASSERT_TRUE(hg.Run());
        ++dealtBy[hg.game.Dealer];
    }
    EXPECT_GT(dealtBy[1], 70);
    EXPECT_GT(dealtBy[2], 70);
}

TEST(NewGame, WithNoGameOnItDealsAtOnce) {
    HeadlessGame hg(4);
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.stopWhen = [](const Game& g) { return g.RoundOneOn; };
    ASSERT_TRUE(hg.Run());
    EXPECT_TRUE(hg.table.Messages().empty());
    EXPECT_TRUE(hg.game.GameOn);
    EXPECT_EQ(hg.table.PanelText(4), "Round 1");
}

// Asks for a new game when the deal has dealt `dealt` cards, answering with
// `answer`, and plays on to the first lead.
struct NewGameInTheDeal {
    explicit NewGameInTheDeal(int answer, int dealt = 7) : hg(9) {
        hg.table.answerDeluxe = [this, answer](const MessageRecord& m) {
            asked = m;
            return answer;
        };
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.platform.policy = [this, dealt](Game& g) -> std::optional<TableEvent> {
            if (!fired && g.GameOn && CardsInHands(g) == dealt) {
                fired = true;
                before = Snapshot(g);
                firstDealer = g.Dealer;
                return TableEvent{TableEventKind::MenuNewGame};
            }
            return std::nullopt;
        };
        hg.platform.afterEvent = [this](const Game& g, const TableEvent&) {
            if (fired && after.empty()) after = Snapshot(g);
        };
        hg.platform.stopWhen = [](const Game& g) { return g.RoundOneOn; };
        EXPECT_TRUE(hg.Run());
    }
    HeadlessGame hg;
    bool fired = false;
    MessageRecord asked;
    std::string before;
    std::string after;
    int firstDealer = 0;
};

TEST(NewGame, NoContinueLeavesTheDealExactlyAsItWasAndItGoesOn) {
    NewGameInTheDeal run(0);
    ASSERT_TRUE(run.fired);
    EXPECT_EQ(run.asked.text, "You are in the middle of a game. Really start a new one?");
    EXPECT_EQ(run.asked.buttons, (std::array<std::string, 3>{"No Continue", "Yes New Game", ""}));
    EXPECT_EQ(run.asked.icon, 2);
    EXPECT_EQ(run.asked.title, "Leave this game?");
    EXPECT_EQ(run.after, run.before);
    EXPECT_EQ(CardsInHands(run.hg.game), 24);
    EXPECT_EQ(Riffles(run.hg), 1);
    EXPECT_EQ(run.hg.game.Dealer, run.firstDealer);
    EXPECT_EQ(run.hg.game.MessageChoice, 0);
}

TEST(NewGame, YesNewGameAbandonsTheDealAndDealsAFreshGame) {
    NewGameInTheDeal run(1);
    ASSERT_TRUE(run.fired);
    const Game& g = run.hg.game;
    EXPECT_EQ(Riffles(run.hg), 2);
    EXPECT_EQ(CardsInHands(g), 24) << "nothing of the abandoned deal goes on";
    EXPECT_NE(g.Dealer, run.firstDealer) << "the dealer changes hands once more";
    EXPECT_EQ(g.HandNumber, 1);
    EXPECT_EQ(g.PlayerTotal, 0);
    EXPECT_EQ(g.OpponentTotal, 0);
    EXPECT_EQ(g.TargetScore, 1000);
    EXPECT_EQ(run.hg.table.Title(), "Target Score 1000");
}

TEST(NewGame, TheDealerAlternatesFromGameToGame) {
    HeadlessGame hg(12);
    std::vector<int> dealers;
    hg.table.answerDeluxe = [](const MessageRecord&) { return 1; };
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.policy = [&](Game& g) -> std::optional<TableEvent> {
        if (g.RoundOneOn) {
            dealers.push_back(g.Dealer);
            return TableEvent{TableEventKind::MenuNewGame};
        }
        return std::nullopt;
    };
    hg.platform.stopWhen = [&](const Game&) { return dealers.size() == 5; };
    ASSERT_TRUE(hg.Run());
    for (std::size_t i = 1; i < dealers.size(); ++i) {
        EXPECT_NE(dealers[i], dealers[i - 1]);
    }
}

TEST(NewGame, TheDealerAlternatesFromHandToHandAndTotalsCarryOver) {
    HeadlessGame hg(31);
    PlayerPolicy player(PolicyKind::First, 31);
    std::vector<int> dealers;
    std::vector<int> totalsAtDeal;
    int lastHand = 0;
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.policy = [&](Game& g) {
        if (g.RoundOneOn && int{g.HandNumber} != lastHand) {
            lastHand = g.HandNumber;
            dealers.push_back(g.Dealer);
            totalsAtDeal.push_back(g.PlayerTotal + g.OpponentTotal);
        }
        return player.Next(g);
    };
    hg.platform.stopWhen = [&](const Game& g) { return g.GameOn && g.HandNumber == 4; };
    ASSERT_TRUE(hg.Run());
    ASSERT_EQ(dealers.size(), 3U);
    EXPECT_NE(dealers[0], dealers[1]);
    EXPECT_NE(dealers[1], dealers[2]);
    EXPECT_EQ(totalsAtDeal[0], 0);
    EXPECT_GT(totalsAtDeal[1], 0) << "the totals of a game go on from hand to hand";
    EXPECT_EQ(hg.game.TargetScore, 1000);
}

}  // namespace
}  // namespace trickhaven
