#include "table/score_panel.h"

namespace trickhaven {

namespace {

// The counters and labels of one side's panel.
struct SidePanel {
    std::int16_t& lastMeld;
    std::int16_t& totalMelds;
    std::int16_t& total;
    std::int16_t& lastTrick;
    std::int16_t& totalTricks;
    TableLabel lastMeldLabel;
    TableLabel totalMeldsLabel;
    TableLabel totalLabel;
    TableLabel lastTrickLabel;
    TableLabel totalTricksLabel;
};

SidePanel PanelOf(Game& g, int who) {
    if (who == ThePlayer) {
        return {g.PlayerLastMeld,           g.PlayerTotalMelds,         g.PlayerTotal,
                g.PlayerLastTrick,          g.PlayerTotalTricks,        TableLabel::LblLastMeldP,
                TableLabel::LblTotalMeldsP, TableLabel::LblTotalScoreP, TableLabel::LblLastTrickP,
                TableLabel::LblTotTricksP};
    }
    return {g.OpponentLastMeld,       g.OpponentTotalMelds,     g.OpponentTotal,
            g.OpponentLastTrick,      g.OpponentTotalTricks,    TableLabel::LbllLastMeldC,
            TableLabel::LblTotMeldsC, TableLabel::LblTotScoreC, TableLabel::LblLastTrickC,
            TableLabel::LblTotTricskC};
}

bool IsSide(int who) {
    return who == ThePlayer || who == TheRobot;
}

}  // namespace

void ShowMeldScore(Game& g, int who) {
    if (!IsSide(who)) return;
    SidePanel side = PanelOf(g, who);
    g.view.SetCaption(side.lastMeldLabel, std::to_string(side.lastMeld));
    side.totalMelds = static_cast<std::int16_t>(side.totalMelds + side.lastMeld);
    g.view.SetCaption(side.totalMeldsLabel, std::to_string(side.totalMelds));
    side.total = static_cast<std::int16_t>(side.total + side.lastMeld);
    g.view.SetCaption(side.totalLabel, std::to_string(side.total));
    side.lastMeld = 0;
}

void ShowTrickScore(Game& g, int who) {
    if (!IsSide(who)) return;
    SidePanel side = PanelOf(g, who);
    g.view.SetCaption(side.lastTrickLabel, std::to_string(side.lastTrick));
    side.totalTricks = static_cast<std::int16_t>(side.totalTricks + side.lastTrick);
    g.view.SetCaption(side.totalTricksLabel, std::to_string(side.totalTricks));
    side.lastTrick = 0;
}

void AnnounceTrumps(Game& g) {
    g.view.SetPanelText(1, SuitWord(g.TrumpSuit) + " are Trumps");
    g.view.SetPanelPicture(FirstSuitIconImage + g.TrumpSuit - 1);
    g.view.SetPanelText(2, "The UpCard is " + Card(g, g.UpCard).Name);
}

}  // namespace trickhaven
