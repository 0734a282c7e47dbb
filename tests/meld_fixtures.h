// The table of the meld tests: Round One under way, with a trump suit and an
// up card, and the cards that melds are made of.
#pragma once

#include <vector>

#include "headless/headless_game.h"
#include "tests/table_fixtures.h"

namespace trickhaven {

// The other copy of a card.
constexpr int Second(int card) {
    return card + 1;
}

inline constexpr int AH = CardIndex(Ace, Hearts), TH = CardIndex(Ten, Hearts);
inline constexpr int KH = CardIndex(King, Hearts), QH = CardIndex(Queen, Hearts);
inline constexpr int JH = CardIndex(Jack, Hearts), NH = CardIndex(Nine, Hearts);
inline constexpr int KC = CardIndex(King, Clubs), QC = CardIndex(Queen, Clubs);
inline constexpr int NC = CardIndex(Nine, Clubs);
inline constexpr int AD = CardIndex(Ace, Diamonds), KD = CardIndex(King, Diamonds);
inline constexpr int QD = CardIndex(Queen, Diamonds);
inline constexpr int AS = CardIndex(Ace, Spades), TS = CardIndex(Ten, Spades);
inline constexpr int KS = CardIndex(King, Spades), JS = CardIndex(Jack, Spades);
// The pinochle cards: the Jacks of Diamonds and the Queens of Spades.
inline constexpr int JD1 = 9, JD2 = 10, QS1 = 43, QS2 = 44;

inline const std::vector<int> kHeartRun{AH, TH, KH, QH, JH};
inline const std::vector<int> kPinochleCards{JD1, JD2, QS1, QS2};

// Each card followed by its other copy.
inline std::vector<int> BothCopies(const std::vector<int>& cards) {
    std::vector<int> both;
    for (const int card : cards) both.insert(both.end(), {card, Second(card)});
    return both;
}

inline std::vector<int> FirstOfEachSuit(int value) {
    return {CardIndex(value, Diamonds), CardIndex(value, Clubs), CardIndex(value, Hearts),
            CardIndex(value, Spades)};
}

inline std::vector<int> BothOfEachSuit(int value) {
    std::vector<int> cards = FirstOfEachSuit(value);
    for (const int card : FirstOfEachSuit(value)) cards.push_back(Second(card));
    return cards;
}

// A game in Round One at the given trick; the up card is the second nine of
// trumps unless one is named.
struct RoundOneTable {
    explicit RoundOneTable(int trumps = Hearts, int upCard = 0, int trick = 4) : g(hg.game) {
        ClearTable(g);
        g.GameOn = true;
        g.RoundOneOn = true;
        g.PlayerName = "Ada";
        g.OpponentName = "Lorinda";
        g.GameSpeed = 100;
        g.DelayMs = 100;
        g.TrickCount = trick;
        g.TrumpSuit = trumps;
        g.UpCard = upCard != 0 ? upCard : Second(CardIndex(Nine, trumps));
        Card(g, g.UpCard).Place = PlaceUpCard;
    }
    void Give(int who, const std::vector<int>& cards) {
        for (const int card : cards) Card(g, card).Place = HandPlace(who);
    }
    HeadlessGame hg;
    Game& g;
};

}  // namespace trickhaven
