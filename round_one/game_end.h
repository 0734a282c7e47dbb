// Where hands add up to games: the target tests, the knock, the end of a
// hand and of a game.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

void CheckTarget(Game& g);
void LblKnock_Click(Game& g);
void GameWon(Game& g);
void GameLost(Game& g);

// The tail of Round Two: trick points join the totals, the target is tested
// and the hand's messages are shown.
void EndOfHand(Game& g);

}  // namespace trickhaven
