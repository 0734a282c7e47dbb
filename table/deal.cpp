#include "table/deal.h"

#include "game/card_random.h"
#include "game/pacing.h"
#include "round_one/trick_cycle.h"
#include "table/hand_rows.h"
#include "table/score_panel.h"

namespace trickhaven {

namespace {

void DealPacket(Game& g, void (*dealOne)(Game&)) {
    for (int i = 0; i < 3; ++i) {
        dealOne(g);
    }
    WaitDelay(g);
}

// A Nine turned up counts 10 trick points for the dealer.
void ScoreTurnedUpNine(Game& g) {
    if (g.Dealer == ThePlayer) {
        g.PlayerLastTrick = 10;
        g.view.SetPanelText(
            2, g.PlayerName + " turns up a 9 - Score- " + std::to_string(g.PlayerLastTrick));
        WaitDelay(g);
        ShowTrickScore(g, ThePlayer);
    } else {
        g.OpponentLastTrick = 10;
        g.view.SetPanelText(
            2, g.OpponentName + " turns up a 9 - Score- " + std::to_string(g.OpponentLastTrick));
        WaitDelay(g);
        ShowTrickScore(g, TheRobot);
    }
}

}  // namespace

void HopCard(Game& g, int card, int left, int top) {
    g.view.MoveCard(card, left, top);
    g.view.BringCardToFront(card);
}

int PickStockCard(Game& g) {
    // Rounding r * 48, not truncating: card 48 only gets the half span from
    // 47.5, so it comes up half as often as the others. A retry takes the
    // stream's next number.
    for (;;) {
        const int n = RoundHalfEven(g.HandCards.Draw() * CardCount);
        if (n != 0 && Card(g, n).Place == PlaceStock) {
            return n;
        }
    }
}

void ChooseDealSeed(Game& g) {
    constexpr double kTwoTo32 = 4294967296.0;
    g.platform.Reseed();
    const auto high = static_cast<std::uint64_t>(g.platform.Random() * kTwoTo32);
    const auto low = static_cast<std::uint64_t>(g.platform.Random() * kTwoTo32);
    g.NextDealSeed = (high << 32U) | low;
}

void DealCardToOpponent(Game& g) {
    const int card = PickStockCard(g);
    Card(g, card).Place = PlaceOpponentHand;
    g.view.SetCardImage(card, CardBackImage);
    g.view.SetCardVisible(card, true);
    HopCard(g, card, 1080, 1320);
    WaitDelay(g);
    HopCard(g, card, 2760, 1220);
    WaitDealSound(g);
    ShowOpponentHand(g);
}

void DealCardToPlayer(Game& g) {
    g.DelayMs = 25;
    const int card = PickStockCard(g);
    Card(g, card).Place = PlacePlayerHand;
    g.view.SetCardImage(card, card);
    g.view.SetCardVisible(card, true);
    HopCard(g, card, 1080, 2280);
    WaitDelay(g);
    HopCard(g, card, 1920, 4560);
    WaitDelay(g);
    HopCard(g, card, 3360, 8120);
    WaitDelay(g);
    WaitDealSound(g);
    ShowPlayerHand(g);
    g.DelayMs = g.GameSpeed;
}

void DealHand(Game& g) {
    g.GameOn = true;
    // The deal and every draw of the hand follow from its seed alone, so a
    // hand left and taken up again brings the same cards.
    g.HandCards = CardRandom{g.NextDealSeed};
    if (g.Dealer == ThePlayer) {
        g.Dealer = TheRobot;
        g.view.SetPanelText(
            2, g.PlayerName + " a cut for dealer was made and " + g.OpponentName + " will deal.");
    } else {
        g.Dealer = ThePlayer;
        g.view.SetPanelText(2, g.PlayerName + " a cut for dealer made and you will deal.");
    }
    g.platform.PlaySound("riffle.wav");
    WaitDelay(g);
    WaitDelay(g);
    for (int round = 0; round < 4; ++round) {
        if (g.Dealer == ThePlayer) {
            DealPacket(g, DealCardToOpponent);
            DealPacket(g, DealCardToPlayer);
        } else {
            DealPacket(g, DealCardToPlayer);
            DealPacket(g, DealCardToOpponent);
        }
    }
    g.UpCard = PickStockCard(g);
    g.view.MoveCard(g.UpCard, 100, 100);
    g.view.SetCardImage(g.UpCard, g.UpCard);
    g.view.SetCardVisible(g.UpCard, true);
    Card(g, g.UpCard).Place = PlaceUpCard;
    g.TrumpSuit = Card(g, g.UpCard).Suit;
    ShowStock(g);
    SortByRank(g);
    g.view.SetCaption(TableLabel::CmdSort, "Sort Suits");
    ShowOpponentHand(g);
    AnnounceTrumps(g);
    g.StockLeft = 24;
    g.view.SetCaption(TableLabel::LblStock, "Stock " + std::to_string(g.StockLeft));
    g.view.SetControlVisible(TableControl::CmdSort, true);
    if (Card(g, g.UpCard).Value == Nine) {
        Card(g, g.UpCard).Melded = true;
        ScoreTurnedUpNine(g);
    }
    if (g.Dealer == ThePlayer) {
        g.view.SetPanelText(2, g.OpponentName + " to lead a card.");
        g.Leader = TheRobot;
    } else {
        g.view.SetPanelText(2, g.PlayerName + " please Left or Right click to play card.");
        g.PlayerMayPlay = true;
        g.Leader = ThePlayer;
    }
    ++g.HandNumber;
    g.view.SetPanelText(4, "Round " + std::to_string(g.HandNumber));
    g.RoundOneOn = true;
    ContinueRoundOne(g);
}

void ShowStock(Game& g) {
    if (g.TrickCount >= 12) {
        return;
    }
    int left = 540;
    int top = 120;
    for (int card = 1; card <= CardCount; ++card) {
        if (Card(g, card).Place != PlaceStock) {
            continue;
        }
        g.view.SetCardVisible(card, true);
        g.view.SetCardImage(card, CardBackImage);
        g.view.MoveCard(card, left, top);
        left += 3;
        top += 4;
        g.view.BringCardToFront(card);
    }
}

}  // namespace trickhaven
