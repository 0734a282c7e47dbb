// A seat's view of the hand for the Expert, made from what the table has
// shown: the seat's own hand, the cards played, the meld rows lying face
// up, the cards seen going into the other hand, the up card, the counts
// and the scores. The other hand's hidden cards are never read.
#pragma once

#include "expert/seat_view.h"
#include "game/game_state.h"

namespace trickhaven {

// The view of seat who (1 the player, 2 the robot) as it waits for its
// card, its meld, or its choice of the last pair.
expert::SeatView SeatViewOf(const Game& g, int who, expert::Stage stage);

}  // namespace trickhaven
