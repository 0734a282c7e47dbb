// Players for the headless table: they answer whenever the logic serves
// events, with a card when one is awaited and with meld buttons during an
// offer.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <string>

#include "expert/hand_state.h"
#include "forms/table_view.h"
#include "game/game_state.h"
#include "headless/headless_table.h"
#include "round_one/card_click.h"

namespace trickhaven {

enum class PolicyKind { First, Random, Greedy, Expert };

std::optional<PolicyKind> PolicyKindByName(const std::string& name);

class PlayerPolicy {
public:
    PlayerPolicy(PolicyKind kind, std::uint64_t seed) : kind_(kind), random_(seed) {}

    // The next event, or nothing when the player has nothing to do.
    std::optional<TableEvent> Next(const Game& g);

    // The answer to a deluxe message (the choice at "Make choice"); the
    // Expert weighs that choice on the table g.
    int Answer(const MessageRecord& message, const Game* g = nullptr);

    // Told as the Expert starts (true) and ends (false) a decision.
    std::function<void(bool)> onThinking;

private:
    std::optional<TableEvent> NextMeldButton(const Game& g);
    std::optional<TableEvent> ExpertMeldButton(const Game& g);
    int ChooseCard(const Game& g);
    template <typename Decide>
    auto Think(Decide decide);

    PolicyKind kind_;
    std::mt19937_64 random_;
    int meldAttempt_ = 0;
    std::optional<expert::Meld> expertMeld_;
    bool expertMeldAfterLastPair_ = false;
    bool knocked_ = false;
};

}  // namespace trickhaven
