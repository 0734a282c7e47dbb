#include "headless/headless_platform.h"

#include "game/session.h"

namespace trickhaven {

HeadlessPlatform::HeadlessPlatform(std::uint64_t seed) {
    random_.state = seed;
}

void HeadlessPlatform::PlaySound(const std::string& file) {
    ++soundsPlayed;
    if (keepHistory) sounds.push_back(file);
    if (table != nullptr) table->Note("sound " + file);
}

void HeadlessPlatform::Advance(std::uint32_t milliseconds) {
    now_ = static_cast<std::int32_t>(static_cast<std::uint32_t>(now_) + milliseconds);
}

// The script first, then the keys, then the policy. Keys that end in no
// click are still a round of input, as a key press is in the window.
std::optional<TableEvent> HeadlessPlatform::NextInput(bool& inputServed) {
    inputServed = false;
    if (!script.empty()) {
        const TableEvent event = script.front();
        script.pop_front();
        inputServed = true;
        return event;
    }
    // The keys that only move the focus change nothing of the game, so they
    // go with the next key that clicks, in one round: a player who walks to
    // a card and plays it keeps the clock of one who clicks it.
    while (!keys.empty()) {
        const KeyPress key = keys.front();
        keys.pop_front();
        inputServed = true;
        if (auto event = keyboard.Press(*game, *table, key)) return event;
    }
    if (inputServed) return std::nullopt;
    if (policy) {
        auto event = policy(*game);
        inputServed = event.has_value();
        return event;
    }
    return std::nullopt;
}

void HeadlessPlatform::ServeEvents(std::optional<std::int32_t> deadline) {
    ++rounds;
    if (stopWhen && stopWhen(*game)) {
        throw ScenarioOver{};
    }
    // The window moves its focus along with the hand while events are served.
    if (keyboard.Used()) keyboard.Follow(*game, *table);
    bool inputServed = false;
    const std::optional<TableEvent> event = NextInput(inputServed);
    if (inputServed) {
        // An event takes a millisecond, so a source that never rests still
        // lets the waits run out.
        Advance(1);
        ++eventsServed;
    }
    if (event) {
        HandleEvent(*game, *event);
        if (afterEvent) {
            afterEvent(*game, *event);
        }
        return;
    }
    if (inputServed) return;
    if (!deadline) {
        throw TableStuck{};
    }
    // The clock only goes forward, right across the wrap of the tick count.
    const std::uint32_t ahead =
        static_cast<std::uint32_t>(*deadline) - static_cast<std::uint32_t>(now_);
    if (ahead < 0x80000000U) {
        Advance(ahead);
    }
}

}  // namespace trickhaven
