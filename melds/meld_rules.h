// What makes a meld and what it scores, for both sides (who 1 the player,
// 2 the robot). The result of an attempt is left in MeldDone.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

void MeldRun(Game& g, int who);
void MeldFours(Game& g, int who, int value);
void MeldDoublePinochle(Game& g, int who);
void MeldPinochle(Game& g, int who);
void MeldMarriage(Game& g, int who, int suit);
void MeldDix(Game& g, int who);

}  // namespace trickhaven
