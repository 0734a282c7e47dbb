// A hand of the game as the Expert plays it through in its head: both hands,
// the stock in the order it will be drawn, the meld marks and the scores,
// all in card sets, with the rules of both rounds over them. Sides are 0 the
// player and 1 the robot.
#pragma once

#include <array>
#include <cstdint>

#include "expert/card_set.h"
#include "expert/round_two_search.h"

namespace trickhaven::expert {

inline constexpr int kPlayerSide = 0;
inline constexpr int kRobotSide = 1;

constexpr int OtherSide(int side) {
    return 1 - side;
}

// The marks that limit later melds, each the set of cards that carry it.
struct MeldMarks {
    CardSet run = kNoCards;       // served in a run
    CardSet marriage = kNoCards;  // served in a marriage
    CardSet fours = kNoCards;     // served in a four of a kind
    CardSet pinochle = kNoCards;  // a jack shown in a single pinochle
    CardSet doublePinochle = kNoCards;
    CardSet dixBlocked = kNoCards;  // a nine already melded, or turned up at the deal
};

enum class MeldKind : std::uint8_t { None, Dix, DoublePinochle, Pinochle, Marriage, Fours, Run };

// A marriage names its suit, a four its value.
struct Meld {
    MeldKind kind = MeldKind::None;
    int arg = 0;
    friend bool operator==(const Meld&, const Meld&) = default;
};

// Every meld a side could ask for: dix, double, single, four marriages,
// four fours, run.
inline constexpr int kMeldChoices = 12;
Meld MeldChoice(int index);

// What the hand waits for next: a card from the side to play, the meld of
// the winner of the last trick, the choice of the last pair by the winner
// of trick 12, that winner's meld after it, or nothing more.
enum class Stage : std::uint8_t { Card, Meld, LastPair, LastMeld, Over };

struct HandState {
    Stage stage = Stage::Card;
    std::array<CardSet, 2> hands{};
    // The face-down stock, drawn from the back.
    std::array<std::uint8_t, 24> stock{};
    int stockCount = 0;
    int upCard = 0;
    bool upTaken = false;
    int trump = Diamonds;
    MeldMarks marks;
    std::array<bool, 2> pinochleMade{};
    std::array<bool, 2> doubleMade{};
    // Tricks finished in this hand, 0 to 24.
    int tricksDone = 0;
    int leader = kPlayerSide;
    // The card led to the trick in progress, 0 when a lead is awaited.
    int led = 0;
    std::array<int, 2> melds{};
    std::array<int, 2> tricks{};
    // Game totals: earlier hands and this hand's melds.
    std::array<int, 2> totals{};
    int target = 1000;
    // The side that has won the game in this hand, -1 while none has.
    int gameWinner = -1;
};

// What the meld would score for the side now; 0 when the side cannot lay it.
int MeldPoints(const HandState& s, int side, Meld meld);

// Lays the meld (it must score), marking its cards and posting its points.
void LayMeld(HandState& s, int side, Meld meld);

// The cards the side may play to the trick: any in Round One; in Round Two
// the suit led, else a trump, else any.
CardSet PlayableCards(const HandState& s, int side);

// The side whose card, meld or choice is awaited: the winner of the last
// trick but for a card.
int SideToAct(const HandState& s);

// Plays the awaited card; a second card settles the trick, books its points
// (with the 10 of trick 12) and makes the winner the leader, who melds next
// (the robot not at trick 12).
void PlayCard(HandState& s, int card);

// The awaited meld, or none; then the target test of Round One and both
// draws, the winner first (no draw after trick 12).
void MakeMeld(HandState& s, Meld meld);

// The winner of trick 12 takes the stock card or the up card; the other
// side gets the other one.
void ShareLastPair(HandState& s, bool winnerTakesStockCard);
int LastStockCard(const HandState& s);

bool InRoundTwo(const HandState& s);

}  // namespace trickhaven::expert
