// The machine of the headless table: a virtual clock that jumps to each
// wait's end, and an event source (a script, then a player policy) that is
// asked for the next event whenever the logic serves events.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "forms/platform.h"
#include "forms/table_view.h"
#include "game/card_random.h"
#include "headless/headless_keys.h"
#include "headless/headless_table.h"

namespace trickhaven {

struct Game;

// A pump waited with no event to come: nothing could ever release it.
struct TableStuck : std::runtime_error {
    TableStuck() : std::runtime_error("a pump waits with no event to come") {}
};

// Thrown by the event source to end a scenario; it passes through the logic.
struct ScenarioOver {};

class HeadlessPlatform : public Platform {
public:
    explicit HeadlessPlatform(std::uint64_t seed);

    std::int32_t TickCount() override { return now_; }
    void ServeEvents(std::optional<std::int32_t> deadline) override;
    void PlaySound(const std::string& file) override;
    double Random() override { return random_.Draw(); }
    void Reseed() override { random_.Reseed(now_); }

    // Where served events go.
    Game* game = nullptr;
    // Where sounds are noted in the record of play, when set.
    HeadlessTable* table = nullptr;
    // Events served first, in order.
    std::deque<TableEvent> script;
    // Keys pressed on the table once the script is through, each turned by
    // the keyboard into the click it stands for.
    std::deque<KeyPress> keys;
    HeadlessKeyboard keyboard;
    // Asked when the script is empty; nothing means no event this round.
    std::function<std::optional<TableEvent>(Game&)> policy;
    // Checked at every round of events; true ends the scenario.
    std::function<bool(const Game&)> stopWhen;
    // Called after every event served, for checks of the table.
    std::function<void(const Game&, const TableEvent&)> afterEvent;

    // Every sound started, while keepHistory holds; long runs turn it off.
    // Sets the virtual clock, as a machine up for weeks would have it.
    void SetClock(std::int32_t now) { now_ = now; }

    std::vector<std::string> sounds;
    bool keepHistory = true;
    long soundsPlayed = 0;
    long rounds = 0;
    long eventsServed = 0;

private:
    void Advance(std::uint32_t milliseconds);
    std::optional<TableEvent> NextInput(bool& inputServed);

    std::int32_t now_ = 0;
    CardRandom random_;
};

}  // namespace trickhaven
