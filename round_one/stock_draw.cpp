#include "round_one/stock_draw.h"

#include "game/pacing.h"
#include "melds/meld_offer.h"
#include "robot/expert_moves.h"
#include "robot/meld_order.h"
#include "round_two/round_two.h"
#include "table/deal.h"
#include "table/hand_rows.h"
#include "table/score_panel.h"

namespace trickhaven {

namespace {

void ShowStockLeft(Game& g) {
    g.view.SetCaption(TableLabel::LblStock, "Stock " + std::to_string(g.StockLeft));
}

// The last two cards of Round One: the winner's choice, then the other.
void LogLastPair(Game& g, int winner, int chosen, int other) {
    LogPlay(g, CardDrawn(winner, chosen));
    LogPlay(g, CardDrawn(winner == ThePlayer ? TheRobot : ThePlayer, other));
}

// The robot keeps a turned-up Ace or Ten of trumps; otherwise it takes the
// stock card only when that is a higher trump.
bool RobotTakesStockCard(Game& g) {
    if (g.Robot == RobotKind::Expert) return ExpertRobotTakesStockCard(g);
    const CardRec& up = Card(g, g.UpCard);
    const CardRec& last = Card(g, g.LastStockCard);
    return up.Value != Ace && up.Value != Ten && last.Suit == g.TrumpSuit && last.Value > up.Value;
}

void PlayerChoosesLastCard(Game& g) {
    g.PlayerLastTrick = 10;
    ShowTrickScore(g, ThePlayer);
    g.MessageChoice = static_cast<std::int16_t>(
        g.view.ShowDeluxeMessage(g.PlayerName + " you won the last trick, if you wish to take " +
                                     Card(g, g.LastStockCard).Name +
                                     " click on Stock Card or click on Up Card to take Trump card.",
                                 "Stock Card", "Up Card", "", 1, "Make choice"));
    const bool stockCard = g.MessageChoice == 0;
    const int players = stockCard ? g.LastStockCard : g.UpCard;
    const int robots = stockCard ? g.UpCard : g.LastStockCard;
    g.view.SetPanelText(2, g.PlayerName + (stockCard ? " is taking last Stock Card"
                                                     : " is taking the Trump card."));
    LogLastPair(g, ThePlayer, players, robots);
    Card(g, players).Place = PlacePlayerHand;
    RedrawHand(g);
    Card(g, robots).Place = PlaceOpponentHand;
    ShowOpponentHand(g);
    // Taking the up card leaves the player free to click meanwhile; the
    // closing sequence itself keeps his hand from playing.
    if (!stockCard) {
        g.PlayerMayPlay = true;
    }
    OfferMeld(g, " Click a Meld to make or click Cancel to receive a card");
    g.view.SetControlVisible(TableControl::FramDeclare, false);
}

void RobotChoosesLastCard(Game& g) {
    g.OpponentLastTrick = 10;
    ShowTrickScore(g, TheRobot);
    g.view.SetPanelText(2, g.OpponentName + " deciding which card to take");
    WaitDelay(g);
    TakeLastStock(g);
    OpponentMelds(g);
}

}  // namespace

void DrawAfterTrick(Game& g, int who) {
    g.DelayMs = static_cast<std::int16_t>(g.GameSpeed + 100);
    const int card = PickStockCard(g);
    LogPlay(g, CardDrawn(who, card));
    --g.StockLeft;
    ShowStockLeft(g);
    if (who == ThePlayer) {
        g.view.SetControlVisible(TableControl::FramDeclare, false);
        Card(g, card).Place = PlacePlayerHand;
        g.view.SetCardImage(card, card);
        DrawCard(g, ThePlayer, card);
        RedrawHand(g);
    } else if (who == TheRobot) {
        Card(g, card).Place = PlaceOpponentHand;
        DrawCard(g, TheRobot, card);
        ShowOpponentHand(g);
    }
    g.DelayMs = g.GameSpeed;
}

void DrawCard(Game& g, int who, int card) {
    g.DelayMs = static_cast<std::int16_t>(g.GameSpeed + 500);
    if (who == TheRobot) {
        Card(g, card).Place = PlaceOpponentHand;
        HopCard(g, card, 2820, 2280);
        WaitDealSound(g);
        ShowOpponentHand(g);
    } else {
        Card(g, card).Place = PlacePlayerHand;
        HopCard(g, card, 1755, 7500);
        WaitDelay(g);
        HopCard(g, card, 1800, 7700);
        WaitDealSound(g);
        RedrawHand(g);
    }
    ShowStock(g);
    g.DelayMs = g.GameSpeed;
}

void TakeLastStock(Game& g) {
    g.DelayMs = 700;
    const bool stockCard = RobotTakesStockCard(g);
    const int robots = stockCard ? g.LastStockCard : g.UpCard;
    const int players = stockCard ? g.UpCard : g.LastStockCard;
    g.MessageChoice = static_cast<std::int16_t>(g.view.ShowDeluxeMessage(
        g.OpponentName + (stockCard ? " has decided to take the last Stock card."
                                    : " has decided to take the UpCard trump."),
        "O.K", "", "", 1, stockCard ? "Taking Stock card" : "Taking trump card"));
    WaitDelay(g);
    LogLastPair(g, TheRobot, robots, players);
    Card(g, robots).Place = PlaceOpponentHand;
    Card(g, players).Place = PlacePlayerHand;
    DrawCard(g, TheRobot, robots);
    DrawCard(g, ThePlayer, players);
    g.view.SetCaption(TableLabel::LblStock, "0");
    WaitDelay(g);
}

void EndRoundOne(Game& g) {
    g.RoundOneClosing = true;
    for (int card = 1; card <= CardCount; ++card) {
        if (Card(g, card).Place == PlaceStock) {
            g.view.SetCardImage(card, card);
            g.LastStockCard = card;
        }
    }
    g.StockLeft = 0;
    g.view.SetCaption(TableLabel::LblStock, "Stock 0");
    if (g.Leader == ThePlayer) {
        PlayerChoosesLastCard(g);
    } else {
        RobotChoosesLastCard(g);
    }
    // Nobody can knock once Round One is over.
    g.view.SetControlVisible(TableControl::LblKnock, false);
    for (int card = 1; card <= CardCount; ++card) {
        Card(g, card).Melded = false;
    }
    ShowOpponentHand(g);
    RedrawHand(g);
    ShowStock(g);
    // The winner of trick 12 leads trick 13.
    g.PlayerMayPlay = g.Leader == ThePlayer;
    g.RoundOneOn = false;
    g.RoundTwoOn = true;
    g.view.SetPanelText(4, "Round 2");
    g.MessageChoice = static_cast<std::int16_t>(g.view.ShowDeluxeMessage(
        g.PlayerName +
            " you are now on Round Two and must follow suit or play a Trump if you do not have "
            "suit but have a Trump",
        "Right", "", "", 3, "Round Two"));
    g.RoundOneClosing = false;
    ContinueRoundTwo(g);
}

}  // namespace trickhaven
