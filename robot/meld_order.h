// The robot's turn to meld: twelve attempts in a fixed order, the first meld
// made ends the turn.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

void OpponentMelds(Game& g);

}  // namespace trickhaven
