// Where melded cards lie on the table: the staging row, then the rows of
// each kind of meld, three lines a side.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

void MoveToMeldRow(Game& g, int who, int slot, int card);
void ShowRunCards(Game& g, int who);
void ShowFoursCards(Game& g, int who);
void ShowPinochleCards(Game& g, int who);
void ShowDoublePinochleCards(Game& g, int who);
void ShowMarriageCards(Game& g, int who);

}  // namespace trickhaven
