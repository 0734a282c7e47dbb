// The Expert's choices, each from one seat's view only: many layouts of
// the unseen cards are drawn, every candidate is played out in each of
// them, and the candidate worth most on the average is taken. Round Two is
// searched exactly, all its cards being known by then.
#pragma once

#include "expert/hand_state.h"
#include "expert/seat_view.h"

namespace trickhaven::expert {

// Layouts drawn for a choice of Round One.
inline constexpr int kLayouts = 200;

// The card to play, leading or following, in either round.
int ExpertCard(const SeatView& view);

// After a trick won (or after the last pair): which meld, or none.
Meld ExpertMeld(const SeatView& view);

// The winner of trick 12: true to take the stock card, false the up card.
bool ExpertTakesStockCard(const SeatView& view);

}  // namespace trickhaven::expert
