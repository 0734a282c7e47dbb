#include "robot/meld_order.h"

#include <array>

#include "melds/meld_rules.h"
#include "robot/expert_moves.h"

namespace trickhaven {

namespace {

using MeldAttempt = void (*)(Game&);

// The robot weighs nothing: the first meld open to it in this list is the
// one it makes. Marriages go Diamonds, Clubs, Spades, Hearts; fours by
// their points.
constexpr std::array<MeldAttempt, 12> kAttempts{
    [](Game& g) { MeldDix(g, TheRobot); },
    [](Game& g) { MeldDoublePinochle(g, TheRobot); },
    [](Game& g) { MeldPinochle(g, TheRobot); },
    [](Game& g) { MeldMarriage(g, TheRobot, Diamonds); },
    [](Game& g) { MeldMarriage(g, TheRobot, Clubs); },
    [](Game& g) { MeldMarriage(g, TheRobot, Spades); },
    [](Game& g) { MeldMarriage(g, TheRobot, Hearts); },
    [](Game& g) { MeldFours(g, TheRobot, Ace); },
    [](Game& g) { MeldFours(g, TheRobot, King); },
    [](Game& g) { MeldFours(g, TheRobot, Queen); },
    [](Game& g) { MeldFours(g, TheRobot, Jack); },
    [](Game& g) { MeldRun(g, TheRobot); },
};

}  // namespace

void OpponentMelds(Game& g) {
    if (g.Robot == RobotKind::Expert) {
        ExpertRobotMelds(g);
        return;
    }
    g.MeldDone = false;
    for (const MeldAttempt attempt : kAttempts) {
        attempt(g);
        if (g.MeldDone) break;
    }
    LogPlay(g, MeldTurnOver(TheRobot, g.MeldDone));
}

}  // namespace trickhaven
