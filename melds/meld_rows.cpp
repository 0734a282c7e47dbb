// PLACEHOLDER: replaced by the real routines.
#include "melds/meld_rows.h"

namespace trickhaven {

void MoveToMeldRow(Game& /*g*/, int /*who*/, int /*slot*/, int /*card*/) {}
void ShowRunCards(Game& /*g*/, int /*who*/) {}
void ShowFoursCards(Game& /*g*/, int /*who*/) {}
void ShowPinochleCards(Game& /*g*/, int /*who*/) {}
void ShowDoublePinochleCards(Game& /*g*/, int /*who*/) {}
void ShowMarriageCards(Game& /*g*/, int /*who*/) {}

}  // namespace trickhaven
