// What assistive technology reads of the table beyond the widgets' own
// names: the player's cards as buttons that say when they cannot be played,
// the other cards as pictures, and the notice that speaks what happens.
#pragma once

#include <QWidget>

namespace trickhaven {

struct Game;

// Where a card stands for the player, as the game knows it.
struct CardStanding {
    bool playersCard = false;  // in his hand, his meld rows too
    bool playable = false;     // a click would play it now
    bool awaited = false;      // the game waits for the player's card
    // What a screen reader says of the card: only while the game waits for
    // the player's card is a card of his that would not play "cannot be
    // played now"; at other times nothing is said of it.
    bool CannotPlay() const { return playersCard && awaited && !playable; }
};

// The standing of a card in the game as it is now.
CardStanding ReadCard(const Game& g, int card);

// A widget with the role of a notification: each text it is given is named
// on it and shown, which screen readers speak whatever has the focus. It
// draws nothing.
class SpokenNotice : public QWidget {
    Q_OBJECT
public:
    explicit SpokenNotice(QWidget* parent);

    void Say(const QString& text);
};

// Teaches Qt's accessibility the table's own kinds; safe to call again.
void InstallTableAccessibility();

}  // namespace trickhaven
