#include "robot/round_one_choice.h"

#include <array>
#include <utility>

#include "robot/expert_moves.h"

namespace trickhaven {

namespace {

// The first of the two copies of a card: suits of twelve, Ace first.
constexpr int FirstCopy(int value, int suit) {
    return (suit - 1) * 12 + (Ace - value) * 2 + 1;
}

bool InRobotHand(const Game& g, int card) {
    return Card(g, card).Place == PlaceOpponentHand;
}

// The first card of the robot's hand, in index order, that passes the test.
template <typename Test>
int FirstInHand(const Game& g, Test passes) {
    for (int card = 1; card <= CardCount; ++card) {
        if (InRobotHand(g, card) && passes(Card(g, card))) {
            return card;
        }
    }
    return 0;
}

// The lower index of the first pair, in the order given, with both copies
// in the robot's hand.
template <std::size_t N>
int FirstFullPair(const Game& g, const std::array<int, N>& firstCopies) {
    for (const int card : firstCopies) {
        if (InRobotHand(g, card) && InRobotHand(g, card + 1)) {
            return card;
        }
    }
    return 0;
}

int RobotLeadCard(const Game& g) {
    for (const auto test : {BothAcesCard, BothTensCard, PlainNineCard, BothJacksCard,
                            BothQueensCard, BothKingsCard}) {
        if (const int card = test(g); card != 0) {
            return card;
        }
    }
    // Jacks, Queens, Diamonds and Spades are kept for the melds they make.
    if (const int card = FirstInHand(g,
                                     [&g](const CardRec& c) {
                                         return c.Value != Jack && c.Value != Queen &&
                                                c.Suit != Diamonds && c.Suit != Spades &&
                                                c.Suit != g.TrumpSuit;
                                     });
        card != 0) {
        return card;
    }
    if (const int card = FirstInHand(g, [&g](const CardRec& c) { return c.Suit != g.TrumpSuit; });
        card != 0) {
        return card;
    }
    return FirstInHand(g, [](const CardRec&) { return true; });
}

int RobotFollowCard(const Game& g) {
    const int ledValue = Card(g, g.LeadCard).Value;
    // Wins in suit when it can, but never with a Jack or a Queen.
    if (const int card = FirstInHand(g,
                                     [&g, ledValue](const CardRec& c) {
                                         return c.Suit == g.LeadSuit && c.Value > ledValue &&
                                                c.Value != Jack && c.Value != Queen;
                                     });
        card != 0) {
        return card;
    }
    if (const int card = PlainNineCard(g); card != 0) {
        return card;
    }
    if (g.LeadSuit != g.TrumpSuit) {
        if (const int card = FirstInHand(g,
                                         [&g](const CardRec& c) {
                                             return c.Suit == g.TrumpSuit && c.Value != Nine &&
                                                    c.Value != Jack && c.Value != Queen;
                                         });
            card != 0) {
            return card;
        }
    }
    return LowestOpponentCard(g);
}

}  // namespace

int ChooseOpponentCard(Game& g) {
    if (!g.GameOn) {
        return 0;
    }
    const int card = g.Robot == RobotKind::Expert ? ExpertRobotCard(g)
                     : g.Leader == TheRobot       ? RobotLeadCard(g)
                                                  : RobotFollowCard(g);
    if (card == 0) {
        g.view.ShowPlainMessage(" If you can read this something wrong, has not found a card",
                                "Trickhaven");
    }
    return card;
}

int BothAcesCard(const Game& g) {
    return FirstFullPair(g, std::array{FirstCopy(Ace, Diamonds), FirstCopy(Ace, Clubs),
                                       FirstCopy(Ace, Hearts), FirstCopy(Ace, Spades)});
}

int BothTensCard(const Game& g) {
    return FirstFullPair(g, std::array{FirstCopy(Ten, Diamonds), FirstCopy(Ten, Clubs),
                                       FirstCopy(Ten, Hearts), FirstCopy(Ten, Spades)});
}

int BothKingsCard(const Game& g) {
    return FirstFullPair(g, std::array{FirstCopy(King, Diamonds), FirstCopy(King, Clubs),
                                       FirstCopy(King, Hearts), FirstCopy(King, Spades)});
}

int BothQueensCard(const Game& g) {
    // The Queens of Spades wait for a Pinochle.
    return FirstFullPair(g, std::array{FirstCopy(Queen, Diamonds), FirstCopy(Queen, Clubs),
                                       FirstCopy(Queen, Hearts)});
}

int BothJacksCard(const Game& g) {
    // Spades first; the Jacks of Diamonds wait for a Pinochle.
    return FirstFullPair(
        g, std::array{FirstCopy(Jack, Spades), FirstCopy(Jack, Clubs), FirstCopy(Jack, Hearts)});
}

int PlainNineCard(const Game& g) {
    return FirstInHand(g,
                       [&g](const CardRec& c) { return c.Value == Nine && c.Suit != g.TrumpSuit; });
}

int LowestOpponentCard(const Game& g) {
    // In Round One the Jack of Diamonds and the Queen of Spades are kept back
    // for a Pinochle; in Round Two there is nothing left to meld.
    const bool keepPinochle = g.RoundOneOn;
    const std::array<std::pair<int, int>, 5> passes{{{Jack, keepPinochle ? Diamonds : NoSuit},
                                                     {Queen, keepPinochle ? Spades : NoSuit},
                                                     {King, NoSuit},
                                                     {Ten, NoSuit},
                                                     {Ace, NoSuit}}};
    if (const int card = PlainNineCard(g); card != 0) {
        return card;
    }
    for (const auto& [value, keptSuit] : passes) {
        if (const int card = FirstInHand(g,
                                         [value, keptSuit](const CardRec& c) {
                                             return c.Value == value && c.Suit != keptSuit;
                                         });
            card != 0) {
            return card;
        }
    }
    return FirstInHand(g, [](const CardRec&) { return true; });
}

}  // namespace trickhaven
