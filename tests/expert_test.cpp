// The Expert's own reading of the rules agrees with the game's routines,
// and it decides from its seat's view alone: the cards it cannot see may lie
// any way that fits what it saw without changing what it does.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "expert/decisions.h"
#include "expert/layouts.h"
#include "robot/expert_seat.h"
#include "round_one/trick_cycle.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

using expert::CardBit;
using expert::CardSet;
using expert::HandState;

CardSet HandOf(const Game& g, int who) {
    CardSet set = 0;
    for (int card = 1; card <= CardCount; ++card) {
        if (Card(g, card).Place == HandPlace(who)) set |= CardBit(card);
    }
    return set;
}

// The engine's state of the game's table: both hands known; every marked
// card lies in the robot's sight (its hand or a meld row).
HandState StateOf(const Game& g) {
    const expert::SeatView view = SeatViewOf(g, TheRobot, expert::Stage::Meld);
    HandState s;
    s.hands = {HandOf(g, ThePlayer), HandOf(g, TheRobot)};
    s.trump = g.TrumpSuit;
    s.upCard = g.UpCard;
    s.marks = view.marks;
    s.pinochleMade = view.pinochleMade;
    s.doubleMade = view.doubleMade;
    return s;
}

bool SameMarks(const expert::MeldMarks& a, const expert::MeldMarks& b) {
    return a.run == b.run && a.marriage == b.marriage && a.fours == b.fours &&
           a.pinochle == b.pinochle && a.doublePinochle == b.doublePinochle &&
           a.dixBlocked == b.dixBlocked;
}

// The game's meld routine for an engine meld.
void GameMeld(Game& g, int who, expert::Meld meld) {
    switch (meld.kind) {
        case expert::MeldKind::Dix:
            return MeldDix(g, who);
        case expert::MeldKind::DoublePinochle:
            return MeldDoublePinochle(g, who);
        case expert::MeldKind::Pinochle:
            return MeldPinochle(g, who);
        case expert::MeldKind::Marriage:
            return MeldMarriage(g, who, meld.arg);
        case expert::MeldKind::Fours:
            return MeldFours(g, who, meld.arg);
        default:
            return MeldRun(g, who);
    }
}

// Eighteen cards to each side at random, so that melds come often.
void DealMeldyHands(RoundOneTable& t, std::mt19937& random) {
    std::vector<int> cards;
    for (int card = 1; card <= CardCount; ++card) {
        if (card != t.g.UpCard) cards.push_back(card);
    }
    std::shuffle(cards.begin(), cards.end(), random);
    for (std::size_t i = 0; i < 36; ++i) {
        Card(t.g, cards[i]).Place = HandPlace(i % 2 == 0 ? ThePlayer : TheRobot);
    }
}

TEST(ExpertRules, MeldsAsTheGameScoresThemOverRandomTables) {
    std::mt19937 random(7);
    int scored = 0;
    for (int table = 0; table < 150; ++table) {
        const int trumps = static_cast<int>(random() % 4) + 1;
        const int up =
            random() % 3 == 0 ? CardIndex(Nine, trumps) : static_cast<int>(random() % 48) + 1;
        RoundOneTable t(trumps, up);
        DealMeldyHands(t, random);
        HandState s = StateOf(t.g);
        for (int attempt = 0; attempt < 30; ++attempt) {
            const int who = static_cast<int>(random() % 2) + 1;
            const expert::Meld meld = expert::MeldChoice(static_cast<int>(random() % 12));
            const int before = who == ThePlayer ? t.g.PlayerTotalMelds : t.g.OpponentTotalMelds;
            const int points = expert::MeldPoints(s, who - 1, meld);
            GameMeld(t.g, who, meld);
            const int after = who == ThePlayer ? t.g.PlayerTotalMelds : t.g.OpponentTotalMelds;
            ASSERT_EQ(points, after - before) << "table " << table << " attempt " << attempt;
            if (points > 0) {
                expert::LayMeld(s, who - 1, meld);
                ++scored;
            }
            const HandState game = StateOf(t.g);
            ASSERT_EQ(s.hands, game.hands) << "table " << table << " attempt " << attempt;
            ASSERT_EQ(s.upCard, game.upCard);
            ASSERT_TRUE(SameMarks(s.marks, game.marks)) << "table " << table;
        }
    }
    EXPECT_GT(scored, 500);
}

TEST(ExpertRules, TricksGoAndCountAsTheGameSays) {
    RoundOneTable t;
    std::mt19937 random(3);
    for (int trick = 0; trick < 3000; ++trick) {
        Game& g = t.g;
        g.TrumpSuit = static_cast<int>(random() % 4) + 1;
        g.Leader = static_cast<int>(random() % 2) + 1;
        g.LeadCard = static_cast<int>(random() % 48) + 1;
        g.FollowCard = static_cast<int>(random() % 48) + 1;
        if (g.FollowCard == g.LeadCard) continue;
        g.LeadSuit = Card(g, g.LeadCard).Suit;
        g.FollowSuit = Card(g, g.FollowCard).Suit;
        const bool followerWins = expert::FollowerTakesTrick(g.LeadCard, g.FollowCard, g.TrumpSuit);
        ASSERT_EQ(TrickWinner(g) != g.Leader, followerWins) << g.LeadCard << " " << g.FollowCard;
        ASSERT_EQ(TrickValue(g),
                  expert::CardPointsOf(g.LeadCard) + expert::CardPointsOf(g.FollowCard));
    }
}

// A table in the middle of Round One, seen from the robot's seat: some
// cards played, the player's melds lying face up, the robot to lead or to
// follow or to meld.
struct MidHand {
    explicit MidHand(std::uint32_t seed) : random(seed), t(static_cast<int>(seed % 4) + 1) {
        Game& g = t.g;
        std::vector<int> cards;
        for (int card = 1; card <= CardCount; ++card) {
            if (card != g.UpCard) cards.push_back(card);
        }
        std::shuffle(cards.begin(), cards.end(), random);
        const int played = 2 + 2 * static_cast<int>(random() % 7);
        std::size_t next = 0;
        for (int i = 0; i < played; ++i, ++next) {
            Card(g, cards[next]).Place = PlacePlayed;
            g.Shown.played |= CardBit(cards[next]);
        }
        for (int i = 0; i < 24; ++i, ++next) {
            Card(g, cards[next]).Place = HandPlace(i % 2 == 0 ? ThePlayer : TheRobot);
        }
        g.TrickCount = played / 2 + 1;
        g.StockLeft = static_cast<std::int16_t>(24 - played);
        for (int i = 0; i < 12; ++i) {
            GameMeld(g, ThePlayer, expert::MeldChoice(static_cast<int>(random() % 12)));
        }
        g.MeldAwaited = false;
        g.Leader = TheRobot;
    }

    // Deals the player's hidden cards and the stock anew, among themselves.
    void ReshuffleUnseen() {
        std::vector<int> unseen;
        for (int card = 1; card <= CardCount; ++card) {
            const CardRec& c = Card(t.g, card);
            const bool seenGoingIn = (t.g.Shown.intoHand[ThePlayer] & CardBit(card)) != 0;
            if (c.Place == PlaceStock ||
                (c.Place == PlacePlayerHand && !c.Melded && !seenGoingIn)) {
                unseen.push_back(card);
            }
        }
        std::vector<int> places;
        for (const int card : unseen) places.push_back(Card(t.g, card).Place);
        std::shuffle(places.begin(), places.end(), random);
        for (std::size_t i = 0; i < unseen.size(); ++i) Card(t.g, unseen[i]).Place = places[i];
    }

    struct Decisions {
        std::uint64_t seed;
        int lead;
        int follow;
        expert::Meld meld;
        bool operator==(const Decisions&) const = default;
    };

    Decisions Decide() {
        Game& g = t.g;
        Decisions d{};
        g.Leader = TheRobot;
        d.seed = expert::ViewSeed(SeatViewOf(g, TheRobot, expert::Stage::Card));
        d.lead = expert::ExpertCard(SeatViewOf(g, TheRobot, expert::Stage::Card));
        g.Leader = ThePlayer;
        d.follow = expert::ExpertCard(SeatViewOf(g, TheRobot, expert::Stage::Card));
        g.Leader = TheRobot;
        d.meld = expert::ExpertMeld(SeatViewOf(g, TheRobot, expert::Stage::Meld));
        return d;
    }

    std::mt19937 random;
    RoundOneTable t;
};

TEST(ExpertSeat, CardsItCannotSeeMayLieAnyWayWithoutChangingWhatItDoes) {
    for (std::uint32_t seed = 1; seed <= 12; ++seed) {
        MidHand hand(seed);
        // The player leads a card the robot has seen played.
        hand.t.g.LeadCard = expert::FirstCard(hand.t.g.Shown.played);
        const MidHand::Decisions before = hand.Decide();
        for (int shuffle = 0; shuffle < 3; ++shuffle) {
            hand.ReshuffleUnseen();
            EXPECT_EQ(hand.Decide(), before) << "seed " << seed;
        }
    }
}

}  // namespace
}  // namespace trickhaven
