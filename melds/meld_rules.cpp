// PLACEHOLDER: replaced by the real routines.
#include "melds/meld_rules.h"

namespace trickhaven {

void MeldRun(Game& /*g*/, int /*who*/) {}
void MeldFours(Game& /*g*/, int /*who*/, int /*value*/) {}
void MeldDoublePinochle(Game& /*g*/, int /*who*/) {}
void MeldPinochle(Game& /*g*/, int /*who*/) {}
void MeldMarriage(Game& /*g*/, int /*who*/, int /*suit*/) {}
void MeldDix(Game& /*g*/, int /*who*/) {}

}  // namespace trickhaven
