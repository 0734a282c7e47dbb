// Whole Rounds One on the headless table, from "New Game" to the message
// that opens Round Two, with a player who plays the first card of his hand
// and cancels every meld offer.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <tuple>

#include "round_one/trick_cycle.h"
#include "headless/headless_game.h"

namespace trickhaven {
namespace {

int CountAt(const Game& g, int place) {
    int count = 0;
    for (int card = 1; card <= CardCount; ++card) count += Card(g, card).Place == place ? 1 : 0;
    return count;
}

int PlayedPoints(const Game& g) {
    int points = 0;
    for (int card = 1; card <= CardCount; ++card) {
        if (Card(g, card).Place == PlacePlayed) points += CardPoints(Card(g, card).Value);
    }
    return points;
}

int FirstOfHand(const Game& g) {
    int card = 1;
    while (card < CardCount && Card(g, card).Place != PlacePlayerHand) ++card;
    return card;
}

const MessageRecord* FindBox(const HeadlessTable& table, const std::string& title) {
    for (const MessageRecord& box : table.Messages()) {
        if (box.title == title) return &box;
    }
    return nullptr;
}

struct RoundOneRun {
    RoundOneRun(std::uint64_t seed, int choice) : hg(seed) {
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.platform.policy = [this](Game& g) { return NextMove(g); };
        hg.platform.stopWhen = [this](const Game& g) {
            WatchTheLead(g);
            return roundTwoLeader != 0;
        };
        hg.table.answerDeluxe = [this, choice](const MessageRecord& box) {
            if (box.title == "Make choice") {
                stockFaceAtChoice = hg.table.Picture(hg.game.LastStockCard).image;
                lastTrickAtChoice = hg.table.Caption(TableLabel::LblLastTrickP);
                return choice;
            }
            if (box.title == "Round Two") RoundTwoOpens(hg.game, box);
            return 0;
        };
        EXPECT_TRUE(hg.Run());
    }

    std::optional<TableEvent> NextMove(const Game& g) {
        if (g.MeldAwaited) {
            // While Round One closes, a click on his own card tries to play
            // before he cancels.
            if (g.RoundOneClosing && !strayClickServed) {
                strayClickServed = true;
                return TableEvent{TableEventKind::CardClick, FirstOfHand(g)};
            }
            return TableEvent{TableEventKind::CancelClick};
        }
        if (!g.PlayerMayPlay || !g.RoundOneOn || g.RoundOneClosing) return std::nullopt;
        const std::string prompt = g.Leader == ThePlayer
                                       ? " please click card you wish to play."
                                       : " please click the card you wish to play";
        EXPECT_EQ(hg.table.PanelText(2), g.PlayerName + prompt) << "trick " << g.TrickCount;
        return TableEvent{TableEventKind::CardClick, FirstOfHand(g)};
    }

    // The first round of events of a trick comes before any card of it is
    // played: both hands hold twelve there.
    void WatchTheLead(const Game& g) {
        if (!g.RoundOneOn || g.TrickCount == watchedTrick || g.TrickCount == 0) return;
        const int trick = watchedTrick = g.TrickCount;
        SCOPED_TRACE("trick " + std::to_string(trick));
        ++leadsWatched;
        if (trick == 1) nineBonus = Card(g, g.UpCard).Value == Nine ? 10 : 0;
        EXPECT_EQ(CountAt(g, PlacePlayerHand), 12);
        EXPECT_EQ(CountAt(g, PlaceOpponentHand), 12);
        EXPECT_EQ(g.StockLeft, 24 - 2 * (trick - 1));
        EXPECT_EQ(CountAt(g, PlaceStock) + 1, g.StockLeft);
        EXPECT_EQ(Card(g, g.UpCard).Place, PlaceUpCard);
        EXPECT_EQ(hg.table.Caption(TableLabel::LblStock), "Stock " + std::to_string(g.StockLeft));
        EXPECT_EQ(hg.table.PanelText(3), "Tricks " + std::to_string(trick));
        // Tricks feed the trick totals only; the game totals hold melds.
        EXPECT_EQ(g.PlayerTotal, g.PlayerTotalMelds);
        EXPECT_EQ(g.OpponentTotal, g.OpponentTotalMelds);
        EXPECT_EQ(hg.table.Caption(TableLabel::LblTotalScoreP), std::to_string(g.PlayerTotal));
        EXPECT_EQ(g.PlayerTotalTricks + g.OpponentTotalTricks, PlayedPoints(g) + nineBonus);
        EXPECT_EQ(hg.table.Caption(TableLabel::LblTotTricksP), std::to_string(g.PlayerTotalTricks));
        // Each pile grows by 90 twips a trick.
        EXPECT_EQ((g.PlayerPileLeft - 10440) % 90 + (g.OpponentPileLeft - 10440) % 90, 0);
        EXPECT_EQ(g.PlayerPileLeft + g.OpponentPileLeft - 2 * 10440, 90 * (trick - 1));
    }

    void RoundTwoOpens(const Game& g, const MessageRecord& box) {
        EXPECT_EQ(leadsWatched, 12);
        EXPECT_EQ(CountAt(g, PlacePlayerHand), 12);
        EXPECT_EQ(CountAt(g, PlaceOpponentHand), 12);
        for (int card = 1; card <= CardCount; ++card) EXPECT_FALSE(Card(g, card).Melded);
        EXPECT_FALSE(hg.table.IsControlVisible(TableControl::LblKnock));
        EXPECT_EQ(g.PlayerMayPlay, g.Leader == ThePlayer);
        EXPECT_EQ(hg.table.PanelText(4), "Round 2");
        // The 10 for the last trick comes on top of the cards' points.
        EXPECT_EQ(g.PlayerTotalTricks + g.OpponentTotalTricks, PlayedPoints(g) + 10 + nineBonus);
        EXPECT_EQ(box.text, g.PlayerName +
                                " you are now on Round Two and must follow suit or play a Trump if "
                                "you do not have suit but have a Trump");
        EXPECT_EQ(std::tuple(box.buttons[0] + box.buttons[1] + box.buttons[2], box.icon),
                  std::tuple("Right", 3));
        stockLabel = hg.table.Caption(TableLabel::LblStock);
        roundTwoLeader = g.Leader;
    }

    HeadlessGame hg;
    int watchedTrick = 0, leadsWatched = 0, nineBonus = 0, roundTwoLeader = 0;
    int stockFaceAtChoice = 0;
    std::string lastTrickAtChoice, stockLabel;
    bool strayClickServed = false;
};

TEST(RoundOne, KeepsTheTableInStepAndTheWinnerOfTrickTwelveChooses) {
    // The winner of trick 12, the player's answer at "Make choice", the
    // panel's words after the winner's name, the stock's label in Round Two.
    using Row = std::tuple<const char*, int, int, std::string, std::string>;
    for (const auto& [what, winner, choice, panel, label] : std::vector<Row>{
             {"Stock Card", ThePlayer, 0, " is taking last Stock Card", "Stock 0"},
             {"Up Card", ThePlayer, 1, " is taking the Trump card.", "Stock 0"},
             {"robot wins trick 12", TheRobot, 0, " deciding which card to take", "0"}}) {
        SCOPED_TRACE(what);
        std::unique_ptr<RoundOneRun> run;
        for (std::uint64_t seed = 1; seed <= 40 && (!run || run->roundTwoLeader != winner);
             ++seed) {
            run = std::make_unique<RoundOneRun>(seed, choice);
        }
        ASSERT_EQ(run->roundTwoLeader, winner);
        const Game& g = run->hg.game;
        const HeadlessTable& table = run->hg.table;
        const MessageRecord* asked = FindBox(table, "Make choice");
        const bool robotTookStock = FindBox(table, "Taking Stock card") != nullptr;
        const bool robotTookUp = FindBox(table, "Taking trump card") != nullptr;
        EXPECT_EQ(robotTookStock + robotTookUp, winner == TheRobot ? 1 : 0);
        const bool playerWon = winner == ThePlayer;
        const bool stockTaken = playerWon ? choice == 0 : robotTookStock;
        const int playerCard = playerWon == stockTaken ? g.LastStockCard : g.UpCard;
        EXPECT_EQ(Card(g, playerCard).Place, PlacePlayerHand);
        EXPECT_EQ(Card(g, g.LastStockCard + g.UpCard - playerCard).Place, PlaceOpponentHand);
        const std::string name = playerWon ? g.PlayerName : g.OpponentName;
        bool told = false;
        for (const auto& [n, text] : table.PanelHistory()) told |= text == name + panel;
        EXPECT_TRUE(told);
        EXPECT_EQ(run->stockLabel, label);
        EXPECT_EQ(table.Caption(playerWon ? TableLabel::LblLastTrickP : TableLabel::LblLastTrickC),
                  "10");
        if (!playerWon) {
            EXPECT_EQ(asked, nullptr);
            continue;
        }
        ASSERT_NE(asked, nullptr);
        EXPECT_EQ(asked->text, g.PlayerName + " you won the last trick, if you wish to take " +
                                   Card(g, g.LastStockCard).Name +
                                   " click on Stock Card or click on Up Card to take Trump card.");
        EXPECT_EQ(asked->buttons, (std::array<std::string, 3>{"Stock Card", "Up Card", ""}));
        EXPECT_EQ(asked->icon, 1);
        // The stock card is shown and the 10 for the last trick booked before
        // the question.
        EXPECT_EQ(run->stockFaceAtChoice, g.LastStockCard);
        EXPECT_EQ(run->lastTrickAtChoice, "10");
    }
}

}  // namespace
}  // namespace trickhaven
