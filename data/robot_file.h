// The robot chosen in the menu and the games played against the Expert
// outlive the program in Robot.dat beside Data.dat, which stays the design's
// line of settings with the Classic robot's games. A missing or damaged file
// means the Classic robot and no Expert game.
//
// The file is four lines of text, each ending in a line feed:
//
//   trickhaven robot 1
//   robot expert
//   player 3
//   expert 5
//
// "robot" is "classic" or "expert"; "player" counts the games the player
// won against the Expert, "expert" the games the Expert won.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "game/game_state.h"

namespace trickhaven {

inline constexpr const char* kRobotFileName = "Robot.dat";

struct RobotRecord {
    RobotKind Chosen = RobotKind::Classic;
    std::array<std::int32_t, 3> ExpertStats{};  // items 1 and 2
};

std::string FormatRobotRecord(const RobotRecord& record);

// The record when the text is one that this game writes, or nothing.
std::optional<RobotRecord> ParseRobotRecord(std::string_view text);

// "Classic" or "Expert", as the menu names them.
const char* RobotName(RobotKind robot);

// Reads Robot.dat into the choice and the Expert's games and marks the
// menu; a missing or damaged file leaves the Classic robot and no games.
void ReadRobotFile(Game& g);

// Writes Robot.dat through a temporary file and a rename; a file there that
// does not read keeps its bytes in Robot.dat.unreadable first.
void SaveRobotFile(Game& g);

// The menu's choice, marked in the menu and kept in Robot.dat.
void KeepRobotChoice(Game& g, RobotKind robot);

}  // namespace trickhaven
