#include "expert/hand_state.h"

namespace trickhaven::expert {

namespace {

constexpr int kAceRank = 0;
constexpr int kTenRank = 1;
constexpr int kKingRank = 2;
constexpr int kQueenRank = 3;
constexpr int kJackRank = 4;
constexpr int kNineRank = 5;

// The pinochle cards: the Jacks of Diamonds and the Queens of Spades.
constexpr int kFirstJack = 9;
constexpr int kSecondJack = 10;
constexpr int kFirstQueen = 43;
constexpr int kSecondQueen = 44;
constexpr CardSet kPinochleCards =
    CardBit(kFirstJack) | CardBit(kSecondJack) | CardBit(kFirstQueen) | CardBit(kSecondQueen);

constexpr int LastCard(CardSet set) {
    return 64 - std::countl_zero(set);
}

int RankOfValue(int value) {
    return Ace - value;
}

struct RunCards {
    std::array<int, 5> cards{};
    bool complete = false;
};

// Of two like cards the run takes the later.
RunCards FindRun(const HandState& s, int side) {
    RunCards run;
    run.complete = true;
    for (int rank = kAceRank; rank <= kJackRank; ++rank) {
        const CardSet free = RankCards(s.trump, rank) & s.hands[side] & ~s.marks.run;
        if (free == kNoCards) {
            run.complete = false;
            return run;
        }
        run.cards[static_cast<std::size_t>(rank)] = LastCard(free);
    }
    return run;
}

// A four takes the first free card of the value in each suit.
CardSet FindFour(const HandState& s, int side, int value) {
    CardSet four = kNoCards;
    for (int suit = Diamonds; suit <= Spades; ++suit) {
        const CardSet free = RankCards(suit, RankOfValue(value)) & s.hands[side] & ~s.marks.fours;
        if (free == kNoCards) return kNoCards;
        four |= CardBit(FirstCard(free));
    }
    return four;
}

// The first pair, in the order (9, 43), (9, 44), (10, 43), (10, 44), held
// whole; none when its jack has served in a pinochle.
CardSet FindPinochle(const HandState& s, int side) {
    if (s.pinochleMade[side] || s.doubleMade[side]) return kNoCards;
    for (const int jack : {kFirstJack, kSecondJack}) {
        for (const int queen : {kFirstQueen, kSecondQueen}) {
            const CardSet pair = CardBit(jack) | CardBit(queen);
            if ((s.hands[side] & pair) != pair) continue;
            return Holds(s.marks.pinochle, jack) ? kNoCards : pair;
        }
    }
    return kNoCards;
}

bool DoublePinochleOpen(const HandState& s, int side) {
    return !s.doubleMade[side] && (s.hands[side] & kPinochleCards) == kPinochleCards &&
           (s.marks.doublePinochle & kPinochleCards) == kNoCards;
}

CardSet FindMarriage(const HandState& s, int side, int suit) {
    const CardSet free = s.hands[side] & ~s.marks.marriage;
    const CardSet kings = free & RankCards(suit, kKingRank);
    const CardSet queens = free & RankCards(suit, kQueenRank);
    if (kings == kNoCards || queens == kNoCards) return kNoCards;
    return CardBit(FirstCard(kings)) | CardBit(FirstCard(queens));
}

int FindDixNine(const HandState& s, int side) {
    const CardSet nines = s.hands[side] & RankCards(s.trump, kNineRank) & ~s.marks.dixBlocked;
    return nines == kNoCards ? 0 : FirstCard(nines);
}

int FourPoints(int value) {
    switch (value) {
        case Ace:
            return 100;
        case King:
            return 80;
        case Queen:
            return 60;
        default:
            return 40;
    }
}

void PostMeld(HandState& s, int side, int points) {
    s.melds[side] += points;
    s.totals[side] += points;
}

void DrawFromStock(HandState& s, int side) {
    s.hands[side] |= CardBit(s.stock[static_cast<std::size_t>(--s.stockCount)]);
}

// The tests after a trick of Round One: a side at the target with the other
// below it wins (the robot knocks; the player is taken to knock). Else the
// game goes on to the next draw, or to the last pair after trick 12.
void TestTarget(HandState& s) {
    const int player = s.totals[kPlayerSide];
    const int robot = s.totals[kRobotSide];
    if (player >= s.target && robot < s.target) {
        s.gameWinner = kPlayerSide;
    } else if (robot >= s.target && player < s.target) {
        s.gameWinner = kRobotSide;
    }
    s.stage = s.gameWinner >= 0 ? Stage::Over : s.tricksDone == 12 ? Stage::LastPair : Stage::Card;
}

// Trick points join the totals; both over the target raise it by 250
// before the tests.
void EndHand(HandState& s) {
    for (const int side : {kPlayerSide, kRobotSide}) s.totals[side] += s.tricks[side];
    const int player = s.totals[kPlayerSide];
    const int robot = s.totals[kRobotSide];
    if (player >= s.target && robot >= s.target) s.target += 250;
    if (robot >= s.target && player < s.target) {
        s.gameWinner = kRobotSide;
    } else if (player >= s.target && robot < s.target) {
        s.gameWinner = kPlayerSide;
    }
}

}  // namespace

Meld MeldChoice(int index) {
    static constexpr std::array<Meld, kMeldChoices> kChoices{{
        {MeldKind::Dix, 0},
        {MeldKind::DoublePinochle, 0},
        {MeldKind::Pinochle, 0},
        {MeldKind::Marriage, Diamonds},
        {MeldKind::Marriage, Clubs},
        {MeldKind::Marriage, Hearts},
        {MeldKind::Marriage, Spades},
        {MeldKind::Fours, Ace},
        {MeldKind::Fours, King},
        {MeldKind::Fours, Queen},
        {MeldKind::Fours, Jack},
        {MeldKind::Run, 0},
    }};
    return kChoices.at(static_cast<std::size_t>(index));
}

int MeldPoints(const HandState& s, int side, Meld meld) {
    switch (meld.kind) {
        case MeldKind::None:
            return 0;
        case MeldKind::Dix:
            return FindDixNine(s, side) != 0 ? 10 : 0;
        case MeldKind::DoublePinochle:
            return DoublePinochleOpen(s, side) ? (s.pinochleMade[side] ? 460 : 500) : 0;
        case MeldKind::Pinochle:
            return FindPinochle(s, side) != kNoCards ? 40 : 0;
        case MeldKind::Marriage:
            return FindMarriage(s, side, meld.arg) == kNoCards ? 0 : meld.arg == s.trump ? 40 : 20;
        case MeldKind::Fours:
            return FindFour(s, side, meld.arg) != kNoCards ? FourPoints(meld.arg) : 0;
        case MeldKind::Run: {
            const RunCards run = FindRun(s, side);
            if (!run.complete) return 0;
            const bool royal = Holds(s.marks.marriage, run.cards[kKingRank]) ||
                               Holds(s.marks.marriage, run.cards[kQueenRank]);
            return royal ? 110 : 150;
        }
    }
    return 0;
}

void LayMeld(HandState& s, int side, Meld meld) {
    const int points = MeldPoints(s, side, meld);
    switch (meld.kind) {
        case MeldKind::None:
            return;
        case MeldKind::Dix: {
            const int nine = FindDixNine(s, side);
            if (s.upTaken || RankIndexOf(s.upCard) == kNineRank) {
                s.marks.dixBlocked |= CardBit(nine);
            } else {
                // The nine takes the up card's place; the old up card joins
                // the hand.
                s.hands[side] = (s.hands[side] & ~CardBit(nine)) | CardBit(s.upCard);
                s.upCard = nine;
            }
            break;
        }
        case MeldKind::DoublePinochle:
            s.marks.doublePinochle |= kPinochleCards;
            s.doubleMade[side] = true;
            break;
        case MeldKind::Pinochle:
            s.marks.pinochle |= FindPinochle(s, side);
            s.pinochleMade[side] = true;
            break;
        case MeldKind::Marriage:
            s.marks.marriage |= FindMarriage(s, side, meld.arg);
            break;
        case MeldKind::Fours:
            s.marks.fours |= FindFour(s, side, meld.arg);
            break;
        case MeldKind::Run:
            for (const int card : FindRun(s, side).cards) s.marks.run |= CardBit(card);
            break;
    }
    PostMeld(s, side, points);
}

CardSet PlayableCards(const HandState& s, int side) {
    const CardSet hand = s.hands[side];
    return InRoundTwo(s) ? RoundTwoLegalCards(hand, s.led, s.trump) : hand;
}

int SideToAct(const HandState& s) {
    return s.stage == Stage::Card && s.led != 0 ? OtherSide(s.leader) : s.leader;
}

void PlayCard(HandState& s, int card) {
    const int side = SideToAct(s);
    s.hands[side] &= ~CardBit(card);
    if (s.led == 0) {
        s.led = card;
        return;
    }
    const int winner = FollowerTakesTrick(s.led, card, s.trump) ? side : OtherSide(side);
    s.tricks[winner] += CardPointsOf(s.led) + CardPointsOf(card);
    s.led = 0;
    ++s.tricksDone;
    if (s.tricksDone == 12) s.tricks[winner] += 10;
    s.leader = winner;
    if (s.tricksDone == 24) {
        EndHand(s);
        s.stage = Stage::Over;
    } else if (s.tricksDone < 12 || (s.tricksDone == 12 && winner == kPlayerSide)) {
        s.stage = Stage::Meld;
    } else if (s.tricksDone == 12) {
        // The robot's meld of trick 12 waits for its last card.
        TestTarget(s);
    }
}

void MakeMeld(HandState& s, Meld meld) {
    if (meld.kind != MeldKind::None) LayMeld(s, s.leader, meld);
    if (s.stage == Stage::LastMeld) {
        s.stage = Stage::Card;
        return;
    }
    TestTarget(s);
    if (s.stage == Stage::Over || s.tricksDone == 12) return;
    DrawFromStock(s, s.leader);
    DrawFromStock(s, OtherSide(s.leader));
    s.stage = Stage::Card;
}

int LastStockCard(const HandState& s) {
    return s.stock[0];
}

void ShareLastPair(HandState& s, bool winnerTakesStockCard) {
    const int winner = s.leader;
    const CardSet stockCard = CardBit(LastStockCard(s));
    const CardSet up = CardBit(s.upCard);
    s.hands[winner] |= winnerTakesStockCard ? stockCard : up;
    s.hands[OtherSide(winner)] |= winnerTakesStockCard ? up : stockCard;
    s.stockCount = 0;
    s.upTaken = true;
    s.stage = Stage::LastMeld;
}

bool InRoundTwo(const HandState& s) {
    return s.tricksDone >= 12 && s.upTaken;
}

}  // namespace trickhaven::expert
