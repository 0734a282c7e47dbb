// PLACEHOLDER: replaced by the real routines.
#include "robot/round_one_choice.h"

namespace trickhaven {

int ChooseOpponentCard(Game& /*g*/) { return {}; }
int BothAcesCard(const Game& /*g*/) { return {}; }
int BothTensCard(const Game& /*g*/) { return {}; }
int BothKingsCard(const Game& /*g*/) { return {}; }
int BothQueensCard(const Game& /*g*/) { return {}; }
int BothJacksCard(const Game& /*g*/) { return {}; }
int PlainNineCard(const Game& /*g*/) { return {}; }
int LowestOpponentCard(const Game& /*g*/) { return {}; }

}  // namespace trickhaven
