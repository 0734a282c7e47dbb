// A whole game on the headless table, with its own data folder.
#pragma once

#include <filesystem>
#include <string>

#include "game/game_state.h"
#include "headless/headless_platform.h"
#include "headless/headless_table.h"

namespace trickhaven {

struct HeadlessGame {
    explicit HeadlessGame(std::uint64_t seed = 1);
    ~HeadlessGame();
    HeadlessGame(const HeadlessGame&) = delete;
    HeadlessGame& operator=(const HeadlessGame&) = delete;

    // Runs the session until the source stops it, the program ends or a
    // pump waits for nothing; true when the scenario was stopped.
    bool Run();

    HeadlessTable table;
    HeadlessPlatform platform;
    Game game;
    std::filesystem::path folder;
};

// The whole content of a file, or the empty text when it can't be read.
std::string FileBytes(const std::filesystem::path& file);

}  // namespace trickhaven
