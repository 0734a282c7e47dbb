// Players for the headless table: they answer whenever the logic serves
// events, with a card when one is awaited and with meld buttons during an
// offer.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <string>

#include "forms/table_view.h"
#include "game/game_state.h"
#include "headless/headless_table.h"
#include "round_one/card_click.h"

namespace trickhaven {

enum class PolicyKind { First, Random, Greedy };

std::optional<PolicyKind> PolicyKindByName(const std::string& name);

class PlayerPolicy {
public:
    PlayerPolicy(PolicyKind kind, std::uint64_t seed) : kind_(kind), random_(seed) {}

    // The next event, or nothing when the player has nothing to do.
    std::optional<TableEvent> Next(const Game& g);

    // The answer to a deluxe message (the choice at "Make choice").
    int Answer(const MessageRecord& message);

private:
    std::optional<TableEvent> NextMeldButton(const Game& g);
    int ChooseCard(const Game& g);

    PolicyKind kind_;
    std::mt19937_64 random_;
    int meldAttempt_ = 0;
};

}  // namespace trickhaven
