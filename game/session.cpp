#include "game/session.h"

#include "data/settings_commands.h"
#include "game/hand_setup.h"
#include "game/pacing.h"
#include "melds/meld_offer.h"
#include "round_one/card_click.h"
#include "round_one/game_end.h"
#include "table/hand_rows.h"

namespace trickhaven {

namespace {

void MnuReminder_Click(Game& g) {
    g.view.SetControlVisible(TableControl::FramMeldHelp, true);
    g.view.BringControlToFront(TableControl::FramMeldHelp);
}

void Command1_Click(Game& g) {
    g.view.SetControlVisible(TableControl::FramMeldHelp, false);
}

void DispatchEvent(Game& g, const TableEvent& event) {
    switch (event.kind) {
        case TableEventKind::CardClick:
            PicCard_Click(g, event.index);
            break;
        case TableEventKind::KnockClick:
            LblKnock_Click(g);
            break;
        case TableEventKind::SortClick:
            CmdSort_Click(g);
            break;
        case TableEventKind::DoublePinochleClick:
            CmdDBezique_Click(g);
            break;
        case TableEventKind::PinochleClick:
            CmdBezique_Click(g);
            break;
        case TableEventKind::RunClick:
            CmdSequence_Click(g);
            break;
        case TableEventKind::FoursClick:
            CmdFours_Click(g, event.index);
            break;
        case TableEventKind::DixClick:
            cmdDec7Trumps_Click(g);
            break;
        case TableEventKind::MakeMarriageClick:
            CmdMakeMarriage_Click(g);
            break;
        case TableEventKind::MarriageClick:
            CmdMarriage_Click(g, event.index);
            break;
        case TableEventKind::CancelClick:
            CmdCancel_Click(g);
            break;
        case TableEventKind::ReminderOkClick:
            Command1_Click(g);
            break;
        case TableEventKind::MenuNewGame:
            MnuNew_Click(g);
            break;
        case TableEventKind::MenuExit:
            MnuExit_Click(g);
            break;
        case TableEventKind::MenuYourName:
            MnuYours_Click(g);
            break;
        case TableEventKind::MenuOpponentName:
            MnuTheirName_Click(g);
            break;
        case TableEventKind::MenuViewStatistics:
            MnuuView_Click(g);
            break;
        case TableEventKind::MenuDeleteStatistics:
            MnuDelete_Click(g);
            break;
        case TableEventKind::MenuTarget1000:
            Menu1000_Click(g);
            break;
        case TableEventKind::MenuTarget750:
            MenuMedium_Click(g);
            break;
        case TableEventKind::MenuTarget500:
            MnuHalf_Click(g);
            break;
        case TableEventKind::MenuTarget300:
            MnuQuick_Click(g);
            break;
        case TableEventKind::MenuReminder:
            MnuReminder_Click(g);
            break;
        case TableEventKind::MenuFast:
            MnuFast_Click(g);
            break;
        case TableEventKind::MenuMedium:
            MnuMedium_Click(g);
            break;
        case TableEventKind::MenuSlow:
            MnuSlow_Click(g);
            break;
        case TableEventKind::MenuClassic:
            MnuClassic_Click(g);
            break;
        case TableEventKind::MenuExpert:
            MnuExpert_Click(g);
            break;
        case TableEventKind::CloseBox:
            Form_QueryUnload(g);
            break;
    }
}

}  // namespace

void Abandon(Game& g, SessionRequest request) {
    g.Request = request;
    throw GameAbandoned{};
}

void CheckAbandoned(const Game& g) {
    if (g.Request != SessionRequest::None) {
        throw GameAbandoned{};
    }
}

void HandleEvent(Game& g, const TableEvent& event) {
    // A request made inside this handler unwinds it here; the wait or pump
    // that served the event sees the request and goes on unwinding.
    try {
        DispatchEvent(g, event);
    } catch (const GameAbandoned&) {
    }
}

void PlayHands(Game& g) {
    for (;;) {
        SetUpHand(g);
    }
}

void RunSession(Game& g) {
    Form_Load(g);
    for (;;) {
        switch (g.Request) {
            case SessionRequest::Quit:
                return;
            case SessionRequest::NewGame:
                g.Request = SessionRequest::None;
                try {
                    PlayHands(g);
                } catch (const GameAbandoned&) {
                }
                break;
            case SessionRequest::None:
                g.platform.ServeEvents(std::nullopt);
                break;
        }
    }
}

}  // namespace trickhaven
