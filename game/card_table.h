// The 48 cards of the pinochle pack. A card's index, 1 to 48, is its
// identity for the whole run; where it is lies in Place, what it has done in
// melds in its flags. A hand is always a scan of this table, never a list.
#pragma once

#include <array>
#include <string>

namespace trickhaven {

inline constexpr int CardCount = 48;

// Value codes: the order of strength within a suit (the Ten above the King).
inline constexpr int Ace = 14;
inline constexpr int Ten = 13;
inline constexpr int King = 12;
inline constexpr int Queen = 11;
inline constexpr int Jack = 10;
inline constexpr int Nine = 9;

// Suit codes; NoSuit is what the trick variables hold between hands.
inline constexpr int Diamonds = 1;
inline constexpr int Clubs = 2;
inline constexpr int Hearts = 3;
inline constexpr int Spades = 4;
inline constexpr int NoSuit = 5;

// Place codes, the only five a card ever has.
inline constexpr int PlaceOpponentHand = 10;
inline constexpr int PlacePlayerHand = 18;
inline constexpr int PlaceStock = 20;
inline constexpr int PlacePlayed = 23;
inline constexpr int PlaceUpCard = 24;

// Who: the player is 1, the robot 2.
inline constexpr int ThePlayer = 1;
inline constexpr int TheRobot = 2;

struct CardRec {
    std::string Name;
    int Value = 0;
    int Suit = 0;
    int Place = 0;
    bool Melded = false;
    bool DixSwapped = false;
    bool DixOnTable = false;
    bool InMarriage = false;
    bool InFourKings = false;
    bool InFourQueens = false;
    bool InFourJacks = false;
    bool InFourAces = false;
    bool InRun = false;
    bool InPinochle = false;
    bool InDoublePinochle = false;
    bool DoublePinochleMark = false;
    bool MarriageDone = false;
    bool RunDone = false;
    bool FoursDone = false;
    bool DoublePinochleDone = false;
    bool DixDone = false;
};

// Index 0 is no card; cards are 1..48.
using CardTable = std::array<CardRec, CardCount + 1>;

// Clears all seventeen flags of a card.
void ClearCardFlags(CardRec& card);

// The seventeen flags as bits, Melded bit 0 to DixDone bit 16.
int CardFlagBits(const CardRec& card);

// The word of a suit in texts: "Diamonds", "Clubs", "Hearts", "Spades".
std::string SuitWord(int suit);

// The place code of a side's hand.
int HandPlace(int who);

}  // namespace trickhaven
