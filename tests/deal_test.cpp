// The start of the program, of a game and of a hand: the random pick, the
// deal, the rows of the hands and the score panels; and what a new game or
// an exit asked for in the middle of play leaves behind.
#include "table/deal.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <tuple>

#include "game/hand_setup.h"
#include "game/session.h"
#include "headless/headless_game.h"
#include "headless/player_policy.h"
#include "table/hand_rows.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

// The deal from the dealer's text to the hand's number, a step for each
// change of the table: a card shown by its face or back, a stop of its
// flight, a row or the stock laid as one step, "+ms" for each wait.
std::string DealSteps(const HeadlessGame& hg) {
    std::map<int, int> image;
    std::string steps, last;
    long lastTime = -1, time = 0;
    for (const std::string& line : hg.table.timeline) {
        char what[8] = "";
        int card = 0, a = 0, b = 0;
        std::sscanf(line.c_str(), "%ld %7s %d %d %d", &time, what, &card, &a, &b);
        std::string step = line.substr(line.find(' ') + 1), kind = what;
        if (kind == "image") image[card] = a;
        if (kind == "image" || (steps.empty() && step.find("a cut for") == std::string::npos))
            continue;
        const bool inStock = Card(hg.game, card).Place == PlaceStock;
        if (kind == "move") {
            step = b == 10080              ? "rowP"
                   : b == 120 && a >= 2880 ? "rowR"
                   : inStock               ? "stock"
                                           : std::to_string(a) + " " + std::to_string(b);
        }
        if (kind == "card")
            step = inStock ? "stock" : image[card] == CardBackImage ? "back" : "face";
        if (kind == "sound") step = step.substr(6, step.size() - 10);
        if (lastTime >= 0 && time != lastTime) steps += "+" + std::to_string(time - lastTime) + "|";
        if (step != last) steps += step + "|";
        lastTime = time;
        last = step;
        if (step.rfind("panel 4", 0) == 0) break;
    }
    return steps;
}

std::string ExpectedDealSteps(const Game& g) {
    const std::array<std::string, 6> ranks{"Ace", "Ten", "King", "Queen", "Jack", "Nine"};
    const std::array<std::string, 4> suits{"Diamonds", "Clubs", "Hearts", "Spades"};
    const auto up = static_cast<std::size_t>(g.UpCard - 1);
    const bool youDeal = g.Dealer == ThePlayer;
    const std::string you = g.PlayerName, bot = g.OpponentName;
    const std::string toYou = "face|1080 2280|+25|1920 4560|+25|3360 8120|+25|carddeal1|+25|rowP|";
    const std::string toBot = "back|1080 1320|+100|2760 1220|carddeal1|+100|rowR|";
    const std::string yours = toYou + toYou + toYou + "+100|",
                      bots = toBot + toBot + toBot + "+100|";
    std::string steps = "panel 2 " + you +
                        (youDeal ? " a cut for dealer made and you will deal."
                                 : " a cut for dealer was made and " + bot + " will deal.") +
                        "|riffle|+200|";
    for (int round = 0; round < 4; ++round) steps += youDeal ? bots + yours : yours + bots;
    steps += "100 100|face|stock|rowP|caption CmdSort Sort Suits|rowR|panel 1 " +
             SuitWord(g.TrumpSuit) + " are Trumps|panel 2 The UpCard is " + ranks[up % 12 / 2] +
             " of " + suits[up / 12] + "|caption LblStock Stock 24|show CmdSort|";
    if (Card(g, g.UpCard).Value == Nine) {
        steps += "panel 2 " + (youDeal ? you : bot) + " turns up a 9 - Score- 10|+100|" +
                 (youDeal ? "caption LblLastTrickP 10|caption LblTotTricksP 10|"
                          : "caption LblLastTrickC 10|caption LblTotTricskC 10|");
    }
    steps += youDeal ? "panel 2 " + bot + " to lead a card.|"
                     : "panel 2 " + you + " please Left or Right click to play card.|";
    return steps + "panel 4 Round 1|";
}

// The cards of the row at Top `top` from Left `left` on, one `step` apart;
// each covers the one before and shows `image` (0: its face).
std::vector<int> Row(const HeadlessGame& hg, int top, int left, int step, int image = 0) {
    std::map<int, int> byLeft;
    for (int card = 1; card <= CardCount; ++card) {
        const CardPicture& picture = hg.table.Picture(card);
        if (picture.top == top && picture.left >= 2500) byLeft[picture.left] = card;
    }
    std::vector<int> row;
    for (const auto& [at, card] : byLeft) {
        const CardPicture& picture = hg.table.Picture(card);
        EXPECT_EQ(at, left + step * int(row.size())) << card;
        EXPECT_EQ(picture.image, image == 0 ? card : image) << card;
        EXPECT_GT(picture.z, row.empty() ? 0 : hg.table.Picture(row.back()).z) << card;
        row.push_back(card);
    }
    return row;
}

TEST(Deal, FromTheIdleTableStepsPacesTextsAndRowsFollowTheDealerAndANineTurnedUp) {
    std::map<std::pair<int, bool>, int> seen;
    for (std::uint64_t seed = 1; seed <= 200 && seen.size() < 4; ++seed) {
        SCOPED_TRACE(seed);
        HeadlessGame hg(seed);
        std::ofstream(hg.folder / "Data.dat") << "3,4,100,\"Ann\",\"Bob\",500\r\n";
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.platform.stopWhen = [&hg](const Game& g) {
            if (!g.GameOn) {  // the idle table, with Data.dat's names and a target of 500
                std::string shown = hg.table.Title() + "|" + hg.table.PanelText(2);
                for (const TableLabel label : {TableLabel::LblPlayer, TableLabel::LblPname,
                                               TableLabel::LblBName, TableLabel::LblBotsName})
                    shown += "|" + hg.table.Caption(label);
                EXPECT_EQ(
                    shown,
                    " Target Score 1000|Ann press F2 for new game or use Menu.|Ann|Ann|Bob|Bob");
                // All 48 lie face down on the pile, each a step down and right.
                for (int card = 1; card <= CardCount; ++card) {
                    const CardPicture& p = hg.table.Picture(card);
                    EXPECT_EQ(std::tuple(Card(g, card).Place, p.image, p.visible, p.left, p.top),
                              std::tuple(PlaceStock, CardBackImage, true, 537 + 3 * card,
                                         116 + 4 * card));
                }
            } else if (!g.RoundOneOn) {  // a card in flight flies over the stock
                long stockTop = 0;
                for (int card = 1; card <= CardCount; ++card)
                    if (Card(g, card).Place == PlaceStock)
                        stockTop = std::max(stockTop, hg.table.Picture(card).z);
                for (int card = 1; card <= CardCount; ++card) {
                    if (Card(g, card).Place != PlaceStock && hg.table.Picture(card).left == 1080) {
                        EXPECT_GT(hg.table.Picture(card).z, stockTop);
                    }
                }
            }
            return g.RoundOneOn;
        };
        ASSERT_TRUE(hg.Run());
        const Game& g = hg.game;
        const bool nine = Card(g, g.UpCard).Value == Nine;
        ++seen[{g.Dealer, nine}];
        EXPECT_EQ(DealSteps(hg), ExpectedDealSteps(g));
        EXPECT_EQ(
            std::vector<int>({g.StockLeft, g.TrumpSuit, hg.table.PanelPicture(),
                              Card(g, g.UpCard).Melded, g.PlayerTotalTricks, g.OpponentTotalTricks,
                              g.Leader, g.PlayerMayPlay, g.HandNumber}),
            std::vector<int>({24, Card(g, g.UpCard).Suit, 49 + g.TrumpSuit, nine,
                              nine && g.Dealer == 1 ? 10 : 0, nine && g.Dealer == 2 ? 10 : 0,
                              3 - g.Dealer, g.Dealer == 2, 1}));
        const auto dealt = Row(hg, 10080, 2500, 500);
        RedrawHand(hg.game);  // "Sort Suits": the order Same is on the table
        EXPECT_EQ(Row(hg, 10080, 2500, 500), dealt);
        EXPECT_EQ(Row(hg, 120, 2880, 250, CardBackImage).size(), 12U);
        int stock = 1;
        while (Card(g, stock).Place != PlaceStock) ++stock;
        const CardPicture& first = hg.table.Picture(stock);
        EXPECT_EQ(std::vector<long>(
                      {first.left, first.top, first.image, first.z > hg.table.Picture(g.UpCard).z}),
                  std::vector<long>({540, 120, CardBackImage, 1}))
            << "the stock lies over the up card";
    }
    EXPECT_EQ(seen.size(), 4U);
}

TEST(HandRows, BothOrdersTheDealsIndexOrderAndTheRobotsRowLeaveMeldedCardsOut) {
    HeadlessGame hg;
    Game& g = hg.game;
    ClearTable(g);
    PlaceCards(g, PlacePlayerHand, {1, 3, 4, 5, 21, 25, 29, 43, 47, 48});
    PlaceCards(g, PlaceOpponentHand, {2, 26, 30, 44});
    Card(g, 25).Melded = Card(g, 26).Melded = true;
    hg.table.SetCaption(TableLabel::CmdSort, "Sort Suits");
    const std::vector<int> same{47, 48, 3, 4, 21, 43, 5, 29, 1},
        suits{5, 3, 4, 1, 21, 29, 47, 48, 43};
    g.DelayMs = 7;
    RedrawHand(g);
    EXPECT_EQ(Row(hg, 10080, 2500, 500), same);
    EXPECT_EQ(g.DelayMs, 100);
    g.DelayMs = 7;
    HandleEvent(g, {TableEventKind::SortClick});
    EXPECT_EQ(Row(hg, 10080, 2500, 500), suits);
    EXPECT_EQ(g.DelayMs, 7) << "the order Suits leaves the pace alone";
    EXPECT_EQ(hg.table.Caption(TableLabel::CmdSort), "Sort Same");
    HandleEvent(g, {TableEventKind::SortClick});
    EXPECT_EQ(Row(hg, 10080, 2500, 500), same);
    EXPECT_EQ(hg.table.Caption(TableLabel::CmdSort), "Sort Suits");
    ShowPlayerHand(g);
    EXPECT_EQ(Row(hg, 10080, 2500, 450), std::vector<int>({1, 3, 4, 5, 21, 29, 43, 47, 48}));
    ShowOpponentHand(g);
    EXPECT_EQ(Row(hg, 120, 2880, 250, CardBackImage), std::vector<int>({2, 30, 44}));
}

TEST(PickStockCard, OnlyStockCardsComeTheSecondNineOfSpadesHalfAsOftenAndRetriesDrawAfresh) {
    HeadlessGame hg(2024);
    ClearTable(hg.game);
    std::map<int, int> counts;
    constexpr int kDraws = 95000;
    for (int i = 0; i < kDraws; ++i) ++counts[PickStockCard(hg.game)];
    // 47 full spans and one half span of r times 48.
    EXPECT_NEAR(counts[47], kDraws / 47.5, 250);
    EXPECT_NEAR(counts[48], kDraws / 95.0, 180);
    // One card left in the stock: every retry takes the stream's next
    // number, so the pick still finds it.
    for (int card = 1; card < CardCount; ++card) Card(hg.game, card).Place = PlacePlayed;
    for (int i = 0; i < 50; ++i) EXPECT_EQ(PickStockCard(hg.game), 48);
}

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
