// The start of the program, of a game and of a hand.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

// Writes Name, Value and Suit of the 48 cards and sets DelayMs to GameSpeed.
void LoadCardTable(Game& g);

// The start of the program: 48 cards face down on the stock, the names in
// their labels, the dealer drawn, no game running.
void Form_Load(Game& g);

// "New Game" (F2): asks first when a game is on.
void MnuNew_Click(Game& g);

// Clears the table for a hand, and for a game when GameOn is false, then
// deals and plays the hand to its end.
void SetUpHand(Game& g);

}  // namespace trickhaven
