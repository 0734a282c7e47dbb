// Every message the game puts to the player, word for word as the logic
// composes it, with the default names "Player" and "Lorinda". The gallery
// shows each; the caption test lays each out.
#pragma once

#include <string>
#include <vector>

namespace trickhaven {

enum class MessageKind {
    Deluxe,    // the game's own message box
    Plain,     // the system's box with its OK
    Question,  // the system's box with Yes and No
    Input,     // the system's box that asks for a text
};

struct GameMessage {
    MessageKind kind;
    std::string text;
    std::string button0, button1, button2;
    int icon;
    std::string title;
};

const std::vector<GameMessage>& GameMessages();

}  // namespace trickhaven
