#include "melds/meld_rules.h"

#include <array>
#include <string>

#include "game/pacing.h"
#include "melds/meld_rows.h"
#include "table/deal.h"
#include "table/hand_rows.h"
#include "table/score_panel.h"

namespace trickhaven {

namespace {

// The pinochle cards are fixed: the two Jacks of Diamonds and the two
// Queens of Spades.
constexpr int kFirstDiamondJack = 9;
constexpr int kSecondDiamondJack = 10;
constexpr int kFirstSpadeQueen = 43;
constexpr int kSecondSpadeQueen = 44;

bool HeldBy(const Game& g, int card, int who) {
    return Card(g, card).Place == HandPlace(who);
}

const std::string& SideName(const Game& g, int who) {
    return who == ThePlayer ? g.PlayerName : g.OpponentName;
}

std::int16_t& LastMeld(Game& g, int who) {
    return who == ThePlayer ? g.PlayerLastMeld : g.OpponentLastMeld;
}

void PostMeld(Game& g, int who, int points) {
    LastMeld(g, who) = static_cast<std::int16_t>(points);
    ShowMeldScore(g, who);
}

void HideDeclare(Game& g) {
    g.view.SetControlVisible(TableControl::FramDeclare, false);
}

// The player is told why his meld is refused; the robot's attempts fail
// without a word.
void Refuse(Game& g, int who, const std::string& title, const std::string& button,
            const std::string& text) {
    if (who != ThePlayer) return;
    g.MessageChoice = static_cast<std::int16_t>(
        g.view.ShowDeluxeMessage(g.PlayerName + text, button, "", "", 1, title));
}

struct FourOfAKind {
    int value;
    bool CardRec::*flag;
    int points;
    const char* status;
};

FourOfAKind FourOf(int value) {
    switch (value) {
        case Ace:
            return {Ace, &CardRec::InFourAces, 100, " scores 100 for 4 Aces"};
        case King:
            return {King, &CardRec::InFourKings, 80, " scores 80 for 4 Kings"};
        case Queen:
            return {Queen, &CardRec::InFourQueens, 60, " scores 60 for 4 Queens"};
        default:
            return {Jack, &CardRec::InFourJacks, 40, " scores 40 for 4 Jacks"};
    }
}

// The refusal of a four names the first suit that is missing.
void RefuseFour(Game& g, int who, int suit) {
    static constexpr std::array<const char*, 5> kSuitNames{"", "Diamond", "Club", "Heart", "Spade"};
    const std::string name = kSuitNames.at(static_cast<std::size_t>(suit));
    Refuse(g, who, "No " + name, "Oh Dear",
           " sorry, you do not appear to have a " + name +
               " of that suit. Please try again or click Cancel to receive a card");
}

int FirstMarriageCard(const Game& g, int who, int suit, int value) {
    for (int card = 1; card <= CardCount; ++card) {
        const CardRec& rec = Card(g, card);
        if (HeldBy(g, card, who) && rec.Value == value && rec.Suit == suit && !rec.InMarriage &&
            !rec.MarriageDone) {
            return card;
        }
    }
    return 0;
}

bool UpCardIsNine(const Game& g) {
    return Card(g, g.UpCard).Value == Nine;
}

// Once the last two cards are shared out after trick 12 the up card lies in
// a hand: swapping it out would leave that hand a card short for Round Two.
bool UpCardTaken(const Game& g) {
    return Card(g, g.UpCard).Place != PlaceUpCard;
}

void DixOnTheTable(Game& g, int who, int nine) {
    CardRec& rec = Card(g, nine);
    rec.Melded = true;
    rec.DixOnTable = true;
    rec.DixDone = true;
    MoveToMeldRow(g, who, 1, nine);
    if (who == ThePlayer) {
        g.view.MoveCard(nine, 8820, 8400);
        g.view.BringCardToFront(nine);
        WaitDelay(g);
        PostMeld(g, who, 10);
        g.view.SetPanelText(2, g.PlayerName + " melded Dix for 10 points");
        RedrawHand(g);
        HideDeclare(g);
        g.MeldAwaited = false;
    } else {
        g.view.MoveCard(nine, 8820, 3000);
        g.view.BringCardToFront(nine);
        g.view.SetCardImage(nine, nine);
        g.view.SetPanelText(2, g.OpponentName + " melded Dix for 10 points");
        PostMeld(g, who, 10);
        ShowOpponentHand(g);
    }
}

void DixExchange(Game& g, int who, int nine) {
    const int oldUpCard = g.UpCard;
    CardRec& rec = Card(g, nine);
    rec.DixSwapped = true;
    rec.Place = PlaceUpCard;
    g.view.SetCardImage(nine, nine);
    g.view.MoveCard(nine, 4110, 2295);
    Card(g, oldUpCard).Place = HandPlace(who);
    g.Shown.intoHand.at(static_cast<std::size_t>(who)) |= std::uint64_t{1} << (oldUpCard - 1);
    g.view.MoveCard(oldUpCard, 2670, 2070);
    g.view.BringCardToFront(oldUpCard);
    WaitDelay(g);
    PostMeld(g, who, 10);
    if (who == ThePlayer) {
        g.MeldAwaited = false;
        RedrawHand(g);
        HideDeclare(g);
    } else {
        ShowOpponentHand(g);
    }
    g.view.MoveCard(nine, 100, 100);
    g.view.BringCardToFront(nine);
    ShowStock(g);
    g.UpCard = nine;
    g.view.SetPanelText(2, SideName(g, who) + " melded Dix for 10 points.");
}

}  // namespace

void MeldRun(Game& g, int who) {
    g.MeldDone = false;
    // Of two like cards the later is noted, so the run leaves the earlier
    // (the one a marriage takes) where it is.
    std::array<int, Ace + 1> noted{};
    for (int card = 1; card <= CardCount; ++card) {
        const CardRec& rec = Card(g, card);
        if (HeldBy(g, card, who) && !rec.InRun && !rec.RunDone && rec.Suit == g.TrumpSuit &&
            rec.Value >= Jack) {
            noted.at(static_cast<std::size_t>(rec.Value)) = card;
        }
    }
    const auto at = [&noted](int value) { return noted.at(static_cast<std::size_t>(value)); };
    for (const int value : {Jack, Queen, King, Ten, Ace}) {
        if (at(value) == 0) {
            Refuse(g, who, "No Run", "Oh Dear",
                   " sorry, you do appear to have a run.Please try again, or Cancel to receive a "
                   "card.");
            return;
        }
    }
    HideDeclare(g);
    g.MeldDone = true;
    // A royal marriage already scored its King or Queen: the run gets the rest.
    const bool married = Card(g, at(King)).InMarriage || Card(g, at(Queen)).InMarriage;
    const int points = married ? 110 : 150;
    LogPlay(g, MeldMade(who, "run", 0, 0, points));
    PostMeld(g, who, points);
    g.view.SetPanelText(2, SideName(g, who) + "scores for run " + std::to_string(points));
    if (who == ThePlayer) {
        g.MeldAwaited = false;
        HideDeclare(g);
        RedrawHand(g);
    } else {
        ShowOpponentHand(g);
    }
    // All five are flagged before the first flies: a redraw of the hand
    // while they fly must not lay the rest back in the hand row.
    const std::array<int, 5> run{at(Jack), at(Queen), at(King), at(Ten), at(Ace)};
    for (const int card : run) {
        CardRec& rec = Card(g, card);
        rec.Melded = true;
        rec.InRun = true;
        rec.RunDone = true;
    }
    int slot = 1;
    for (const int card : run) MoveToMeldRow(g, who, slot++, card);
    ShowRunCards(g, who);
}

void MeldFours(Game& g, int who, int value) {
    g.DelayMs = static_cast<std::int16_t>(g.GameSpeed + 250);
    g.MeldDone = false;
    const FourOfAKind four = FourOf(value);
    std::array<int, Spades + 1> cards{};
    for (int suit = Diamonds; suit <= Spades; ++suit) {
        int& found = cards.at(static_cast<std::size_t>(suit));
        for (int card = 1; card <= CardCount && found == 0; ++card) {
            const CardRec& rec = Card(g, card);
            if (HeldBy(g, card, who) && rec.Value == four.value && !rec.FoursDone &&
                rec.Suit == suit) {
                found = card;
            }
        }
        if (found == 0) {
            RefuseFour(g, who, suit);
            g.DelayMs = g.GameSpeed;
            return;
        }
    }
    HideDeclare(g);
    g.MeldDone = true;
    LogPlay(g, MeldMade(who, "fours", four.value, 0, four.points));
    for (int suit = Diamonds; suit <= Spades; ++suit) {
        const int card = cards.at(static_cast<std::size_t>(suit));
        CardRec& rec = Card(g, card);
        rec.Melded = true;
        rec.FoursDone = true;
        rec.*four.flag = true;
        MoveToMeldRow(g, who, suit, card);
    }
    ShowFoursCards(g, who);
    HideDeclare(g);
    PostMeld(g, who, four.points);
    g.view.SetPanelText(2, SideName(g, who) + four.status);
    if (who == ThePlayer) {
        RedrawHand(g);
        g.MeldAwaited = false;
        HideDeclare(g);
    } else {
        ShowOpponentHand(g);
    }
    g.DelayMs = g.GameSpeed;
}

void MeldDoublePinochle(Game& g, int who) {
    bool& doubleMade = who == ThePlayer ? g.PlayerDoublePinochleMade : g.OpponentDoublePinochleMade;
    const bool singleMade = who == ThePlayer ? g.PlayerPinochleMade : g.OpponentPinochleMade;
    if (doubleMade) {
        Refuse(g, who, "Already Melded", "Right",
               " you have already melded a Double Pinochle. Please try again or click cancel to "
               "receive another card.");
        return;
    }
    g.MeldDone = false;
    // Dealt in the order the four go to the staging row.
    constexpr std::array<int, 4> kDouble{kFirstDiamondJack, kFirstSpadeQueen, kSecondDiamondJack,
                                         kSecondSpadeQueen};
    bool complete = true;
    for (const int card : kDouble) {
        const CardRec& rec = Card(g, card);
        complete =
            complete && HeldBy(g, card, who) && !rec.InDoublePinochle && !rec.DoublePinochleDone;
    }
    if (complete) {
        LogPlay(g, MeldMade(who, "double", 0, 0, singleMade ? 460 : 500));
        g.MeldDone = true;
        for (const int card : kDouble) {
            CardRec& rec = Card(g, card);
            rec.Melded = true;
            rec.InDoublePinochle = true;
            rec.DoublePinochleMark = true;
            rec.DoublePinochleDone = true;
        }
        int slot = 1;
        for (const int card : kDouble) {
            MoveToMeldRow(g, who, slot++, card);
        }
        ShowDoublePinochleCards(g, who);
        // The single already scored 40 of the double's 500.
        const int points = singleMade ? 460 : 500;
        doubleMade = true;
        if (who == ThePlayer) {
            HideDeclare(g);
            g.MeldAwaited = false;
            RedrawHand(g);
        }
        LastMeld(g, who) = static_cast<std::int16_t>(points);
        g.view.SetPanelText(
            2, SideName(g, who) + " scores " + std::to_string(points) + " for Double Pin ");
    }
    // A failed attempt still posts its 0 to the last-meld label.
    ShowMeldScore(g, who);
    if (!g.MeldDone) {
        Refuse(g, who, "No Double Pinochle", "Oh Dear",
               " sorry, you do not have a Double Pinochle. Try again or click Cancel to receive a "
               "card");
    }
}

void MeldPinochle(Game& g, int who) {
    bool& singleMade = who == ThePlayer ? g.PlayerPinochleMade : g.OpponentPinochleMade;
    const bool doubleMade =
        who == ThePlayer ? g.PlayerDoublePinochleMade : g.OpponentDoublePinochleMade;
    if (singleMade || doubleMade) {
        Refuse(g, who, "Already Melded", "Right",
               " you have already melded a Pinochle. Please try again or click cancel to receive "
               "another card.");
        return;
    }
    g.MeldDone = false;
    constexpr std::array<std::array<int, 2>, 4> kPairs{{{kFirstDiamondJack, kFirstSpadeQueen},
                                                        {kFirstDiamondJack, kSecondSpadeQueen},
                                                        {kSecondDiamondJack, kFirstSpadeQueen},
                                                        {kSecondDiamondJack, kSecondSpadeQueen}}};
    int jack = 0;
    int queen = 0;
    for (const auto& [pairJack, pairQueen] : kPairs) {
        if (HeldBy(g, pairJack, who) && HeldBy(g, pairQueen, who)) {
            if (!Card(g, pairJack).InPinochle) {
                jack = pairJack;
                queen = pairQueen;
                g.MeldDone = true;
            }
            break;
        }
    }
    if (!g.MeldDone) {
        Refuse(g, who, " No Pinochle", "Oh Dear",
               " sorry, you do not have a Single Pinochle. Make different Meld or click Cancel to "
               "receive card.");
        return;
    }
    LogPlay(g, MeldMade(who, "pinochle", 0, 0, 40));
    for (const int card : {jack, queen}) {
        Card(g, card).Melded = true;
        Card(g, card).InPinochle = true;
    }
    MoveToMeldRow(g, who, 1, jack);
    MoveToMeldRow(g, who, 2, queen);
    if (who == ThePlayer) {
        HideDeclare(g);
        singleMade = true;
        ShowPinochleCards(g, who);
    } else {
        ShowPinochleCards(g, who);
        singleMade = true;
    }
    PostMeld(g, who, 40);
    g.view.SetPanelText(2, SideName(g, who) + " scores 40 for Single Pinochle");
    if (who == ThePlayer) {
        RedrawHand(g);
        g.MeldAwaited = false;
    }
}

void MeldMarriage(Game& g, int who, int suit) {
    g.MeldDone = false;
    const int king = FirstMarriageCard(g, who, suit, King);
    if (king == 0) {
        Refuse(g, who, "No King.", "Oh Dear",
               " sorry, you do not appear to have a King of that suit. Please try again or click "
               "Cancel to receive a card");
        return;
    }
    const int queen = FirstMarriageCard(g, who, suit, Queen);
    if (queen == 0) {
        Refuse(g, who, "No Queen.", "Oh Dear",
               " sorry, you do not appear to have a Queen of that suit. Please try again or click "
               "Cancel to receive a card");
        return;
    }
    g.MeldDone = true;
    LogPlay(g,
            MeldMade(who, "marriage", 0, suit, LastMeld(g, who) + (suit == g.TrumpSuit ? 40 : 20)));
    for (const int card : {queen, king}) {
        CardRec& rec = Card(g, card);
        rec.Melded = true;
        rec.InMarriage = true;
        rec.MarriageDone = true;
    }
    MoveToMeldRow(g, who, 1, queen);
    MoveToMeldRow(g, who, 2, king);
    ShowMarriageCards(g, who);
    std::int16_t& lastMeld = LastMeld(g, who);
    lastMeld = static_cast<std::int16_t>(lastMeld + (suit == g.TrumpSuit ? 40 : 20));
    if (who == ThePlayer) {
        g.view.SetControlVisible(TableControl::FramMarriage, false);
        HideDeclare(g);
        g.MeldAwaited = false;
        ShowMeldScore(g, who);
        RedrawHand(g);
    } else {
        ShowMeldScore(g, who);
        ShowOpponentHand(g);
    }
}

void MeldDix(Game& g, int who) {
    // The long pause belongs to the exchange; the staging row sets its own.
    g.DelayMs = static_cast<std::int16_t>(g.GameSpeed + 1000);
    g.MeldDone = false;
    int nine = 0;
    for (int card = 1; card <= CardCount && nine == 0; ++card) {
        const CardRec& rec = Card(g, card);
        if (HeldBy(g, card, who) && rec.Value == Nine && rec.Suit == g.TrumpSuit && !rec.Melded &&
            !rec.DixDone) {
            nine = card;
        }
    }
    if (nine == 0) {
        Refuse(g, who, "No Nine", "Right",
               " sorry, you do not have a Nine to Dix. Please try again or click Cancel to receive "
               "a new card");
    } else {
        g.MeldDone = true;
        LogPlay(g, MeldMade(who, "dix", 0, 0, 10));
        if (UpCardIsNine(g) || UpCardTaken(g)) {
            DixOnTheTable(g, who, nine);
        } else {
            DixExchange(g, who, nine);
        }
    }
    g.DelayMs = g.GameSpeed;
}

}  // namespace trickhaven
