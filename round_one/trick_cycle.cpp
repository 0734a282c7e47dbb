// PLACEHOLDER: replaced by the real routines.
#include "round_one/trick_cycle.h"

namespace trickhaven {

void ContinueRoundOne(Game& /*g*/) {}
void ResolveTrick(Game& /*g*/) {}
int TrickWinner(const Game& /*g*/) { return {}; }
int TrickValue(const Game& /*g*/) { return {}; }
void GatherTrick(Game& /*g*/, int /*who*/) {}
void OpponentPlaysCard(Game& /*g*/, int /*card*/) {}
int CardPoints(int /*value*/) { return {}; }

}  // namespace trickhaven
