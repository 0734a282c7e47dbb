// Round Two played perfectly: every card is known by then, so the rest of
// the hand can be searched to its end under the rules of following and
// trumping.
#pragma once

#include "expert/hand_state.h"

namespace trickhaven::expert {

struct RoundTwoAnswer {
    int card = 0;
    // The trick points the side to play takes from here with best play.
    int points = 0;
};

// For a state of Round Two awaiting a card.
RoundTwoAnswer BestRoundTwoCard(const HandState& s);

}  // namespace trickhaven::expert
