// The player's meld offer: FramDeclare and FramMarriage and their buttons.
#pragma once

#include <string>

#include "game/game_state.h"

namespace trickhaven {

// Opens the offer with its text in panel 2 and pumps until it is answered.
void OfferMeld(Game& g, const std::string& prompt);

void CmdDBezique_Click(Game& g);
void CmdBezique_Click(Game& g);
void CmdSequence_Click(Game& g);
void CmdFours_Click(Game& g, int index);
void cmdDec7Trumps_Click(Game& g);
void CmdMakeMarriage_Click(Game& g);
void CmdMarriage_Click(Game& g, int index);
void CmdCancel_Click(Game& g);

}  // namespace trickhaven
