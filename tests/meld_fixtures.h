// The table of the meld tests: Round One under way, with a trump suit and an
// up card, and the cards that melds are made of.
#pragma once

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "headless/headless_game.h"
#include "melds/meld_rules.h"
#include "tests/table_fixtures.h"

namespace trickhaven {

// The other copy of a card.
constexpr int Second(int card) {
    return card + 1;
}

inline constexpr int AH = CardIndex(Ace, Hearts), TH = CardIndex(Ten, Hearts);
inline constexpr int KH = CardIndex(King, Hearts), QH = CardIndex(Queen, Hearts);
inline constexpr int JH = CardIndex(Jack, Hearts), NH = CardIndex(Nine, Hearts);
inline constexpr int KC = CardIndex(King, Clubs), QC = CardIndex(Queen, Clubs);
inline constexpr int NC = CardIndex(Nine, Clubs);
inline constexpr int AD = CardIndex(Ace, Diamonds), KD = CardIndex(King, Diamonds);
inline constexpr int QD = CardIndex(Queen, Diamonds);
inline constexpr int AS = CardIndex(Ace, Spades), TS = CardIndex(Ten, Spades);
inline constexpr int KS = CardIndex(King, Spades), JS = CardIndex(Jack, Spades);
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
    for (const int value : values) {
        for (int suit = Diamonds; suit <= Spades; ++suit) cards.push_back(CardIndex(value, suit));
    }
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

// What the player sees of some cards, told at each wait: the cards moved
// ("25@3600,8640") or turned ("25#25") since the last wait, the one come to
// the front of them ("^25"), a sound ("*"), then the wait's length ("+350").
// At the end, the cards from back to front.
class Watch {
public:
    Watch(HeadlessGame& hg, std::vector<int> cards) : hg_(hg), cards_(std::move(cards)) {
        for (const int card : cards_) seen_[card] = hg_.table.Picture(card);
        last_ = hg_.platform.TickCount();
        sounds_ = hg_.platform.sounds.size();
        front_ = Front();
        hg_.platform.stopWhen = [this](const Game&) { return Look(), false; };
    }
    std::string End() {
        Look();
        std::sort(cards_.begin(), cards_.end(), [this](int a, int b) { return Z(a) < Z(b); });
        text_ += " z";
        for (const int card : cards_) text_ += ' ' + std::to_string(card);
        return text_;
    }

private:
    long Z(int card) const { return hg_.table.Picture(card).z; }
    int Front() const {
        return *std::max_element(cards_.begin(), cards_.end(),
                                 [this](int a, int b) { return Z(a) < Z(b); });
    }
    void Look() {
        const int now = hg_.platform.TickCount();
        if (now != last_) text_ += '+' + std::to_string(now - last_);
        last_ = now;
        for (const int card : cards_) {
            const CardPicture& is = hg_.table.Picture(card);
            CardPicture& was = seen_[card];
            const std::string name = ' ' + std::to_string(card);
            if (is.left != was.left || is.top != was.top) {
                text_ += name + '@' + std::to_string(is.left) + ',' + std::to_string(is.top);
            }
            if (is.image != was.image) text_ += name + '#' + std::to_string(is.image);
            was = is;
        }
        const int front = Front();
        if (front != front_) text_ += " ^" + std::to_string(front);
        front_ = front;
        for (; sounds_ < hg_.platform.sounds.size(); ++sounds_) text_ += '*';
    }
    HeadlessGame& hg_;
    std::vector<int> cards_;
    std::map<int, CardPicture> seen_;
    std::string text_;
    int last_ = 0, front_ = 0;
    std::size_t sounds_ = 0;
};

}  // namespace trickhaven
