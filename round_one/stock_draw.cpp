// PLACEHOLDER: replaced by the real routines.
#include "round_one/stock_draw.h"

namespace trickhaven {

void DrawAfterTrick(Game& /*g*/, int /*who*/) {}
void DrawCard(Game& /*g*/, int /*who*/, int /*card*/) {}
void TakeLastStock(Game& /*g*/) {}
void EndRoundOne(Game& /*g*/) {}

}  // namespace trickhaven
