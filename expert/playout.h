// Quick play for both sides to the end of a hand, for weighing a choice in
// a sampled layout: plain rules of thumb for the cards, the richest meld at
// once, the stronger card of the last pair.
#pragma once

#include "expert/hand_state.h"

namespace trickhaven::expert {

int QuickCard(const HandState& s);
Meld RichestMeld(const HandState& s);
bool QuickTakesStockCard(const HandState& s);

// Plays the hand out from where it stands.
void PlayOut(HandState& s);

// What the hand was worth to the side: its points less the other side's,
// and a game won or lost on top.
int HandWorth(const HandState& s, int side);

}  // namespace trickhaven::expert
