// The player's click on any card of the table, and the rules of play that
// bind the player in each round.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

void PicCard_Click(Game& g, int index);
bool HasSuitPlayer(const Game& g, int whichSuit);
bool HasTrumps(const Game& g, int whichSuit);
void PlayerPlaysCard(Game& g, int card);

}  // namespace trickhaven
