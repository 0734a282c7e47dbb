// The two score panels and the trump display.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

// Post the side's pending meld or trick points to its counters and labels.
void ShowMeldScore(Game& g, int who);
void ShowTrickScore(Game& g, int who);

// The trump text and icon in panel 1, the up card in panel 2.
void AnnounceTrumps(Game& g);

}  // namespace trickhaven
