// Where the data files live: the program's folder, as the game has always
// kept them, or the user's data folder where the program's folder may not be
// written (an installed game).
#pragma once

#include <filesystem>

namespace trickhaven {

// The folder for Data.dat and All.dat. When the user's folder is chosen and
// holds no Data.dat yet, it starts from a copy of the program's.
std::filesystem::path ChooseDataFolder(const std::filesystem::path& programFolder,
                                       bool programFolderWritable,
                                       const std::filesystem::path& userFolder);

}  // namespace trickhaven
