// What a player who cannot see the table is told: the robot's cards, the
// tricks taken, the draws, the melds, the ends of a hand and of a game, what
// the status bar's commentary adds to them and every message as it opens.
// The texts are short, and all that happens while the robot's side runs is
// held and handed out joined, once the game waits for the player or a
// message opens, for the window to speak; nothing of this is drawn.
#pragma once

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
    // A message box opening: what is held is told now, before it. The box
    // itself a screen reader reads from the dialog, so its text is not told.
    void MessageOpens();
    // The card that has the focus has changed its standing as the game
    // stops to wait: a screen reader said otherwise when the focus came.
    void FocusedCardStanding(const std::string& cardName, bool playable);

    // All that was told since the last time, as one text, once it is time
    // to speak: the game waits for the player's card or meld (not while his
    // meld runs), or for no one, or a message has opened. Empty until then, and when nothing was
    // told.
    std::string TakeSpoken(const Game& g);
    // The last text handed out, for the player who asks to hear it again.
    const std::string& LastSpoken() const { return lastSpoken_; }

private:
    // A thing the table shows that an event and the commentary may both
    // tell: the side that did it, and the card or the points.
    struct Fact {
        std::string side;
        std::string mark;
    };
    struct Line {
        std::string text;
        bool commentary = false;
    };
    void Tell(std::string text, bool commentary);
    static bool Repeats(const std::string& line, const Fact& fact);

    std::vector<Line> waiting_;
    bool messageOpen_ = false;
    std::string lastCommentary_;
    std::string lastSpoken_;
    // The facts of the events since the last card played: the commentary
    // that repeats one, before or after its event, is not told.
    std::vector<Fact> facts_;
};

}  // namespace trickhaven
