#include "robot/expert_moves.h"

#include "expert/decisions.h"
#include "melds/meld_rules.h"
#include "robot/expert_seat.h"

namespace trickhaven {

namespace {

// Runs one decision and books the time it took against the next wait.
template <typename Decide>
auto Think(Game& g, Decide decide) {
    const std::int32_t start = g.platform.TickCount();
    if (g.onThinking) g.onThinking(true);
    const auto choice = decide();
    if (g.onThinking) g.onThinking(false);
    g.ThinkingMs = g.platform.TickCount() - start;
    return choice;
}

void LayExpertMeld(Game& g, int who, expert::Meld meld) {
    switch (meld.kind) {
        case expert::MeldKind::None:
            break;
        case expert::MeldKind::Dix:
            MeldDix(g, who);
            break;
        case expert::MeldKind::DoublePinochle:
            MeldDoublePinochle(g, who);
            break;
        case expert::MeldKind::Pinochle:
            MeldPinochle(g, who);
            break;
        case expert::MeldKind::Marriage:
            MeldMarriage(g, who, meld.arg);
            break;
        case expert::MeldKind::Fours:
            MeldFours(g, who, meld.arg);
            break;
        case expert::MeldKind::Run:
            MeldRun(g, who);
            break;
    }
}

}  // namespace

int ExpertRobotCard(Game& g) {
    return Think(g,
                 [&g] { return expert::ExpertCard(SeatViewOf(g, TheRobot, expert::Stage::Card)); });
}

void ExpertRobotMelds(Game& g) {
    const bool afterLastPair = Card(g, g.UpCard).Place != PlaceUpCard;
    const expert::Meld meld = Think(g, [&g, afterLastPair] {
        return expert::ExpertMeld(
            SeatViewOf(g, TheRobot, afterLastPair ? expert::Stage::LastMeld : expert::Stage::Meld));
    });
    g.MeldDone = false;
    LayExpertMeld(g, TheRobot, meld);
    LogPlay(g, MeldTurnOver(TheRobot, g.MeldDone));
}

bool ExpertRobotTakesStockCard(Game& g) {
    return Think(g, [&g] {
        return expert::ExpertTakesStockCard(SeatViewOf(g, TheRobot, expert::Stage::LastPair));
    });
}

}  // namespace trickhaven
