#include "tests/headless/headless_platform.h"

#include <algorithm>

#include "game/session.h"

namespace trickhaven {

HeadlessPlatform::HeadlessPlatform(std::uint64_t seed) {
    random_.state = seed;
}

void HeadlessPlatform::PlaySound(const std::string& file) {
    ++soundsPlayed;
    if (keepHistory) sounds.push_back(file);
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
        ++now_;
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
    now_ = std::max(now_, *deadline);
}

}  // namespace trickhaven
