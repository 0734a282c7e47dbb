// A game in progress outlives the program: its standing between two hands
// lies in SavedGame.dat beside Data.dat, written when a game starts, when a
// hand's scores are posted and when the target rises, and offered back at
// the first New Game of the next run.
//
// The file is a few lines of text, each a word, a blank, a value and a line
// feed, in this order and nothing else:
//
//   trickhaven saved game 1
//   player 430
//   robot 610
//   target 1250
//   dealer 2
//   hands 3
//   seed 0123456789abcdef
//
// "dealer" is the side that deals the next hand (1 the player, 2 the robot)
// and "seed" the next deal's seed, sixteen lowercase hex digits. A game
// whose next deal is the Expert's ends in one more line, "robot expert";
// without it the game is the Classic robot's, as every file before it was.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "game/game_state.h"

namespace trickhaven {

inline constexpr const char* kSavedGameName = "SavedGame.dat";

std::string FormatStanding(const GameStanding& standing);

// The standing when the text is one that this game writes and its values
// could come from play; nothing for a text cut short, of another version,
// with anything added, or with a value that no game can reach.
std::optional<GameStanding> ParseStanding(std::string_view text);

// The game as it stands now, between two hands.
GameStanding CurrentStanding(const Game& g);

// The saved standing, when there is one and it reads whole.
std::optional<GameStanding> ReadSavedGame(const Game& g);

// Writes the standing whole, through a temporary file and a rename; a saved
// game there that does not read keeps its bytes in SavedGame.dat.unreadable
// first. A failed write leaves the old file and the game going.
void SaveStanding(Game& g);

// Forgets the saved game: it is over, given up or declined.
void DropSavedGame(Game& g);

}  // namespace trickhaven
