// The message boxes a headless table has shown, as the tests read them.
#pragma once

#include <string>
#include <vector>

#include "headless/headless_table.h"

namespace trickhaven {

// Every box shown, as "<title> [<buttons>] <icon>: <text>".
inline std::vector<std::string> Told(const HeadlessTable& table) {
    std::vector<std::string> told;
    for (const MessageRecord& m : table.Messages()) {
        told.push_back(m.title + " [" + m.buttons[0] + "|" + m.buttons[1] + "|" + m.buttons[2] +
                       "] " + std::to_string(m.icon) + ": " + m.text);
    }
    return told;
}

}  // namespace trickhaven
