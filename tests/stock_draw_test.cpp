// The draws after a trick and the robot's choice of the last two cards.
#include "round_one/stock_draw.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

int CountAt(const Game& g, int place) {
    int count = 0;
    for (int card = 1; card <= CardCount; ++card) count += Card(g, card).Place == place ? 1 : 0;
    return count;
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
        Game& g = t.g;
        for (int card = 1; card <= CardCount; ++card) {
            if (Card(g, card).Place == PlaceStock) Card(g, card).Place = PlacePlayed;
        }
        Card(g, last).Place = PlaceStock;
        g.LastStockCard = last;
        TakeLastStock(g);
        const int robotCard = takesStock ? last : up;
        const int playerCard = takesStock ? up : last;
        ASSERT_EQ(t.hg.table.Messages().size(), 1U);
        const MessageRecord& box = t.hg.table.Messages()[0];
        EXPECT_EQ(box.text, takesStock ? "Lorinda has decided to take the last Stock card."
                                       : "Lorinda has decided to take the UpCard trump.");
        EXPECT_EQ(box.title, takesStock ? "Taking Stock card" : "Taking trump card");
        EXPECT_EQ(box.buttons, (std::array<std::string, 3>{"O.K", "", ""}));
        EXPECT_EQ(box.icon, 1);
        EXPECT_EQ(t.hg.table.Caption(TableLabel::LblStock), "0");
        // The robot's card ends face down in its row, the player's face up.
        EXPECT_EQ(Card(g, robotCard).Place, PlaceOpponentHand);
        EXPECT_EQ(Card(g, playerCard).Place, PlacePlayerHand);
        const CardPicture& robots = t.hg.table.Picture(robotCard);
        const CardPicture& players = t.hg.table.Picture(playerCard);
        EXPECT_EQ(std::tuple(robots.image, robots.top), std::tuple(CardBackImage, 120));
        EXPECT_EQ(std::tuple(players.image, players.top), std::tuple(playerCard, 10080));
        EXPECT_EQ(g.DelayMs, g.GameSpeed);
        // 700 after the message, two draws at 600 (the player's with two
        // waits), and the closing wait at the everyday pace.
        EXPECT_EQ(t.hg.platform.TickCount(), 700 + 600 + 2 * 600 + 100);
    }
}

TEST(DrawAfterTrick, TakesAStockCardIntoTheDrawersRow) {
    for (const int who : {ThePlayer, TheRobot}) {
        SCOPED_TRACE(who);
        RoundOneTable t(Hearts, NH, 3);
        Game& g = t.g;
        g.GameSpeed = g.DelayMs = 25;
        // Nineteen cards stay in the stock.
        g.StockLeft = 20;
        for (int card = 1; card <= 28; ++card) {
            if (card != NH) Card(g, card).Place = HandPlace(card % 2 == 0 ? ThePlayer : TheRobot);
        }
        t.hg.table.SetControlVisible(TableControl::FramDeclare, true);
        const int hand = CountAt(g, HandPlace(who));
        DrawAfterTrick(g, who);
        EXPECT_EQ(CountAt(g, HandPlace(who)), hand + 1);
        EXPECT_EQ(CountAt(g, PlaceStock), 18);
        EXPECT_EQ(g.StockLeft, 19);
        EXPECT_EQ(t.hg.table.Caption(TableLabel::LblStock), "Stock 19");
        // Only the player's draw closes the meld panel.
        EXPECT_EQ(t.hg.table.IsControlVisible(TableControl::FramDeclare), who == TheRobot);
        for (int card = 29; card <= CardCount; ++card) {
            if (Card(g, card).Place != HandPlace(who)) continue;
            const CardPicture& drawn = t.hg.table.Picture(card);
            EXPECT_EQ(std::tuple(drawn.image, drawn.top),
                      who == ThePlayer ? std::tuple(card, 10080) : std::tuple(CardBackImage, 120));
        }
        EXPECT_EQ(g.DelayMs, 25);
        EXPECT_EQ(t.hg.platform.TickCount(), who == ThePlayer ? 2 * 525 : 525);
    }
}

}  // namespace
}  // namespace trickhaven
