// The one line of settings that lasts between runs: games won by each side,
// the speed, the two names and the target score, in Data.dat (read at start,
// written by SaveData) and All.dat (written at the exit, read by nothing).
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "game/game_state.h"

namespace trickhaven {

struct SettingsLine {
    std::int32_t PlayerWins = 0;
    std::int32_t OpponentWins = 0;
    std::int16_t GameSpeed = 100;
    std::string PlayerName = "Player";
    std::string OpponentName = "Lorinda";
    std::int16_t TargetScore = 1000;
};

// The line with its CR LF: 0,0,100,"Player","Lorinda",1000 for the defaults.
std::string FormatSettingsLine(const SettingsLine& line);

// The fields of the first line that read as their type, the initial values
// for the rest, and whether the text is such a line and nothing else.
struct SettingsReading {
    SettingsLine line;
    bool whole = true;
};
SettingsReading ReadSettingsText(std::string_view text);

// The six fields when the text reads whole, or nothing.
std::optional<SettingsLine> ParseSettingsLine(std::string_view text);

// Writes the whole file through a temporary file and a rename, so that the
// old file stays whole when the write fails. False on failure.
bool WriteFileWhole(const std::filesystem::path& file, std::string_view content);

// Before a data file is replaced: a file there that does not read whole has
// its bytes copied beside it, with ".unreadable" added to its name. False
// when there was something to keep and it could not be kept; the file must
// then be left as it is.
bool KeepUnreadableBytes(const std::filesystem::path& file,
                         const std::function<bool(const std::filesystem::path&)>& readsWhole);

SettingsLine CurrentSettings(const Game& g);

// Reads Data.dat into the settings, field by field: a missing file, or a
// field that does not read, leaves the initial values.
void ReadDataFile(Game& g);

// Writes Data.dat; a failed write leaves the old file and the game going.
// A Data.dat that does not read whole is first copied to
// Data.dat.unreadable, and one that cannot be copied is left as it is.
void SaveData(Game& g);

// Writes All.dat on the way out.
void SaveAllData(Game& g);

}  // namespace trickhaven
