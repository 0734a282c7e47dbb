// PLACEHOLDER: replaced by the real routines.
#include "round_one/game_end.h"

namespace trickhaven {

void CheckTarget(Game& /*g*/) {}
void LblKnock_Click(Game& /*g*/) {}
void GameWon(Game& /*g*/) {}
void GameLost(Game& /*g*/) {}
void EndOfHand(Game& /*g*/) {}

}  // namespace trickhaven
