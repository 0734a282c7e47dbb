// What happens in play, told as it happens: a card to a trick, a trick
// taken, a card drawn, a meld, the robot's meld turn, the end of a hand and
// of a game. The logic only tells; whoever listens (the simulator's
// transcript, the invariant checks) is hooked in from outside.
#pragma once

namespace trickhaven {

enum class PlayLogKind { Card, Trick, Draw, Meld, MeldTurn, HandEnd, GameEnd };

struct PlayLogEvent {
    PlayLogKind kind = PlayLogKind::Card;
    int who = 0;
    int card = 0;
    int winner = 0;
    int points = 0;
    // "run", "fours", "pinochle", "double", "marriage" or "dix".
    const char* meldKind = "";
    int value = 0;
    int suit = 0;
    bool made = false;
};

inline PlayLogEvent CardPlayed(int who, int card) {
    return {PlayLogKind::Card, who, card, 0, 0, "", 0, 0, false};
}

inline PlayLogEvent TrickTaken(int winner, int points) {
    return {PlayLogKind::Trick, 0, 0, winner, points, "", 0, 0, false};
}

inline PlayLogEvent CardDrawn(int who, int card) {
    return {PlayLogKind::Draw, who, card, 0, 0, "", 0, 0, false};
}

// value: the rank of a four; suit: the suit of a marriage; points: what the
// meld posts.
inline PlayLogEvent MeldMade(int who, const char* kind, int value, int suit, int points) {
    return {PlayLogKind::Meld, who, 0, 0, points, kind, value, suit, false};
}

inline PlayLogEvent MeldTurnOver(int who, bool made) {
    return {PlayLogKind::MeldTurn, who, 0, 0, 0, "", 0, 0, made};
}

inline PlayLogEvent HandOver() {
    return {PlayLogKind::HandEnd, 0, 0, 0, 0, "", 0, 0, false};
}

inline PlayLogEvent GameOver(int winner) {
    return {PlayLogKind::GameEnd, 0, 0, winner, 0, "", 0, 0, false};
}

}  // namespace trickhaven
