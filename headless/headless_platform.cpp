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

void HeadlessPlatform::ServeEvents(std::optional<std::int32_t> deadline) {
    ++rounds;
    if (stopWhen && stopWhen(*game)) {
        throw ScenarioOver{};
    }
    std::optional<TableEvent> event;
    if (!script.empty()) {
        event = script.front();
        script.pop_front();
    } else if (policy) {
        event = policy(*game);
    }
    if (event) {
        // An event takes a millisecond, so a source that never rests still
        // lets the waits run out.
        Advance(1);
        ++eventsServed;
        HandleEvent(*game, *event);
        if (afterEvent) {
            afterEvent(*game, *event);
        }
        return;
    }
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
