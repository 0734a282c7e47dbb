// PLACEHOLDER: replaced by the real routines.
#include "round_two/round_two.h"

namespace trickhaven {

void ContinueRoundTwo(Game& /*g*/) {}

}  // namespace trickhaven
