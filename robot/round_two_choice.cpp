#include "robot/round_two_choice.h"

#include "robot/expert_moves.h"
#include "robot/round_one_choice.h"

namespace trickhaven {

namespace {

// The first card of the robot's hand that passes, scanning from index 1: the
// table runs Ace first within each suit, so this is the strongest such card.
template <typename Test>
int FirstInHand(const Game& g, Test test) {
    for (int card = 1; card <= CardCount; ++card) {
        const CardRec& rec = Card(g, card);
        if (rec.Place == PlaceOpponentHand && test(rec)) {
            return card;
        }
    }
    return 0;
}

int AnyCardInHand(const Game& g) {
    return FirstInHand(g, [](const CardRec&) { return true; });
}

// Leading, the robot cashes its winners first: the Ace of trumps, any Ace,
// the Tens suit by suit, then the cheapest card.
int RobotLeadCard(const Game& g) {
    if (const int card = FirstInHand(
            g, [&g](const CardRec& c) { return c.Value == Ace && c.Suit == g.TrumpSuit; });
        card != 0) {
        return card;
    }
    if (const int card = FirstInHand(g, [](const CardRec& c) { return c.Value == Ace; });
        card != 0) {
        return card;
    }
    for (const int suit : {Diamonds, Clubs, Hearts, Spades}) {
        if (const int card = FirstInHand(
                g, [suit](const CardRec& c) { return c.Value == Ten && c.Suit == suit; });
            card != 0) {
            return card;
        }
    }
    if (const int card = LowestOpponentCard(g); card != 0) {
        return card;
    }
    return AnyCardInHand(g);
}

// Following, the robot must follow suit, and trump when it can't: it beats
// the card led with its best card of the suit when that wins, else throws the
// cheapest of the suit; void, it trumps with its highest trump.
int RobotFollowCard(const Game& g) {
    if (OpponentHasSuit(g, g.LeadSuit)) {
        const int ledValue = Card(g, g.LeadCard).Value;
        if (const int card = FirstInHand(g,
                                         [&g, ledValue](const CardRec& c) {
                                             return c.Suit == g.LeadSuit && c.Value > ledValue;
                                         });
            card != 0) {
            return card;
        }
        return LowestOfSuit(g, g.LeadSuit);
    }
    if (g.LeadSuit != g.TrumpSuit) {
        if (const int card =
                FirstInHand(g, [&g](const CardRec& c) { return c.Suit == g.TrumpSuit; });
            card != 0) {
            return card;
        }
    }
    if (const int card = LowestOpponentCard(g); card != 0) {
        return card;
    }
    return AnyCardInHand(g);
}

}  // namespace

int ChooseRoundTwoCard(Game& g) {
    if (!g.GameOn) {
        return 0;
    }
    const int card = g.Robot == RobotKind::Expert ? ExpertRobotCard(g)
                     : g.Leader == TheRobot       ? RobotLeadCard(g)
                                                  : RobotFollowCard(g);
    if (card == 0) {
        g.view.ShowPlainMessage(" Something wrong, no card found", "Trickhaven");
    }
    return card;
}

bool OpponentHasSuit(const Game& g, int whichSuit) {
    return FirstInHand(g, [whichSuit](const CardRec& c) { return c.Suit == whichSuit; }) != 0;
}

int LowestOfSuit(const Game& g, int whichSuit) {
    // Cheapest in trick points first: Nine, Jack, Queen, King, Ten, Ace.
    for (const int value : {Nine, Jack, Queen, King, Ten, Ace}) {
        if (const int card = FirstInHand(g,
                                         [whichSuit, value](const CardRec& c) {
                                             return c.Suit == whichSuit && c.Value == value;
                                         });
            card != 0) {
            return card;
        }
    }
    return 0;
}

}  // namespace trickhaven
