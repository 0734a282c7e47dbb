// The transcript of play: one JSON object a line, each with the event and
// the table as it stood just before the event changed anything.
#pragma once

#include <cstdio>
#include <string>

#include "game/game_state.h"
#include "headless/headless_table.h"

namespace trickhaven {

// The table as the transcript's "state" object.
std::string TableStateJson(const Game& g);

class Transcript {
public:
    // Writes to out, which stays the caller's to close.
    explicit Transcript(std::FILE* out) : out_(out) {}

    void Play(const Game& g, const PlayLogEvent& event);
    void Message(const Game& g, const MessageRecord& message);
    void Status(const Game& g, int panel, const std::string& text);

private:
    void Line(const Game& g, const std::string& fields);

    std::FILE* out_;
};

}  // namespace trickhaven
