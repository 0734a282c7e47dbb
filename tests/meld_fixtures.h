// The table of the meld tests: Round One under way, with a trump suit and an
// up card, and the cards that melds are made of.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "headless/headless_game.h"
#include "melds/meld_rules.h"
#include "tests/table_fixtures.h"

namespace trickhaven {

// The other copy of a card.
inline constexpr auto Second = [](int card) { return card + 1; };

// Cards by their index in the table: suits Diamonds, Clubs, Hearts, Spades
// of twelve cards each, Aces first, each card followed by its other copy.
inline constexpr int AH = 25, TH = 27, KH = 29, QH = 31, JH = 33, NH = 35;
inline constexpr int KC = 17, QC = 19, NC = 23, AD = 1, KD = 5, QD = 7;
inline constexpr int AS = 37, TS = 39, KS = 41, JS = 45;
// The pinochle cards: the Jacks of Diamonds and the Queens of Spades.
inline constexpr int JD1 = 9, JD2 = 10, QS1 = 43, QS2 = 44;

inline const std::vector<int> kHeartRun{AH, TH, KH, QH, JH};
inline const std::vector<int> kPinochleCards{JD1, JD2, QS1, QS2};

// Each card followed by its other copy.
inline std::vector<int> BothCopies(const std::vector<int>& cards) {
    std::vector<int> both;
    for (const int card : cards) both.insert(both.end(), {card, Second(card)});
    return both;
}

// One card of each suit, Diamonds to Spades, of each value in turn.
inline std::vector<int> FirstOfEachSuit(std::initializer_list<int> values) {
    std::vector<int> cards;
    for (const int value : values)
        for (int suit = Diamonds; suit <= Spades; ++suit) cards.push_back(CardIndex(value, suit));
    return cards;
}

// A game in Round One at the given trick; the up card is the second nine of
// trumps unless one is named.
struct RoundOneTable {
    explicit RoundOneTable(int trumps = Hearts, int upCard = 0, int trick = 4) : g(hg.game) {
        ClearTable(g);
        g.GameOn = true;
        g.RoundOneOn = true;
        g.PlayerName = "Ada";
        g.OpponentName = "Lorinda";
        g.GameSpeed = 100;
        g.DelayMs = 100;
        g.TrickCount = trick;
        g.TrumpSuit = trumps;
        g.UpCard = upCard != 0 ? upCard : Second(CardIndex(Nine, trumps));
        Card(g, g.UpCard).Place = PlaceUpCard;
    }
    void Give(int who, const std::vector<int>& cards) {
        for (const int card : cards) Card(g, card).Place = HandPlace(who);
    }
    HeadlessGame hg;
    Game& g;
};

// A meld routine for either side.
using Meld = std::function<void(Game&, int)>;
inline const Meld kRun = MeldRun, kDouble = MeldDoublePinochle, kPinochle = MeldPinochle,
                  kDix = MeldDix;
inline Meld Fours(int value) {
    return [value](Game& g, int who) { MeldFours(g, who, value); };
}
inline Meld Marriage(int suit) {
    return [suit](Game& g, int who) { MeldMarriage(g, who, suit); };
}

// What the player sees of some cards, told at each wait: each card moved
// ("25@3600,8640"), turned ("25#25") or come to the front of the others
// ("25^") since the last wait, a sound ("*"), then the wait's length
// ("+350").
struct Watch {
    Watch(HeadlessGame& game, std::vector<int> watched) : hg(game), cards(std::move(watched)) {
        Look();
        text.clear();
        hg.platform.stopWhen = [this](const Game&) { return Look(), false; };
    }
    std::string End() { return Look(), text; }
    long Z(int card) const { return hg.table.Picture(card).z; }
    void Look() {
        const int now = hg.platform.TickCount();
        if (now != last) text += '+' + std::to_string(now - last);
        last = now;
        const int top = *std::max_element(cards.begin(), cards.end(),
                                          [this](int a, int b) { return Z(a) < Z(b); });
        for (const int card : cards) {
            const CardPicture& is = hg.table.Picture(card);
            const std::string at = '@' + std::to_string(is.left) + ',' + std::to_string(is.top);
            const std::string face = '#' + std::to_string(is.image);
            auto& [wasAt, wasFace] = seen[card];
            const std::string seenNow = (at != wasAt ? at : "") + (face != wasFace ? face : "") +
                                        (card == top && top != front ? "^" : "");
            if (!seenNow.empty()) text += ' ' + std::to_string(card) + seenNow;
            std::tie(wasAt, wasFace) = std::tie(at, face);
        }
        front = top;
        for (; sounds < hg.platform.sounds.size(); ++sounds) text += '*';
    }
    HeadlessGame& hg;
    std::vector<int> cards;
    std::map<int, std::pair<std::string, std::string>> seen;
    std::string text;
    int last = 0, front = 0;
    std::size_t sounds = 0;
};

}  // namespace trickhaven
