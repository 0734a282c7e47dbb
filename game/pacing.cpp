#include "game/pacing.h"

#include "data/data_file.h"
#include "game/session.h"

namespace trickhaven {

namespace {

void WaitFromDelayStart(Game& g) {
    std::int32_t now = g.platform.TickCount();
    while (g.DelayStart + g.DelayMs > now) {
        g.platform.ServeEvents(g.DelayStart + g.DelayMs);
        CheckAbandoned(g);
        now = g.platform.TickCount();
    }
}

void SetSpeed(Game& g, std::int16_t speed, const std::string& message) {
    g.GameSpeed = speed;
    SaveData(g);
    g.view.ShowPlainMessage(message, "Trickhaven");
}

}  // namespace

void WaitDelay(Game& g) {
    g.DelayStart = g.platform.TickCount();
    WaitFromDelayStart(g);
}

void WaitDealSound(Game& g) {
    g.platform.PlaySound("carddeal1.wav");
    g.DelayStart = g.platform.TickCount();
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
