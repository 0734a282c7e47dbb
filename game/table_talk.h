// What a player who cannot see the table is told: the robot's cards, the
// tricks taken, the draws, the melds, the ends of a hand and of a game, the
// running commentary of the status bar and every message as it opens. The
// texts are gathered as play goes and handed out joined, once for all that
// happened at once, for the window to speak; nothing of this is drawn.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "game/game_state.h"

namespace trickhaven {

class TableTalk {
public:
    // A step of play, told with the table as it stands just before it.
    void Hear(const Game& g, const PlayLogEvent& event);
    // A new text of the status bar's commentary (or of the trumps' panel).
    void Commentary(const std::string& text);
    // A message box opening.
    void MessageOpens(const std::string& title, const std::string& text);

    // All that was told since the last call, as one text; empty when nothing
    // was.
    std::string TakeSpoken();

    // Called when a text arrives and nothing waits to be spoken.
    std::function<void()> onNews;

private:
    // A thing the table shows that an event and the commentary may both
    // tell: the side that did it, and the card or the points.
    struct Fact {
        std::string side;
        std::string mark;
    };
    void Tell(std::string text);
    static bool Repeats(const std::string& line, const Fact& fact);

    std::vector<std::string> waiting_;
    std::string lastCommentary_;
    // The last event's fact, until a commentary line repeats it; and the
    // commentary lines since the last event, which an event may repeat.
    std::vector<Fact> told_;
    std::vector<std::string> commentedSinceEvent_;
};

}  // namespace trickhaven
