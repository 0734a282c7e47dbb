// The Expert robot's choices, asked of the engine from the robot's seat
// and carried out by the same routines as the Classic robot's.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

// The robot's card in either round.
int ExpertRobotCard(Game& g);

// The robot's turn to meld: the meld the engine weighs best, or none.
void ExpertRobotMelds(Game& g);

// The robot has won trick 12: true to take the stock card.
bool ExpertRobotTakesStockCard(Game& g);

}  // namespace trickhaven
