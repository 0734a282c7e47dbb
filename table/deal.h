// The random pick, the deal and the stock pile.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

// One stop of a card's flight: it moves there and comes to the front.
void HopCard(Game& g, int card, int left, int top);

// A random card of the stock (Place 20), from the hand's stream; the stock
// must not be empty.
int PickStockCard(Game& g);

// Chooses the seed of the next deal with fresh entropy: the clock mixed
// into the machine's generator. Runs once before each hand, never during one.
void ChooseDealSeed(Game& g);

void DealCardToOpponent(Game& g);
void DealCardToPlayer(Game& g);

// Names the dealer, deals twelve each in packets of three, turns the up card,
// lays the stock and both rows, and names the leader.
void DealHand(Game& g);

// Lays the stock pile face down, higher indices on top.
void ShowStock(Game& g);

}  // namespace trickhaven
