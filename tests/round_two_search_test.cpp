// The Expert's exact search of Round Two: its rules are the game's, and its
// values are those of a plain search of every line of play.
#include "expert/round_two_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <tuple>

#include "round_one/card_click.h"
#include "round_one/trick_cycle.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

using expert::CardSet;

// Up to `most` cards for each side from the first `suits` suits, some of
// them both copies of a card, some one copy in each hand.
expert::RoundTwoPosition RandomEnding(std::mt19937& random, int most, int suits) {
    std::vector<int> pack(12 * suits);
    for (int i = 0; i < 12 * suits; ++i) pack[i] = i + 1;
    std::shuffle(pack.begin(), pack.end(), random);
    const int size = static_cast<int>(random() % most) + 1;
    expert::RoundTwoPosition position;
    position.trumpSuit = static_cast<int>(random() % 4) + Diamonds;
    position.toMove = static_cast<int>(random() % 2);
    const bool following = random() % 2 == 1;
    for (int i = 0; i < 2 * size; ++i) position.hands[i % 2] |= expert::CardBit(pack[i]);
    if (following) {
        position.ledCard = expert::FirstCard(position.hands[1 - position.toMove]);
        position.hands[1 - position.toMove] &= ~expert::CardBit(position.ledCard);
    }
    return position;
}

int EveryLine(CardSet own, CardSet other, int ledCard, int trumpSuit);

// What the side to move takes when it plays this card and every line after
// it is tried.
int AfterCard(CardSet own, CardSet other, int ledCard, int card, int trumpSuit) {
    const CardSet rest = own & ~expert::CardBit(card);
    if (ledCard == 0)
        return expert::PointsIn(own | other) - EveryLine(other, rest, card, trumpSuit);
    const int trick = expert::CardPointsOf(ledCard) + expert::CardPointsOf(card);
    return expert::FollowerTakesTrick(ledCard, card, trumpSuit)
               ? trick + EveryLine(rest, other, 0, trumpSuit)
               : expert::PointsIn(rest | other) - EveryLine(other, rest, 0, trumpSuit);
}

// Every line of play, no pruning and no table: the points the side to move
// takes, the card led counted.
int EveryLine(CardSet own, CardSet other, int ledCard, int trumpSuit) {
    if (own == 0) return 0;
    int best = -1;
    for (CardSet cards = expert::RoundTwoLegalCards(own, ledCard, trumpSuit); cards != 0;) {
        best = std::max(best, AfterCard(own, other, ledCard, expert::PopCard(cards), trumpSuit));
    }
    return best;
}

// One search object answers thousands of endings in turn, its table kept
// between them: roomy, or so small that positions push each other out.
TEST(RoundTwoSearch, ValuesAndBestCardsEqualThoseOfEveryLineOfPlay) {
    for (const auto& [what, tableBits, most, suits] :
         {std::tuple{"roomy table, four suits", 16, 5, 4},
          {"roomy table, two suits crowded with twins", 16, 5, 2},
          {"sixteen places in the table", 4, 4, 3}}) {
        SCOPED_TRACE(what);
        std::mt19937 random(tableBits * 10 + suits);
        expert::RoundTwoSearch search(tableBits);
        for (int deal = 0; deal < 600; ++deal) {
            const expert::RoundTwoPosition p = RandomEnding(random, most, suits);
            const CardSet own = p.hands[p.toMove], other = p.hands[1 - p.toMove];
            const int value = EveryLine(own, other, p.ledCard, p.trumpSuit);
            ASSERT_EQ(search.Value(p), value) << deal;
            const expert::CardValues values = search.ValuesOfCards(p);
            ASSERT_EQ(values.cards, expert::RoundTwoLegalCards(own, p.ledCard, p.trumpSuit));
            for (CardSet cards = values.cards; cards != 0;) {
                const int card = expert::PopCard(cards);
                ASSERT_EQ(values.points[card], AfterCard(own, other, p.ledCard, card, p.trumpSuit))
                    << deal << " " << card;
            }
            const int best = search.BestCard(p);
            ASSERT_TRUE(expert::Holds(values.cards, best)) << deal;
            ASSERT_EQ(values.points[best], value) << deal;
        }
    }
}

// Random hands on the game's own table: the player's click, the trick's
// winner and its points as the game has them.
TEST(RoundTwoSearch, LegalCardsTrickWinnerAndPointsAreTheGames) {
    std::mt19937 random(5);
    RoundOneTable t;
    for (int deal = 0; deal < 400; ++deal) {
        std::vector<int> pack(CardCount);
        for (int i = 0; i < CardCount; ++i) pack[i] = i + 1;
        std::shuffle(pack.begin(), pack.end(), random);
        const int size = static_cast<int>(random() % 12) + 1;
        const int trumps = static_cast<int>(random() % 4) + Diamonds;
        const bool playerLeads = random() % 2 == 1;
        const int led = playerLeads ? 0 : pack[2 * size];
        ClearTable(t.g);
        CardSet hand = 0;
        for (int i = 0; i < size; ++i) {
            Card(t.g, pack[i]).Place = PlacePlayerHand;
            Card(t.g, pack[size + i]).Place = PlaceOpponentHand;
            hand |= expert::CardBit(pack[i]);
        }
        t.g.RoundOneOn = false;
        t.g.RoundTwoOn = t.g.PlayerMayPlay = true;
        t.g.TrumpSuit = trumps;
        t.g.Leader = playerLeads ? ThePlayer : TheRobot;
        if (led != 0) Card(t.g, led).Place = PlacePlayed;
        t.g.LeadCard = led;
        t.g.LeadSuit = led != 0 ? Card(t.g, led).Suit : NoSuit;
        const CardSet legal = expert::RoundTwoLegalCards(hand, led, trumps);
        for (int i = 0; i < size; ++i) {
            ASSERT_EQ(ClickWouldPlay(t.g, pack[i]), expert::Holds(legal, pack[i])) << deal;
        }
        // Any two cards as a trick, either way round, and a card on its twin.
        const int card1 = pack[size + 1], card2 = pack[random() % 2 == 1 ? size + 2 : 1];
        const int twin = card1 % 2 == 1 ? card1 + 1 : card1 - 1;
        for (const auto& [leadCard, followCard] :
             {std::pair{card1, card2}, {card2, card1}, {card1, twin}}) {
            t.g.LeadCard = leadCard;
            t.g.LeadSuit = Card(t.g, leadCard).Suit;
            t.g.FollowCard = followCard;
            t.g.FollowSuit = Card(t.g, followCard).Suit;
            const int follower = playerLeads ? TheRobot : ThePlayer;
            ASSERT_EQ(TrickWinner(t.g) == follower,
                      expert::FollowerTakesTrick(leadCard, followCard, trumps))
                << deal;
            ASSERT_EQ(TrickValue(t.g),
                      expert::PointsIn(expert::CardBit(leadCard) | expert::CardBit(followCard)));
            ASSERT_EQ(TrickValue(t.g),
                      expert::CardPointsOf(leadCard) + expert::CardPointsOf(followCard));
        }
    }
}

}  // namespace
}  // namespace trickhaven
