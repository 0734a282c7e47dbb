// The draws after a trick and the robot's choice of the last two cards.
#include "round_one/stock_draw.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/headless/headless_game.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

struct LastTwoCards {
    LastTwoCards(int up, int last) {
        Game& g = hg.game;
        ClearTable(g);
        for (int card = 1; card <= CardCount; ++card) {
            Card(g, card).Place = PlacePlayed;
        }
        g.GameOn = true;
        g.RoundOneOn = true;
        g.OpponentName = "Lorinda";
        g.GameSpeed = 100;
        g.TrickCount = 12;
        g.TrumpSuit = Hearts;
        g.UpCard = up;
        g.LastStockCard = last;
        Card(g, up).Place = PlaceUpCard;
        Card(g, last).Place = PlaceStock;
    }
    HeadlessGame hg;
};

struct ChoiceCase {
    std::string name;
    int up;
    int last;
    bool takesStockCard;
};

class RobotTakesLastStock : public ::testing::TestWithParam<ChoiceCase> {};

TEST_P(RobotTakesLastStock, TakesOneCardAndGivesTheOther) {
    const ChoiceCase& c = GetParam();
    LastTwoCards table(c.up, c.last);
    Game& g = table.hg.game;
    TakeLastStock(g);
    const int robotCard = c.takesStockCard ? c.last : c.up;
    const int playerCard = c.takesStockCard ? c.up : c.last;
    EXPECT_EQ(Card(g, robotCard).Place, PlaceOpponentHand);
    EXPECT_EQ(Card(g, playerCard).Place, PlacePlayerHand);
    ASSERT_EQ(table.hg.table.Messages().size(), 1U);
    const MessageRecord& box = table.hg.table.Messages().front();
    EXPECT_EQ(box.text, c.takesStockCard ? "Lorinda has decided to take the last Stock card."
                                         : "Lorinda has decided to take the UpCard trump.");
    EXPECT_EQ(box.title, c.takesStockCard ? "Taking Stock card" : "Taking trump card");
    EXPECT_EQ(box.buttons, (std::array<std::string, 3>{"O.K", "", ""}));
    EXPECT_EQ(box.icon, 1);
    EXPECT_EQ(table.hg.table.Caption(TableLabel::LblStock), "0");
    // Each card ends in its row: the robot's face down, the player's face up.
    EXPECT_EQ(table.hg.table.Picture(robotCard).image, CardBackImage);
    EXPECT_EQ(table.hg.table.Picture(robotCard).top, 120);
    EXPECT_EQ(table.hg.table.Picture(playerCard).image, playerCard);
    EXPECT_EQ(table.hg.table.Picture(playerCard).top, 10080);
    EXPECT_EQ(g.DelayMs, g.GameSpeed);
    // 700 after the message, two draws at 600 (the player's with two waits),
    // and the closing wait at the everyday pace.
    EXPECT_EQ(table.hg.platform.TickCount(), 700 + 600 + 2 * 600 + 100);
}

// Trumps are Hearts.
INSTANTIATE_TEST_SUITE_P(
    Cases, RobotTakesLastStock,
    ::testing::Values(
        ChoiceCase{"TrumpAceAboveTrumpKing", CardIndex(King, Hearts), CardIndex(Ace, Hearts), true},
        ChoiceCase{"TurnedUpTenKeptAboveTheAce", CardIndex(Ten, Hearts), CardIndex(Ace, Hearts),
                   false},
        ChoiceCase{"TurnedUpAceKept", CardIndex(Ace, Hearts), CardIndex(Ace, Hearts) + 1, false},
        ChoiceCase{"EqualTrumpNotTaken", CardIndex(King, Hearts), CardIndex(King, Hearts) + 1,
                   false},
        ChoiceCase{"PlainAceNeverTaken", CardIndex(Nine, Hearts), CardIndex(Ace, Clubs), false},
        ChoiceCase{"TrumpJackAboveTrumpNine", CardIndex(Nine, Hearts), CardIndex(Jack, Hearts),
                   true},
        ChoiceCase{"LowerTrumpNotTaken", CardIndex(Queen, Hearts), CardIndex(Jack, Hearts), false}),
    [](const ::testing::TestParamInfo<ChoiceCase>& info) { return info.param.name; });

struct DrawTable {
    DrawTable() {
        Game& g = hg.game;
        ClearTable(g);
        g.GameOn = true;
        g.RoundOneOn = true;
        g.GameSpeed = 25;
        g.DelayMs = 25;
        g.TrickCount = 3;
        g.StockLeft = 20;
        g.UpCard = CardIndex(Nine, Hearts);
        Card(g, g.UpCard).Place = PlaceUpCard;
        // Nineteen cards stay in the stock.
        for (int card = 1; card <= 28; ++card) {
            if (card != g.UpCard) {
                Card(g, card).Place = card % 2 == 0 ? PlacePlayerHand : PlaceOpponentHand;
            }
        }
    }
    int CountAt(int place) const {
        int count = 0;
        for (int card = 1; card <= CardCount; ++card) {
            count += Card(hg.game, card).Place == place ? 1 : 0;
        }
        return count;
    }
    HeadlessGame hg;
};

TEST(DrawAfterTrick, PlayerTakesAStockCardFaceUpIntoHisRow) {
    DrawTable table;
    Game& g = table.hg.game;
    table.hg.table.SetControlVisible(TableControl::FramDeclare, true);
    const int handBefore = table.CountAt(PlacePlayerHand);
    DrawAfterTrick(g, ThePlayer);
    EXPECT_EQ(table.CountAt(PlacePlayerHand), handBefore + 1);
    EXPECT_EQ(table.CountAt(PlaceStock), 18);
    EXPECT_EQ(g.StockLeft, 19);
    EXPECT_EQ(table.hg.table.Caption(TableLabel::LblStock), "Stock 19");
    EXPECT_FALSE(table.hg.table.IsControlVisible(TableControl::FramDeclare));
    for (int card = 29; card <= CardCount; ++card) {
        if (Card(g, card).Place == PlacePlayerHand) {
            EXPECT_EQ(table.hg.table.Picture(card).image, card);
            EXPECT_EQ(table.hg.table.Picture(card).top, 10080);
        }
    }
    EXPECT_EQ(g.DelayMs, 25);
    EXPECT_EQ(table.hg.platform.TickCount(), 2 * 525);
}

TEST(DrawAfterTrick, RobotTakesAStockCardFaceDown) {
    DrawTable table;
    Game& g = table.hg.game;
    table.hg.table.SetControlVisible(TableControl::FramDeclare, true);
    const int handBefore = table.CountAt(PlaceOpponentHand);
    DrawAfterTrick(g, TheRobot);
    EXPECT_EQ(table.CountAt(PlaceOpponentHand), handBefore + 1);
    EXPECT_EQ(g.StockLeft, 19);
    // Only the player's draw closes the meld panel.
    EXPECT_TRUE(table.hg.table.IsControlVisible(TableControl::FramDeclare));
    for (int card = 29; card <= CardCount; ++card) {
        if (Card(g, card).Place == PlaceOpponentHand) {
            EXPECT_EQ(table.hg.table.Picture(card).image, CardBackImage);
            EXPECT_EQ(table.hg.table.Picture(card).top, 120);
        }
    }
    EXPECT_EQ(table.hg.platform.TickCount(), 525);
}

TEST(DrawAfterTrick, ElevenRoundsOfDrawsLeaveOneStockCardAndTheUpCard) {
    DrawTable table;
    Game& g = table.hg.game;
    // Back to the table after the deal: twelve each, twenty-four left.
    ClearTable(g);
    g.StockLeft = 24;
    g.UpCard = CardIndex(Ten, Spades);
    Card(g, g.UpCard).Place = PlaceUpCard;
    for (int card = 1; card <= 24; ++card) {
        Card(g, card).Place = card % 2 == 0 ? PlacePlayerHand : PlaceOpponentHand;
    }
    for (int trick = 1; trick <= 11; ++trick) {
        g.TrickCount = trick;
        DrawAfterTrick(g, trick % 2 == 0 ? ThePlayer : TheRobot);
        DrawAfterTrick(g, trick % 2 == 0 ? TheRobot : ThePlayer);
    }
    EXPECT_EQ(g.StockLeft, 2);
    EXPECT_EQ(table.CountAt(PlaceStock), 1);
    EXPECT_EQ(Card(g, g.UpCard).Place, PlaceUpCard);
    EXPECT_EQ(table.CountAt(PlacePlayerHand), 23);
    EXPECT_EQ(table.CountAt(PlaceOpponentHand), 23);
}

}  // namespace
}  // namespace trickhaven
