#include "robot/expert_seat.h"

namespace trickhaven {

namespace {

using expert::CardBit;
using expert::CardSet;

CardSet CardsWhere(const Game& g, bool (*test)(const CardRec&, int), int place) {
    CardSet set = expert::kNoCards;
    for (int card = 1; card <= CardCount; ++card) {
        if (test(Card(g, card), place)) set |= CardBit(card);
    }
    return set;
}

bool InPlace(const CardRec& c, int place) {
    return c.Place == place;
}
// A meld row: cards of the hand lying face up.
bool InMeldRow(const CardRec& c, int place) {
    return c.Place == place && c.Melded;
}

// The marks of the cards the seat can see: its own and those face up.
expert::MeldMarks VisibleMarks(const Game& g, CardSet visible) {
    expert::MeldMarks marks;
    for (CardSet rest = visible; rest != expert::kNoCards;) {
        const int card = expert::PopCard(rest);
        const CardRec& c = Card(g, card);
        const CardSet bit = CardBit(card);
        if (c.InRun || c.RunDone) marks.run |= bit;
        if (c.InMarriage || c.MarriageDone) marks.marriage |= bit;
        if (c.FoursDone) marks.fours |= bit;
        if (c.InPinochle) marks.pinochle |= bit;
        if (c.InDoublePinochle || c.DoublePinochleDone) marks.doublePinochle |= bit;
        if ((c.Melded && c.Value == Nine) || c.DixDone) marks.dixBlocked |= bit;
    }
    return marks;
}

}  // namespace

expert::SeatView SeatViewOf(const Game& g, int who, expert::Stage stage) {
    const int other = who == ThePlayer ? TheRobot : ThePlayer;
    expert::SeatView v;
    v.side = who - 1;
    v.ownHand = CardsWhere(g, InPlace, HandPlace(who));
    v.played = g.Shown.played;
    v.upCard = g.UpCard;
    v.upTaken = Card(g, g.UpCard).Place != PlaceUpCard;
    // The other hand's cards lie face down, but their number shows.
    v.otherCount = expert::CardsIn(CardsWhere(g, InPlace, HandPlace(other)));
    const CardSet rows =
        CardsWhere(g, InMeldRow, HandPlace(who)) | CardsWhere(g, InMeldRow, HandPlace(other));
    v.otherKnown = v.upTaken ? expert::kAllCards & ~v.ownHand & ~v.played
                             : (CardsWhere(g, InMeldRow, HandPlace(other)) |
                                g.Shown.intoHand.at(static_cast<std::size_t>(other))) &
                                   ~v.played;
    v.marks = VisibleMarks(g, v.ownHand | rows | (v.upTaken ? 0 : CardBit(g.UpCard)));
    v.pinochleMade = {g.PlayerPinochleMade, g.OpponentPinochleMade};
    v.doubleMade = {g.PlayerDoublePinochleMade, g.OpponentDoublePinochleMade};
    v.trump = g.TrumpSuit;
    v.lastStockCard = v.upTaken ? 0 : g.LastStockCard;
    v.stockLeft = v.upTaken || g.LastStockCard != 0 ? 0 : g.StockLeft - 1;
    v.stage = stage;
    v.tricksDone = stage == expert::Stage::Card ? g.TrickCount - 1 : g.TrickCount;
    v.leader = g.Leader - 1;
    v.led = stage == expert::Stage::Card && g.Leader != who ? g.LeadCard : 0;
    v.melds = {g.PlayerTotalMelds, g.OpponentTotalMelds};
    v.tricks = {g.PlayerTotalTricks, g.OpponentTotalTricks};
    v.totals = {g.PlayerTotal, g.OpponentTotal};
    v.target = g.TargetScore;
    return v;
}

}  // namespace trickhaven
