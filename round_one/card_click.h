// The player's click on any card of the table, and the rules of play that
// bind the player in each round.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

void PicCard_Click(Game& g, int index);
bool HasSuitPlayer(const Game& g, int whichSuit);
bool HasTrumps(const Game& g, int whichSuit);
void PlayerPlaysCard(Game& g, int card);

// True while the game waits for the player's card.
bool CardAwaited(const Game& g);

// True when a click on this card would play it now: the player's card, his
// turn, and the rules of the round allow it.
bool ClickWouldPlay(const Game& g, int card);

}  // namespace trickhaven
