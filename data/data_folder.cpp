#include "data/data_folder.h"

#include <system_error>

namespace trickhaven {

std::filesystem::path ChooseDataFolder(const std::filesystem::path& programFolder,
                                       bool programFolderWritable,
                                       const std::filesystem::path& userFolder) {
    if (programFolderWritable) {
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
