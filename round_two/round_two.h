// The driver of Round Two: the twelve tricks left, under follow-suit rules.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

void ContinueRoundTwo(Game& g);

}  // namespace trickhaven
