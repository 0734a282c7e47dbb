// The program's command line: --help and --version, answered before any
// window opens so that they work on a terminal without a display.
#pragma once

#include <optional>

namespace trickhaven {

// Answers --help, --version or a mistaken command line on the terminal and
// returns the exit code; returns nothing when the game is to start. The
// toolkit's own options (-style, -platform, ...) pass through to it.
std::optional<int> AnswerCommandLine(int argc, char* argv[]);

}  // namespace trickhaven
