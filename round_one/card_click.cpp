// PLACEHOLDER: replaced by the real routines.
#include "round_one/card_click.h"

namespace trickhaven {

void PicCard_Click(Game& /*g*/, int /*index*/) {}
bool HasSuitPlayer(const Game& /*g*/, int /*whichSuit*/) { return {}; }
bool HasTrumps(const Game& /*g*/, int /*whichSuit*/) { return {}; }
void PlayerPlaysCard(Game& /*g*/, int /*card*/) {}

}  // namespace trickhaven
