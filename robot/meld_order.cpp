// PLACEHOLDER: replaced by the real routines.
#include "robot/meld_order.h"

namespace trickhaven {

void OpponentMelds(Game& /*g*/) {}

}  // namespace trickhaven
