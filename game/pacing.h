// Waits, pumps and sounds: the only source of time in the game. Every wait
// and every pump serves pending events, so all clicks and menu commands run
// nested inside them.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

// Waits DelayMs milliseconds from now, serving events. The end is worked
// out afresh from DelayStart + DelayMs after each round, so a handler that
// changes DelayMs, or a nested wait that moves DelayStart, moves this end.
void WaitDelay(Game& g);

// Starts "carddeal1.wav", then waits as WaitDelay.
void WaitDealSound(Game& g);

// Serves events until the flag is false; the click or button handler that
// clears it runs inside.
void PumpWhile(Game& g, const bool& flag);

// The speed commands of "Select Speed".
void MnuFast_Click(Game& g);
void MnuMedium_Click(Game& g);
void MnuSlow_Click(Game& g);

}  // namespace trickhaven
