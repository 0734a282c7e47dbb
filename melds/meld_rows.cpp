#include "melds/meld_rows.h"

#include <array>
#include <initializer_list>

#include "game/pacing.h"

namespace trickhaven {

namespace {

// Left of the five places of the staging row, slot 1 to 5.
constexpr std::array<int, 6> kStagingLeft{0, 3600, 4680, 5760, 6840, 7920};
constexpr int kPlayerStagingTop = 8640;
constexpr int kRobotStagingTop = 1680;

// One of a side's three meld lines: the run and the pinochles share the top
// line, the fours lie below it and the marriages lowest.
struct MeldRow {
    int startLeft;
    int step;
    int playerTop;
    int robotTop;
};

constexpr MeldRow kRunRow{2000, 330, 6405, 2250};
constexpr MeldRow kFoursRow{2000, 330, 7590, 3450};
constexpr MeldRow kPinochleRow{5610, 350, 6405, 2250};
constexpr MeldRow kDoublePinochleRow{5610, 330, 6405, 2250};
constexpr MeldRow kMarriageRow{2000, 350, 8600, 4650};

int RowTop(const MeldRow& row, int who) {
    return who == ThePlayer ? row.playerTop : row.robotTop;
}

bool HeldBy(const CardRec& card, int who) {
    return card.Place == HandPlace(who);
}

// Lays the next card of a row face up on top of the one before it.
void LayRowCard(Game& g, int card, int& left, int top, int step) {
    g.view.SetCardImage(card, card);
    g.view.MoveCard(card, left, top);
    g.view.BringCardToFront(card);
    left += step;
}

// The pause that lets the player see a finished row.
void RestOnRow(Game& g) {
    g.DelayMs = static_cast<std::int16_t>(g.GameSpeed + 200);
    WaitDelay(g);
    g.DelayMs = g.GameSpeed;
}

// A row of one flag in index order: the pinochles and the marriages.
void ShowFlaggedRow(Game& g, int who, const MeldRow& row, bool CardRec::*flag, bool waitEachCard) {
    int left = row.startLeft;
    for (int card = 1; card <= CardCount; ++card) {
        const CardRec& rec = Card(g, card);
        if (HeldBy(rec, who) && rec.*flag) {
            LayRowCard(g, card, left, RowTop(row, who), row.step);
            if (waitEachCard) WaitDelay(g);
        }
    }
    RestOnRow(g);
}

}  // namespace

void MoveToMeldRow(Game& g, int who, int slot, int card) {
    g.DelayMs = static_cast<std::int16_t>(g.GameSpeed + 250);
    const int left = kStagingLeft.at(static_cast<std::size_t>(slot));
    if (who == ThePlayer) {
        g.view.MoveCard(card, left, kPlayerStagingTop);
        g.view.BringCardToFront(card);
    } else {
        // The robot's card turns face up here, on its way to the row.
        g.view.MoveCard(card, left, kRobotStagingTop);
        g.view.SetCardImage(card, card);
        g.view.BringCardToFront(card);
    }
    WaitDealSound(g);
    WaitDelay(g);
    g.DelayMs = g.GameSpeed;
}

void ShowRunCards(Game& g, int who) {
    int left = kRunRow.startLeft;
    for (const int value : {Ace, Ten, King, Queen, Jack}) {
        for (int card = 1; card <= CardCount; ++card) {
            const CardRec& rec = Card(g, card);
            if (HeldBy(rec, who) && rec.InRun && rec.Value == value) {
                LayRowCard(g, card, left, RowTop(kRunRow, who), kRunRow.step);
                WaitDelay(g);
            }
        }
    }
    RestOnRow(g);
}

void ShowFoursCards(Game& g, int who) {
    g.DelayMs = g.GameSpeed;
    // All fours of a side share one row, Kings first, whatever order they
    // were melded in.
    constexpr std::array<bool CardRec::*, 4> kFourFlags{
        &CardRec::InFourKings, &CardRec::InFourAces, &CardRec::InFourQueens, &CardRec::InFourJacks};
    const int top = RowTop(kFoursRow, who);
    int left = kFoursRow.startLeft;
    for (bool CardRec::*flag : kFourFlags) {
        for (int card = 1; card <= CardCount; ++card) {
            const CardRec& rec = Card(g, card);
            if (HeldBy(rec, who) && rec.*flag) {
                g.view.MoveCard(card, left, top);
                g.view.SetCardImage(card, card);
                g.view.BringCardToFront(card);
                left += kFoursRow.step;
            }
        }
    }
    RestOnRow(g);
}

void ShowPinochleCards(Game& g, int who) {
    ShowFlaggedRow(g, who, kPinochleRow, &CardRec::InPinochle, false);
}

void ShowDoublePinochleCards(Game& g, int who) {
    ShowFlaggedRow(g, who, kDoublePinochleRow, &CardRec::InDoublePinochle, false);
}

void ShowMarriageCards(Game& g, int who) {
    ShowFlaggedRow(g, who, kMarriageRow, &CardRec::InMarriage, true);
}

}  // namespace trickhaven
