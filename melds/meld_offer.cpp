#include "melds/meld_offer.h"

#include <array>

#include "game/pacing.h"
#include "melds/meld_rules.h"
#include "table/hand_rows.h"

namespace trickhaven {

namespace {

// The value of each CmdFours button: 0 Kings, 1 Queens, 2 Jacks, 3 Aces.
constexpr std::array<int, 4> kFourValues{King, Queen, Jack, Ace};

// A button answers only its own open panel, and not at all while a meld it
// started is still laying out its cards: a second click would meld again.
bool PanelAnswers(const Game& g, TableControl panel) {
    return g.MeldAwaited && !g.MeldCommandRunning && g.view.IsControlVisible(panel);
}

// Marks a meld started from a panel for as long as it runs, also when a new
// game unwinds it midway.
class MeldCommand {
public:
    explicit MeldCommand(Game& g) : g_(g) { g_.MeldCommandRunning = true; }
    ~MeldCommand() { g_.MeldCommandRunning = false; }
    MeldCommand(const MeldCommand&) = delete;
    MeldCommand& operator=(const MeldCommand&) = delete;

private:
    Game& g_;
};

void ShowDeclare(Game& g) {
    g.view.SetControlVisible(TableControl::FramDeclare, true);
    g.view.BringControlToFront(TableControl::FramDeclare);
}

template <typename Meld>
void RunDeclaration(Game& g, Meld meld) {
    if (!PanelAnswers(g, TableControl::FramDeclare)) return;
    const MeldCommand running(g);
    meld(g);
}

}  // namespace

void OfferMeld(Game& g, const std::string& prompt) {
    g.MeldAwaited = true;
    ShowDeclare(g);
    g.view.SetPanelText(2, prompt);
    PumpWhile(g, g.MeldAwaited);
}

void CmdDBezique_Click(Game& g) {
    RunDeclaration(g, [](Game& game) { MeldDoublePinochle(game, ThePlayer); });
}

void CmdBezique_Click(Game& g) {
    RunDeclaration(g, [](Game& game) { MeldPinochle(game, ThePlayer); });
}

void CmdSequence_Click(Game& g) {
    RunDeclaration(g, [](Game& game) { MeldRun(game, ThePlayer); });
}

void cmdDec7Trumps_Click(Game& g) {
    RunDeclaration(g, [](Game& game) { MeldDix(game, ThePlayer); });
}

void CmdFours_Click(Game& g, int index) {
    if (index < 0 || index >= static_cast<int>(kFourValues.size())) return;
    RunDeclaration(g, [index](Game& game) {
        game.MeldDone = false;
        MeldFours(game, ThePlayer, kFourValues.at(static_cast<std::size_t>(index)));
        if (!game.MeldDone) {
            ShowDeclare(game);
            return;
        }
        game.view.SetControlVisible(TableControl::FramDeclare, false);
        RedrawHand(game);
        game.MeldDone = false;
    });
}

void CmdMakeMarriage_Click(Game& g) {
    if (!PanelAnswers(g, TableControl::FramDeclare)) return;
    g.view.SetControlVisible(TableControl::FramDeclare, false);
    g.view.SetControlVisible(TableControl::FramMarriage, true);
    g.view.BringControlToFront(TableControl::FramMarriage);
}

void CmdMarriage_Click(Game& g, int index) {
    if (index < Diamonds || index > Spades) return;
    if (!PanelAnswers(g, TableControl::FramMarriage)) return;
    const MeldCommand running(g);
    MeldMarriage(g, ThePlayer, index);
    g.view.SetControlVisible(TableControl::FramMarriage, false);
    if (!g.MeldDone) {
        // Refused: back to the first panel, the offer still open.
        g.view.SetControlVisible(TableControl::FramDeclare, true);
        return;
    }
    RedrawHand(g);
    g.MeldDone = false;
}

void CmdCancel_Click(Game& g) {
    if (!PanelAnswers(g, TableControl::FramDeclare)) return;
    g.view.SetControlVisible(TableControl::FramDeclare, false);
    g.view.SetControlVisible(TableControl::FramMarriage, false);
    g.PlayerMayPlay = false;
    g.MeldAwaited = false;
}

}  // namespace trickhaven
