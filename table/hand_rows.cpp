#include "table/hand_rows.h"

#include <array>

namespace trickhaven {

namespace {

constexpr int kRowFirstLeft = 2500;
constexpr int kPlayerRowTop = 10080;

bool InPlayerRow(const CardRec& card) {
    return card.Place == PlacePlayerHand && !card.Melded;
}

void LayPlayerCard(Game& g, int card, int& left, int step) {
    g.view.MoveCard(card, left, kPlayerRowTop);
    g.view.SetCardImage(card, card);
    g.view.BringCardToFront(card);
    left += step;
}

}  // namespace

void SortByRank(Game& g) {
    // The order Same puts the Ten between the Nine and the Jack, where its
    // number would stand.
    int left = kRowFirstLeft;
    for (const int value : {Nine, Ten, Jack, Queen, King, Ace}) {
        for (int card = 1; card <= CardCount; ++card) {
            if (InPlayerRow(Card(g, card)) && Card(g, card).Value == value) {
                LayPlayerCard(g, card, left, 500);
            }
        }
    }
    g.DelayMs = g.GameSpeed;
}

void SortBySuit(Game& g) {
    int left = kRowFirstLeft;
    for (int suit = Diamonds; suit <= Spades; ++suit) {
        for (int value = Nine; value <= Ace; ++value) {
            for (int card = 1; card <= CardCount; ++card) {
                const CardRec& rec = Card(g, card);
                if (InPlayerRow(rec) && rec.Suit == suit && rec.Value == value) {
                    LayPlayerCard(g, card, left, 500);
                }
            }
        }
    }
}

void RedrawHand(Game& g) {
    if (g.view.Caption(TableLabel::CmdSort) == "Sort Suits") {
        SortByRank(g);
    } else {
        SortBySuit(g);
    }
}

void ShowPlayerHand(Game& g) {
    int left = kRowFirstLeft;
    for (int card = 1; card <= CardCount; ++card) {
        if (InPlayerRow(Card(g, card))) {
            LayPlayerCard(g, card, left, 450);
        }
    }
}

void ShowOpponentHand(Game& g) {
    int left = 2880;
    for (int card = 1; card <= CardCount; ++card) {
        const CardRec& rec = Card(g, card);
        if (rec.Place == PlaceOpponentHand && !rec.Melded) {
            g.view.SetCardImage(card, CardBackImage);
            g.view.MoveCard(card, left, 120);
            g.view.BringCardToFront(card);
            left += 250;
        }
    }
    g.DelayMs = g.GameSpeed;
}

void CmdSort_Click(Game& g) {
    const std::string caption = g.view.Caption(TableLabel::CmdSort);
    if (caption == "Sort Suits") {
        SortBySuit(g);
        g.view.SetCaption(TableLabel::CmdSort, "Sort Same");
    } else if (caption == "Sort Same") {
        SortByRank(g);
        g.view.SetCaption(TableLabel::CmdSort, "Sort Suits");
    }
}

}  // namespace trickhaven
