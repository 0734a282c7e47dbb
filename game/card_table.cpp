#include "game/card_table.h"

namespace trickhaven {

void ClearCardFlags(CardRec& card) {
    const std::string name = card.Name;
    const int value = card.Value;
    const int suit = card.Suit;
    const int place = card.Place;
    card = CardRec{};
    card.Name = name;
    card.Value = value;
    card.Suit = suit;
    card.Place = place;
}

int CardFlagBits(const CardRec& card) {
    const std::array<bool, 17> flags{
        card.Melded,       card.DixSwapped,   card.DixOnTable,       card.InMarriage,
        card.InFourKings,  card.InFourQueens, card.InFourJacks,      card.InFourAces,
        card.InRun,        card.InPinochle,   card.InDoublePinochle, card.DoublePinochleMark,
        card.MarriageDone, card.RunDone,      card.FoursDone,        card.DoublePinochleDone,
        card.DixDone};
    int bits = 0;
    for (std::size_t k = 0; k < flags.size(); ++k) {
        if (flags[k]) {
            bits |= 1 << k;
        }
    }
    return bits;
}

std::string SuitWord(int suit) {
    switch (suit) {
        case Diamonds:
            return "Diamonds";
        case Clubs:
            return "Clubs";
        case Hearts:
            return "Hearts";
        case Spades:
            return "Spades";
        default:
            return "";
    }
}

int HandPlace(int who) {
    return who == ThePlayer ? PlacePlayerHand : PlaceOpponentHand;
}

}  // namespace trickhaven
