#include "data/data_folder.h"

#include <iterator>
#include <system_error>

namespace trickhaven {

namespace {

// A game installed under /usr belongs to the package manager: even root
// keeps the player's files out of it, so that removing the package leaves
// nothing of the game behind.
bool OwnedByThePackageManager(const std::filesystem::path& programFolder) {
    const auto top = programFolder.begin();
    return programFolder.is_absolute() && std::next(top) != programFolder.end() &&
           *std::next(top) == "usr";
}

}  // namespace

std::filesystem::path ChooseDataFolder(const std::filesystem::path& programFolder,
                                       bool programFolderWritable,
                                       const std::filesystem::path& userFolder) {
    if (programFolderWritable && !OwnedByThePackageManager(programFolder)) {
        return programFolder;
    }
    std::error_code error;
    std::filesystem::create_directories(userFolder, error);
    const std::filesystem::path settings = userFolder / "Data.dat";
    if (!std::filesystem::exists(settings, error)) {
        // A failed copy leaves no file: the game then starts from the
        // initial values and writes the file at its first save.
        std::filesystem::copy_file(programFolder / "Data.dat", settings, error);
        std::filesystem::permissions(
            settings, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write,
            error);
    }
    return userFolder;
}

}  // namespace trickhaven
