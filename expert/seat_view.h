// All that one seat at the table knows of a hand: its own cards, what was
// shown (the cards played, the meld rows, the up card, the cards seen going
// into the other hand) and the scores. The other hand's hidden cards and
// the order of the stock are not in it.
#pragma once

#include <array>

#include "expert/hand_state.h"

namespace trickhaven::expert {

struct SeatView {
    int side = kRobotSide;
    CardSet ownHand = kNoCards;
    // Cards known to lie in the other hand: its meld rows, the cards seen
    // going into it; in Round Two the whole hand, by counting.
    CardSet otherKnown = kNoCards;
    int otherCount = 0;
    // Every card played in this hand, the card led to this trick with them.
    CardSet played = kNoCards;
    // The marks of the cards that are shown: own cards and both meld rows.
    MeldMarks marks;
    std::array<bool, 2> pinochleMade{};
    std::array<bool, 2> doubleMade{};
    int trump = Diamonds;
    int upCard = 0;
    bool upTaken = false;
    // Face down in the stock, the up card not counted.
    int stockLeft = 0;
    // Turned up after trick 12, 0 before.
    int lastStockCard = 0;
    Stage stage = Stage::Card;
    int tricksDone = 0;
    int leader = kPlayerSide;
    int led = 0;
    std::array<int, 2> melds{};
    std::array<int, 2> tricks{};
    std::array<int, 2> totals{};
    int target = 1000;
};

}  // namespace trickhaven::expert
