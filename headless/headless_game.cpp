#include "headless/headless_game.h"

#include <unistd.h>

#include <atomic>
#include <fstream>
#include <iterator>
#include <string>

#include "game/session.h"

namespace trickhaven {

namespace {

std::filesystem::path FreshFolder() {
    static std::atomic<int> counter{0};
    auto folder = std::filesystem::temp_directory_path() /
                  ("trickhaven-" + std::to_string(::getpid()) + "-" + std::to_string(++counter));
    std::filesystem::create_directories(folder);
    return folder;
}

}  // namespace

HeadlessGame::HeadlessGame(std::uint64_t seed)
    : platform(seed), game(table, platform), folder(FreshFolder()) {
    platform.game = &game;
    platform.table = &table;
    table.clock = [this] { return platform.TickCount(); };
    game.DataFolder = folder;
}

HeadlessGame::~HeadlessGame() {
    std::error_code error;
    std::filesystem::remove_all(folder, error);
}

bool HeadlessGame::Run() {
    try {
        RunSession(game);
    } catch (const ScenarioOver&) {
        return true;
    }
    return false;
}

std::string FileBytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace trickhaven
