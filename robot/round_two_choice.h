// The robot's card in Round Two, bound by follow suit and must trump.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

int ChooseRoundTwoCard(Game& g);
bool OpponentHasSuit(const Game& g, int whichSuit);
int LowestOfSuit(const Game& g, int whichSuit);

}  // namespace trickhaven
