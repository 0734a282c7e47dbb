// The start of the program, of a game and of a hand, and what a new game or
// an exit asked for in the middle of play leaves behind.
#include <gtest/gtest.h>

#include <sstream>
#include <tuple>

#include "game/hand_setup.h"
#include "headless/headless_game.h"
#include "headless/player_policy.h"

namespace trickhaven {
namespace {

TEST(SetUpHand, ClearsTheHandAndOnANewGameTheGameAndItsOpenPanels) {
    for (const bool newGame : {true, false}) {
        SCOPED_TRACE(newGame);
        HeadlessGame hg;
        Game& g = hg.game;
        // Everything that a hand sets up, then what only a new game does.
        const auto hand =
            std::tie(g.PlayerPinochleMade, g.OpponentPinochleMade, g.PlayerDoublePinochleMade,
                     g.OpponentDoublePinochleMade, g.MeldDone, g.PlayerMayPlay, g.MeldAwaited,
                     g.PlayerKnocked, g.RoundOneOn, g.RoundTwoOn, g.RoundOneClosing,
                     g.MeldCommandRunning, g.PlayerPileLeft, g.OpponentPileLeft, g.PlayerLastMeld,
                     g.OpponentLastMeld, g.PlayerLastTrick, g.OpponentLastTrick, g.PlayerTotalMelds,
                     g.OpponentTotalMelds, g.PlayerTotalTricks, g.OpponentTotalTricks, g.StockLeft,
                     g.DelayMs, g.LastStockCard, g.LeadCard, g.FollowCard, g.UpCard, g.LeadSuit,
                     g.FollowSuit, g.TrumpSuit, g.TrickCount);
        const auto game = std::tie(g.PlayerTotal, g.OpponentTotal, g.HandNumber, g.TargetScore);
        const auto dirty = [](auto&... figure) { ((figure = 1), ...); };
        std::apply(dirty, hand);
        std::apply(dirty, game);
        for (int card = 1; card <= CardCount; ++card)
            Card(g, card).Melded = Card(g, card).DixDone = true;
        for (int label = 0; label <= int(TableLabel::LblTotScoreC); ++label)
            hg.table.SetCaption(TableLabel(label), "9");
        for (const int panel : {3, 4}) hg.table.SetPanelText(panel, "9");
        const auto panels = {TableControl::FramDeclare, TableControl::FramMarriage,
                             TableControl::LblKnock};
        for (const TableControl panel : panels) hg.table.SetControlVisible(panel, true);
        g.GameOn = !newGame;
        hg.platform.stopWhen = [](const Game&) { return true; };  // at the deal's first wait
        EXPECT_THROW(SetUpHand(g), ScenarioOver);
        std::ostringstream shown;
        const auto show = [&shown](const auto&... figure) { ((shown << +figure << ' '), ...); };
        std::apply(show, hand);
        std::apply(show, game);
        for (int label = int(TableLabel::LblStock); label <= int(TableLabel::LblTotScoreC); ++label)
            shown << hg.table.Caption(TableLabel(label)) << '|';
        shown << hg.table.Title() << '|' << hg.table.PanelText(3) << '|' << hg.table.PanelText(4)
              << '|';
        for (const TableControl panel : panels) shown << hg.table.IsControlVisible(panel);
        for (int card = 1; card <= CardCount; ++card) {
            shown << (Card(g, card).Place == PlaceStock && CardFlagBits(Card(g, card)) == 0 &&
                      !hg.table.Picture(card).visible);
        }
        EXPECT_EQ(shown.str(),
                  "0 0 0 0 0 0 0 0 0 0 0 0 10440 10440 0 0 0 0 0 0 0 0 0 100 0 0 0 0 5 5 5 0 " +
                      std::string(newGame ? "0 0 0 1000 Stock|9|0|0|0|0|0|0|0|0|0|0|Target Score "
                                            "1000|Tricks|Round |000" +
                                                std::string(48, '1')
                                          : "1 1 1 1 Stock|9|0|0|0|0|9|0|0|0|0|9||9|9|111" +
                                                std::string(48, '1')));
    }
}

TEST(NewGame, NoGoesOnYesLeavesTheMeldOfferForAFreshGameAndExitEnds) {
    HeadlessGame hg(3);
    PlayerPolicy player(PolicyKind::First, 3);
    std::vector<int> dealers;
    hg.table.answerDeluxe = [&](const MessageRecord&) { return dealers.size() == 1 ? 0 : 1; };
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.policy = [&](Game& g) -> std::optional<TableEvent> {
        // No in the deal's first wait, Yes at the meld offer, Exit in a wait
        // of trick 3 of the new game.
        const bool ask = dealers.empty() ? g.GameOn
                         : dealers.size() == 1
                             ? g.MeldAwaited
                             : g.TrickCount == 3 && !g.PlayerMayPlay && !g.MeldAwaited;
        if (!ask) return player.Next(g);
        dealers.push_back(g.Dealer);
        return TableEvent{dealers.size() == 3 ? TableEventKind::MenuExit
                                              : TableEventKind::MenuNewGame};
    };
    hg.platform.stopWhen = [&](const Game&) { return hg.platform.eventsServed > 5000; };
    EXPECT_FALSE(hg.Run()) << "the exit ends the program";
    ASSERT_EQ(dealers.size(), 3U);
    const MessageRecord& leave = hg.table.Messages().at(0);
    EXPECT_EQ(std::tuple(leave.text, leave.buttons[0], leave.buttons[1], leave.icon, leave.title),
              std::tuple("You are in the middle of a game. Really start a new one?", "No Continue",
                         "Yes New Game", 2, "Leave this game?"));
    EXPECT_EQ(dealers[0], dealers[1]);
    EXPECT_NE(dealers[1], dealers[2]) << "the new game swaps the dealer once more";
    const auto& lines = hg.table.timeline;
    std::vector<std::string> afterBoxes;
    for (auto line = lines.begin(); line != lines.end(); ++line) {
        if (line->find(" message ") != std::string::npos)
            afterBoxes.push_back(line + 1 == lines.end()
                                     ? "the end"
                                     : (line + 1)->substr((line + 1)->find(' ') + 1, 6));
    }
    EXPECT_EQ(afterBoxes, std::vector<std::string>({"image ", "card 1", "the end"}));
}

}  // namespace
}  // namespace trickhaven
