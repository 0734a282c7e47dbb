// The random pick and the deal, played on the headless table.
#include "table/deal.h"

#include <gtest/gtest.h>

#include <map>

#include "headless/headless_game.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

// Plays from program start to the first lead of the first hand.
void DealFirstHand(HeadlessGame& hg) {
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.stopWhen = [](const Game& g) { return g.RoundOneOn; };
    ASSERT_TRUE(hg.Run());
}

std::map<int, int> PlaceCounts(const Game& g) {
    std::map<int, int> counts;
    for (int card = 1; card <= CardCount; ++card) {
        ++counts[Card(g, card).Place];
    }
    return counts;
}

TEST(Deal, EveryDealLeavesTwelveTwelveTheUpCardAndTheStock) {
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        HeadlessGame hg(seed);
        DealFirstHand(hg);
        const Game& g = hg.game;
        const std::map<int, int> expected{
            {PlacePlayerHand, 12}, {PlaceOpponentHand, 12}, {PlaceUpCard, 1}, {PlaceStock, 23}};
        EXPECT_EQ(PlaceCounts(g), expected);
        EXPECT_EQ(g.StockLeft, 24);
        EXPECT_EQ(hg.table.Caption(TableLabel::LblStock), "Stock 24");
        EXPECT_EQ(Card(g, g.UpCard).Place, PlaceUpCard);
        EXPECT_EQ(g.TrumpSuit, Card(g, g.UpCard).Suit);
        EXPECT_EQ(hg.table.PanelText(1), SuitWord(g.TrumpSuit) + " are Trumps");
        EXPECT_EQ(hg.table.PanelPicture(), 49 + g.TrumpSuit);
        EXPECT_EQ(hg.table.Caption(TableLabel::CmdSort), "Sort Suits");
        EXPECT_TRUE(hg.table.IsControlVisible(TableControl::CmdSort));
        EXPECT_EQ(hg.table.Picture(g.UpCard).left, 100);
        EXPECT_EQ(hg.table.Picture(g.UpCard).image, g.UpCard);
        EXPECT_EQ(g.HandNumber, 1);
        EXPECT_EQ(g.Leader == ThePlayer, g.Dealer == TheRobot);
    }
}

TEST(Deal, RowsLieAtTheirPositionsFaceUpAndFaceDown) {
    HeadlessGame hg(7);
    DealFirstHand(hg);
    const Game& g = hg.game;
    // The player's row in the order Same: Nine, Ten, Jack, Queen, King, Ace.
    std::map<int, int> rankOrder{{Nine, 0}, {Ten, 1}, {Jack, 2}, {Queen, 3}, {King, 4}, {Ace, 5}};
    std::map<int, int> playerByLeft;
    int robotRightmost = 0;
    for (int card = 1; card <= CardCount; ++card) {
        const CardPicture& picture = hg.table.Picture(card);
        if (Card(g, card).Place == PlacePlayerHand && !Card(g, card).Melded) {
            EXPECT_EQ(picture.image, card);
            EXPECT_EQ(picture.top, 10080);
            EXPECT_TRUE(picture.visible);
            playerByLeft[picture.left] = card;
        } else if (Card(g, card).Place == PlaceOpponentHand) {
            EXPECT_EQ(picture.image, CardBackImage);
            EXPECT_EQ(picture.top, 120);
            robotRightmost = std::max(robotRightmost, picture.left);
        }
    }
    ASSERT_EQ(playerByLeft.size(), 12U);
    EXPECT_EQ(playerByLeft.begin()->first, 2500);
    EXPECT_EQ(playerByLeft.rbegin()->first, 8000);
    EXPECT_EQ(robotRightmost, 2880 + 11 * 250);
    int lastRank = -1;
    int lastCard = 0;
    long lastZ = 0;
    for (const auto& [left, card] : playerByLeft) {
        const int rank = rankOrder[Card(g, card).Value];
        EXPECT_TRUE(rank > lastRank || (rank == lastRank && card > lastCard)) << card;
        EXPECT_GT(hg.table.Picture(card).z, lastZ) << "a later card covers the one before";
        lastRank = rank;
        lastCard = card;
        lastZ = hg.table.Picture(card).z;
    }
    // The stock: face down, 3 right and 4 down for each further card.
    int step = 0;
    for (int card = 1; card <= CardCount; ++card) {
        if (Card(g, card).Place == PlaceStock) {
            EXPECT_EQ(hg.table.Picture(card).image, CardBackImage);
            EXPECT_EQ(hg.table.Picture(card).left, 540 + 3 * step);
            EXPECT_EQ(hg.table.Picture(card).top, 120 + 4 * step);
            ++step;
        }
    }
}

TEST(Deal, DuringTheDealThePlayersRowLiesInIndexOrderToLeft7450) {
    HeadlessGame hg(21);
    int rightmost = 0;
    bool checked = false;
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.stopWhen = [&](const Game& g) {
        int laid = 0;
        for (int card = 1; card <= CardCount; ++card) {
            laid += Card(g, card).Place == PlacePlayerHand && hg.table.Picture(card).top == 10080;
        }
        // The player's last card has landed; the up card is not turned yet.
        if (laid == 12 && g.UpCard == 0 && !checked) {
            checked = true;
            int left = 2500;
            for (int card = 1; card <= CardCount; ++card) {
                if (Card(g, card).Place == PlacePlayerHand) {
                    EXPECT_EQ(hg.table.Picture(card).left, left) << card;
                    rightmost = left;
                    left += 450;
                }
            }
        }
        return g.RoundOneOn;
    };
    ASSERT_TRUE(hg.Run());
    EXPECT_TRUE(checked);
    EXPECT_EQ(rightmost, 7450);
}

TEST(Deal, PacketsOfThreeGoFirstToTheSideThatDoesNotDeal) {
    for (std::uint64_t seed = 1; seed <= 6; ++seed) {
        HeadlessGame hg(seed);
        // Watch the cards leave the stock one by one, at every round of
        // events of the deal.
        std::vector<int> sides;
        std::array<int, CardCount + 1> before{};
        before.fill(PlaceStock);
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.platform.stopWhen = [&](const Game& g) {
            for (int card = 1; card <= CardCount; ++card) {
                const int place = Card(g, card).Place;
                if (before[static_cast<std::size_t>(card)] == PlaceStock &&
                    (place == PlacePlayerHand || place == PlaceOpponentHand)) {
                    sides.push_back(place);
                }
                before[static_cast<std::size_t>(card)] = place;
            }
            return g.RoundOneOn;
        };
        ASSERT_TRUE(hg.Run());
        ASSERT_EQ(sides.size(), 24U);
        const int first = hg.game.Dealer == ThePlayer ? PlaceOpponentHand : PlacePlayerHand;
        const int second = first == PlacePlayerHand ? PlaceOpponentHand : PlacePlayerHand;
        for (std::size_t i = 0; i < sides.size(); ++i) {
            EXPECT_EQ(sides[i], (i / 3) % 2 == 0 ? first : second) << "card " << i;
        }
    }
}

TEST(Deal, ANineTurnedUpScoresTenTrickPointsForTheDealer) {
    int seen[3] = {0, 0, 0};
    for (std::uint64_t seed = 1; seed <= 400 && (seen[1] == 0 || seen[2] == 0); ++seed) {
        HeadlessGame hg(seed);
        DealFirstHand(hg);
        const Game& g = hg.game;
        if (Card(g, g.UpCard).Value != Nine) {
            continue;
        }
        SCOPED_TRACE(seed);
        ++seen[g.Dealer];
        EXPECT_TRUE(Card(g, g.UpCard).Melded);
        const bool playerDealt = g.Dealer == ThePlayer;
        EXPECT_EQ(g.PlayerTotalTricks, playerDealt ? 10 : 0);
        EXPECT_EQ(g.OpponentTotalTricks, playerDealt ? 0 : 10);
        EXPECT_EQ(g.PlayerLastTrick, 0);
        EXPECT_EQ(g.OpponentLastTrick, 0);
        EXPECT_EQ(g.PlayerTotal, 0);
        EXPECT_EQ(g.OpponentTotal, 0);
        const TableLabel last = playerDealt ? TableLabel::LblLastTrickP : TableLabel::LblLastTrickC;
        const TableLabel total =
            playerDealt ? TableLabel::LblTotTricksP : TableLabel::LblTotTricskC;
        EXPECT_EQ(hg.table.Caption(last), "10");
        EXPECT_EQ(hg.table.Caption(total), "10");
        const std::string name = playerDealt ? g.PlayerName : g.OpponentName;
        const auto& history = hg.table.PanelHistory();
        EXPECT_NE(std::find(history.begin(), history.end(),
                            std::make_pair(2, name + " turns up a 9 - Score- 10")),
                  history.end());
    }
    EXPECT_GT(seen[1], 0);
    EXPECT_GT(seen[2], 0);
}

TEST(PickStockCard, TheSecondNineOfSpadesComesUpHalfAsOften) {
    HeadlessGame hg(2024);
    ClearTable(hg.game);
    std::map<int, int> counts;
    constexpr int kDraws = 95000;
    for (int i = 0; i < kDraws; ++i) {
        ++counts[PickStockCard(hg.game)];
    }
    EXPECT_EQ(counts.count(0), 0U);
    // 47 full spans and one half span: card 47 about 2000 times, 48 about 1000.
    const double ratio = static_cast<double>(counts[48]) / counts[47];
    EXPECT_GT(ratio, 0.40);
    EXPECT_LT(ratio, 0.60);
    EXPECT_NEAR(counts[1], kDraws / 47.5, 250);
    EXPECT_NEAR(counts[47], kDraws / 47.5, 250);
}

TEST(PickStockCard, OnlyStockCardsAreDrawnAndTheLastOneIsFoundOnAStoppedClock) {
    HeadlessGame hg(5);
    ClearTable(hg.game);
    for (int card = 1; card < CardCount; ++card) {
        Card(hg.game, card).Place = card % 2 == 0 ? PlacePlayerHand : PlaceOpponentHand;
    }
    Card(hg.game, 47).Place = PlaceUpCard;
    // Only card 48 is left, the rarest, and the virtual clock never moves
    // during the picks: every reseed must still give a fresh draw.
    const std::int32_t before = hg.platform.TickCount();
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(PickStockCard(hg.game), 48);
    }
    EXPECT_EQ(hg.platform.TickCount(), before);
}

TEST(PickStockCard, TheSameSeedReplaysTheSameDeal) {
    auto dealOf = [](std::uint64_t seed) {
        HeadlessGame hg(seed);
        DealFirstHand(hg);
        std::vector<int> places;
        for (int card = 1; card <= CardCount; ++card) {
            places.push_back(Card(hg.game, card).Place);
        }
        return places;
    };
    EXPECT_EQ(dealOf(11), dealOf(11));
    EXPECT_NE(dealOf(11), dealOf(12));
}

}  // namespace
}  // namespace trickhaven
