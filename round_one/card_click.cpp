#include "round_one/card_click.h"

#include "game/pacing.h"
#include "table/hand_rows.h"

namespace trickhaven {

namespace {

void Refuse(Game& g, const std::string& text, const std::string& button, const std::string& title) {
    g.MessageChoice =
        static_cast<std::int16_t>(g.view.ShowDeluxeMessage(text, button, "", "", 3, title));
}

// While a meld offer is open, and while Round One closes, the player's
// hand is not to be played from.
bool HandIsShut(const Game& g) {
    return g.view.IsControlVisible(TableControl::FramDeclare) || g.MeldAwaited || g.RoundOneClosing;
}

void RecordPlayerCard(Game& g, int index) {
    LogPlay(g, CardPlayed(ThePlayer, index));
    if (g.Leader == ThePlayer) {
        g.LeadCard = index;
        g.LeadSuit = Card(g, index).Suit;
    } else {
        g.FollowCard = index;
        g.FollowSuit = Card(g, index).Suit;
    }
}

void AnnouncePlayerCard(Game& g, int index) {
    g.view.SetPanelText(2, g.PlayerName + " is playing " + Card(g, index).Name);
}

void AcceptRoundOneCard(Game& g, int index) {
    // Cleared before the flight's waits, so a second click meanwhile plays
    // nothing.
    g.PlayerMayPlay = false;
    RecordPlayerCard(g, index);
    AnnouncePlayerCard(g, index);
    WaitDelay(g);
    RedrawHand(g);
}

// Round Two: follow suit if you can, else trump if you can. True when the
// card is accepted; the card then leaves the hand before it flies, so the
// row closes up at once.
bool AcceptRoundTwoCard(Game& g, int index) {
    const int suit = Card(g, index).Suit;
    if (g.Leader == ThePlayer) {
        g.PlayerMayPlay = false;
        RecordPlayerCard(g, index);
        AnnouncePlayerCard(g, index);
        Card(g, index).Place = PlacePlayed;
        WaitDelay(g);
        RedrawHand(g);
        return true;
    }
    const bool holdsLedSuit = HasSuitPlayer(g, g.LeadSuit);
    if (holdsLedSuit && suit != g.LeadSuit) {
        Refuse(g, g.PlayerName + " You have a card of the same suit and must play it.", "Ah Right",
               "Must follow suit.");
        return false;
    }
    if (!holdsLedSuit && HasTrumps(g, g.TrumpSuit) && suit != g.TrumpSuit) {
        Refuse(g, g.PlayerName + " You have a Trump and must play it.", "O.K", "You have a Trump");
        return false;
    }
    g.PlayerMayPlay = false;
    RecordPlayerCard(g, index);
    AnnouncePlayerCard(g, index);
    if (holdsLedSuit) {
        WaitDelay(g);
        Card(g, index).Place = PlacePlayed;
    } else {
        Card(g, index).Place = PlacePlayed;
        WaitDelay(g);
    }
    RedrawHand(g);
    return true;
}

bool HoldsSuit(const Game& g, int whichSuit) {
    for (int card = 1; card <= CardCount; ++card) {
        const CardRec& rec = Card(g, card);
        if (rec.Place == PlacePlayerHand && rec.Suit == whichSuit) {
            return true;
        }
    }
    return false;
}

}  // namespace

void PicCard_Click(Game& g, int index) {
    if (!g.GameOn || !g.PlayerMayPlay) {
        return;
    }
    const int place = Card(g, index).Place;
    if (place == PlacePlayerHand && HandIsShut(g)) {
        return;
    }
    if (place == PlaceStock) {
        return;
    }
    if (place == PlaceOpponentHand) {
        Refuse(g,
               g.PlayerName + " You really musn't try to look at " + g.OpponentName +
                   " card you know!",
               "Just Peeping", "Tut Tut");
        return;
    }
    if (place == PlacePlayed) {
        Refuse(g, g.PlayerName + " These cards have been played and are now out of the hand.",
               "Right", "Cards out of game");
        return;
    }
    if (place == PlaceUpCard) {
        // In trick 12 the up card waits for the winner's choice; a click on it
        // neither speaks nor plays.
        if (g.TrickCount != 12) {
            Refuse(g,
                   g.PlayerName + " This is the UpCard " + Card(g, g.UpCard).Name +
                       " and the suit is trumps",
                   "Right", "The Up Card");
        }
        return;
    }
    if (g.RoundTwoOn) {
        if (!AcceptRoundTwoCard(g, index)) {
            return;
        }
    } else if (g.RoundOneOn && place == PlacePlayerHand) {
        AcceptRoundOneCard(g, index);
    } else {
        return;
    }
    PlayerPlaysCard(g, index);
}

bool HasSuitPlayer(const Game& g, int whichSuit) {
    return HoldsSuit(g, whichSuit);
}

bool HasTrumps(const Game& g, int whichSuit) {
    return HoldsSuit(g, whichSuit);
}

void PlayerPlaysCard(Game& g, int card) {
    g.DelayMs = static_cast<std::int16_t>(g.GameSpeed + 300);
    CardRec& rec = Card(g, card);
    rec.Place = PlacePlayed;
    rec.Melded = false;
    g.view.SetCardImage(card, card);
    g.view.MoveCard(card, 7800, 6540);
    g.view.BringCardToFront(card);
    WaitDelay(g);
    g.view.MoveCard(card, 11760, 4680);
    g.view.BringCardToFront(card);
    WaitDealSound(g);
    g.PlayerMayPlay = false;
    g.DelayMs = g.GameSpeed;
}

bool CardAwaited(const Game& g) {
    return g.GameOn && g.PlayerMayPlay && !g.MeldAwaited && !g.RoundOneClosing &&
           (g.RoundOneOn || g.RoundTwoOn);
}

bool ClickWouldPlay(const Game& g, int card) {
    if (!CardAwaited(g) || Card(g, card).Place != PlacePlayerHand || HandIsShut(g)) return false;
    if (!g.RoundTwoOn || g.Leader == ThePlayer) return true;
    const int suit = Card(g, card).Suit;
    if (HasSuitPlayer(g, g.LeadSuit)) return suit == g.LeadSuit;
    if (HasTrumps(g, g.TrumpSuit)) return suit == g.TrumpSuit;
    return true;
}

}  // namespace trickhaven
