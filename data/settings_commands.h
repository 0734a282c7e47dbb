// The menu commands that change the stored settings: the target score, the
// names, the robot, the statistics, and the exit.
#pragma once

#include "game/game_state.h"

namespace trickhaven {

void Menu1000_Click(Game& g);
void MenuMedium_Click(Game& g);
void MnuHalf_Click(Game& g);
void MnuQuick_Click(Game& g);
void MnuYours_Click(Game& g);
void MnuTheirName_Click(Game& g);
void MnuClassic_Click(Game& g);
void MnuExpert_Click(Game& g);
void MnuuView_Click(Game& g);
void MnuDelete_Click(Game& g);
void MnuExit_Click(Game& g);
void Form_QueryUnload(Game& g);

}  // namespace trickhaven
