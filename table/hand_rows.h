// The rows of the two hands. A row is laid afresh from the card table each
// time; melded cards keep out of it.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

void SortByRank(Game& g);        // the order Same: Nine, Ten, Jack, Queen, King, Ace
void SortBySuit(Game& g);        // the order Suits
void RedrawHand(Game& g);        // the order that CmdSort's caption says is on the table
void ShowPlayerHand(Game& g);    // index order, during the deal
void ShowOpponentHand(Game& g);  // face down, index order
void CmdSort_Click(Game& g);

}  // namespace trickhaven
