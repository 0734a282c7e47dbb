// The draws after each trick, and the last stock card that closes Round One.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

void DrawAfterTrick(Game& g, int who);
void DrawCard(Game& g, int who, int card);
void TakeLastStock(Game& g);

// After trick 12: the last stock card and the up card go to the two sides,
// the melds go back to the hands, and Round Two begins.
void EndRoundOne(Game& g);

}  // namespace trickhaven
