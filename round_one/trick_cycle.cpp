#include "round_one/trick_cycle.h"

#include <cassert>

#include "game/pacing.h"
#include "melds/meld_offer.h"
#include "robot/meld_order.h"
#include "robot/round_one_choice.h"
#include "round_one/game_end.h"
#include "round_one/stock_draw.h"
#include "table/hand_rows.h"
#include "table/score_panel.h"

namespace trickhaven {

namespace {

constexpr int kLastTrickOfRoundOne = 12;

int CardsAt(const Game& g, int place) {
    int count = 0;
    for (int card = 1; card <= CardCount; ++card) {
        if (Card(g, card).Place == place) {
            ++count;
        }
    }
    return count;
}

// At each lead of Round One both hands hold twelve and the stock (the up
// card with it) has given two cards for every trick before.
[[maybe_unused]] bool TableFitsTrick(const Game& g) {
    const int stock = CardsAt(g, PlaceStock) + CardsAt(g, PlaceUpCard);
    return CardsAt(g, PlacePlayerHand) == 12 && CardsAt(g, PlaceOpponentHand) == 12 &&
           g.StockLeft == 24 - 2 * (g.TrickCount - 1) && stock == g.StockLeft;
}

void PlayerLeadsRobotFollows(Game& g) {
    g.view.SetPanelText(2, g.PlayerName + " please click card you wish to play.");
    g.PlayerMayPlay = true;
    PumpWhile(g, g.PlayerMayPlay);
    WaitDelay(g);
    g.FollowCard = ChooseOpponentCard(g);
    g.FollowSuit = Card(g, g.FollowCard).Suit;
    OpponentPlaysCard(g, g.FollowCard);
}

void RobotLeadsPlayerFollows(Game& g) {
    g.LeadCard = ChooseOpponentCard(g);
    g.LeadSuit = Card(g, g.LeadCard).Suit;
    OpponentPlaysCard(g, g.LeadCard);
    g.view.SetPanelText(2, g.PlayerName + " please click the card you wish to play");
    g.PlayerMayPlay = true;
    PumpWhile(g, g.PlayerMayPlay);
}

void BothDraw(Game& g) {
    const int winner = g.Leader;
    const int loser = winner == ThePlayer ? TheRobot : ThePlayer;
    WaitDelay(g);
    DrawAfterTrick(g, winner);
    WaitDelay(g);
    DrawAfterTrick(g, loser);
}

}  // namespace

void ContinueRoundOne(Game& g) {
    if (!g.GameOn) {
        return;
    }
    do {
        ++g.TrickCount;
        g.view.SetPanelText(3, "Tricks " + std::to_string(g.TrickCount));
        assert(TableFitsTrick(g));
        if (g.Leader == ThePlayer) {
            PlayerLeadsRobotFollows(g);
        } else {
            RobotLeadsPlayerFollows(g);
        }
        ResolveTrick(g);
        CheckTarget(g);
        if (!g.GameOn) {
            return;
        }
        // After trick 12 only the last stock card and the up card are left;
        // they are shared out by choice, not drawn.
        if (g.TrickCount != kLastTrickOfRoundOne) {
            BothDraw(g);
        }
    } while (g.TrickCount != kLastTrickOfRoundOne);
    EndRoundOne(g);
}

void ResolveTrick(Game& g) {
    LogPlay(g, TrickTaken(TrickWinner(g), TrickValue(g)));
    if (TrickWinner(g) == ThePlayer) {
        g.PlayerLastTrick = static_cast<std::int16_t>(TrickValue(g));
        ShowTrickScore(g, ThePlayer);
        g.Leader = ThePlayer;
        GatherTrick(g, ThePlayer);
        OfferMeld(g, g.PlayerName + " click Meld to make or Cancel to receive card.");
    } else {
        g.Leader = TheRobot;
        g.OpponentLastTrick = static_cast<std::int16_t>(TrickValue(g));
        ShowTrickScore(g, TheRobot);
        GatherTrick(g, TheRobot);
        // The robot's meld of trick 12 comes after it has taken its last card.
        if (g.TrickCount != kLastTrickOfRoundOne) {
            WaitDelay(g);
            OpponentMelds(g);
        }
    }
}

int TrickWinner(const Game& g) {
    const int leader = g.Leader;
    const int follower = leader == ThePlayer ? TheRobot : ThePlayer;
    if (g.LeadSuit == g.FollowSuit) {
        // Of two equal cards the one led wins.
        return Card(g, g.FollowCard).Value > Card(g, g.LeadCard).Value ? follower : leader;
    }
    if (g.LeadSuit == g.TrumpSuit) {
        return leader;
    }
    if (g.FollowSuit == g.TrumpSuit) {
        return follower;
    }
    return leader;
}

int TrickValue(const Game& g) {
    return CardPoints(Card(g, g.LeadCard).Value) + CardPoints(Card(g, g.FollowCard).Value);
}

int CardPoints(int value) {
    switch (value) {
        case Ace:
            return 11;
        case Ten:
            return 10;
        case King:
            return 4;
        case Queen:
            return 3;
        case Jack:
            return 2;
        default:
            return 0;
    }
}

void GatherTrick(Game& g, int who) {
    // The trick is gathered at its own pace, whatever the speed setting.
    g.DelayMs = 250;
    WaitDelay(g);
    WaitDelay(g);
    g.view.SetCardImage(g.LeadCard, CardBackImage);
    WaitDelay(g);
    g.view.MoveCard(g.FollowCard, g.view.CardLeft(g.FollowCard), g.view.CardTop(g.LeadCard));
    WaitDelay(g);
    g.view.MoveCard(g.LeadCard, g.view.CardLeft(g.FollowCard), g.view.CardTop(g.LeadCard));
    WaitDelay(g);
    // Only the card led stays on the pile, face down, one per trick won.
    g.view.SetCardVisible(g.FollowCard, false);
    if (who == ThePlayer) {
        g.view.MoveCard(g.LeadCard, g.PlayerPileLeft, 7560);
        WaitDelay(g);
        g.PlayerPileLeft = static_cast<std::int16_t>(g.PlayerPileLeft + 90);
        WaitDelay(g);
    } else if (who == TheRobot) {
        g.view.MoveCard(g.LeadCard, g.OpponentPileLeft, 2640);
        WaitDelay(g);
        g.OpponentPileLeft = static_cast<std::int16_t>(g.OpponentPileLeft + 90);
    }
    WaitDealSound(g);
    g.DelayMs = g.GameSpeed;
}

void OpponentPlaysCard(Game& g, int card) {
    g.DelayMs = static_cast<std::int16_t>(g.GameSpeed + 150);
    WaitDelay(g);
    CardRec& rec = Card(g, card);
    LogPlay(g, CardPlayed(TheRobot, card));
    rec.Place = PlacePlayed;
    rec.Melded = false;
    g.view.SetCardImage(card, card);
    g.view.MoveCard(card, 7800, 3240);
    WaitDelay(g);
    g.view.MoveCard(card, 10440, 4680);
    WaitDealSound(g);
    ShowOpponentHand(g);
    g.view.SetPanelText(2, g.OpponentName + " has played " + rec.Name);
    g.DelayMs = g.GameSpeed;
}

}  // namespace trickhaven
