// The driver of Round One: twelve tricks, each led, answered, valued,
// gathered, melded on, tested against the target and followed by the draws.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

void ContinueRoundOne(Game& g);
void ResolveTrick(Game& g);
int TrickWinner(const Game& g);
int TrickValue(const Game& g);
void GatherTrick(Game& g, int who);
void OpponentPlaysCard(Game& g, int card);

// Points of a card in a trick: Ace 11, Ten 10, King 4, Queen 3, Jack 2.
int CardPoints(int value);

}  // namespace trickhaven
