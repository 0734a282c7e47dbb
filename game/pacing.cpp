#include "game/pacing.h"

#include <algorithm>
#include <utility>

#include "data/data_file.h"
#include "game/session.h"

namespace trickhaven {

namespace {

// The tick count wraps after some 24 days of uptime; the time gone by,
// counted in unsigned arithmetic, stays right across the wrap.
std::uint32_t TicksSince(std::int32_t start, std::int32_t now) {
    return static_cast<std::uint32_t>(now) - static_cast<std::uint32_t>(start);
}

// The end is worked out afresh each round, from DelayStart and DelayMs as
// they stand: a handler may have changed either.
void WaitFromDelayStart(Game& g) {
    for (;;) {
        const std::int32_t now = g.platform.TickCount();
        const auto length = static_cast<std::uint32_t>(std::max<int>(g.DelayMs, 0));
        const std::uint32_t gone = TicksSince(g.DelayStart, now);
        if (gone >= length) {
            return;
        }
        g.platform.ServeEvents(
            static_cast<std::int32_t>(static_cast<std::uint32_t>(now) + (length - gone)));
        CheckAbandoned(g);
    }
}

void SetSpeed(Game& g, std::int16_t speed, const std::string& message) {
    g.GameSpeed = speed;
    SaveData(g);
    g.view.ShowPlainMessage(message, "Trickhaven");
}

}  // namespace

void WaitDelay(Game& g) {
    g.DelayStart = g.platform.TickCount() - std::exchange(g.ThinkingMs, 0);
    WaitFromDelayStart(g);
}

void WaitDealSound(Game& g) {
    g.platform.PlaySound("carddeal1.wav");
    g.DelayStart = g.platform.TickCount() - std::exchange(g.ThinkingMs, 0);
    WaitFromDelayStart(g);
}

void PumpWhile(Game& g, const bool& flag) {
    while (flag) {
        g.platform.ServeEvents(std::nullopt);
        CheckAbandoned(g);
    }
}

void MnuFast_Click(Game& g) {
    SetSpeed(g, 25,
             " The cards should now play faster, but it will depend on the speed of your "
             "computer to a degree.");
}

void MnuMedium_Click(Game& g) {
    SetSpeed(g, 100,
             " The cards should now play at a medium speed, but it will depend on the speed of "
             "your computer to a degree.");
}

void MnuSlow_Click(Game& g) {
    SetSpeed(g, 250,
             " The cards should now play slowly, but it will depend on the speed of your "
             "computer to a degree.");
}

}  // namespace trickhaven
