// PLACEHOLDER: replaced by the real routines.
#include "melds/meld_offer.h"

namespace trickhaven {

void OfferMeld(Game& /*g*/, const std::string& /*prompt*/) {}
void CmdDBezique_Click(Game& /*g*/) {}
void CmdBezique_Click(Game& /*g*/) {}
void CmdSequence_Click(Game& /*g*/) {}
void CmdFours_Click(Game& /*g*/, int /*index*/) {}
void cmdDec7Trumps_Click(Game& /*g*/) {}
void CmdMakeMarriage_Click(Game& /*g*/) {}
void CmdMarriage_Click(Game& /*g*/, int /*index*/) {}
void CmdCancel_Click(Game& /*g*/) {}

}  // namespace trickhaven
