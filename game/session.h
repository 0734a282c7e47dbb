// The session: the program's start, the idle table, and the loop of hands.
// A new game or an exit asked for inside a wait unwinds the running routines
// (GameAbandoned) back to the session loop, which then starts the next game
// or ends; the unwinding never crosses the toolkit's event dispatch, because
// every entry from the table into the logic goes through HandleEvent.
#pragma once

#include "forms/table_view.h"
#include "game/game_state.h"

namespace trickhaven {

// Thrown to unwind the routines of an abandoned game; caught only by
// HandleEvent and the session loop.
struct GameAbandoned {};

// Asks the session for a new game or the end, and unwinds at once.
[[noreturn]] void Abandon(Game& g, SessionRequest request);

// Unwinds when a request is pending; called after every round of events.
void CheckAbandoned(const Game& g);

// The one entry from the table into the logic.
void HandleEvent(Game& g, const TableEvent& event);

// Form_Load, then the idle table and the games, until the program ends.
void RunSession(Game& g);

// The hands of one game, one after the other, from SetUpHand on. Leaves only
// by GameAbandoned.
[[noreturn]] void PlayHands(Game& g);

}  // namespace trickhaven
