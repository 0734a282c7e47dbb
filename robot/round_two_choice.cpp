// PLACEHOLDER: replaced by the real routines.
#include "robot/round_two_choice.h"

namespace trickhaven {

int ChooseRoundTwoCard(Game& /*g*/) { return {}; }
bool OpponentHasSuit(const Game& /*g*/, int /*whichSuit*/) { return {}; }
int LowestOfSuit(const Game& /*g*/, int /*whichSuit*/) { return {}; }

}  // namespace trickhaven
