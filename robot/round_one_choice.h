// The robot's card in Round One: fixed lists of tests over the card table,
// one for leading and one for playing second.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

int ChooseOpponentCard(Game& g);
int BothAcesCard(const Game& g);
int BothTensCard(const Game& g);
int BothKingsCard(const Game& g);
int BothQueensCard(const Game& g);
int BothJacksCard(const Game& g);
int PlainNineCard(const Game& g);
int LowestOpponentCard(const Game& g);

}  // namespace trickhaven
