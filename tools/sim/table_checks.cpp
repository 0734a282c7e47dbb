#include "tools/sim/table_checks.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "data/data_file.h"
#include "data/saved_game.h"
#include "round_one/trick_cycle.h"

namespace trickhaven {

namespace {

constexpr std::size_t kNotesKept = 20;
constexpr int kLastTrickOfRoundOne = 12;

struct PlaceCounts {
    int player = 0;
    int robot = 0;
    int stock = 0;
    int played = 0;
    int upCard = 0;
    int other = 0;
};

PlaceCounts CountPlaces(const Game& g) {
    PlaceCounts counts;
    for (int card = 1; card <= CardCount; ++card) {
        switch (Card(g, card).Place) {
            case PlacePlayerHand:
                ++counts.player;
                break;
            case PlaceOpponentHand:
                ++counts.robot;
                break;
            case PlaceStock:
                ++counts.stock;
                break;
            case PlacePlayed:
                ++counts.played;
                break;
            case PlaceUpCard:
                ++counts.upCard;
                break;
            default:
                ++counts.other;
                break;
        }
    }
    return counts;
}

bool Holds(const Game& g, int who, int suit) {
    for (int card = 1; card <= CardCount; ++card) {
        if (Card(g, card).Place == HandPlace(who) && Card(g, card).Suit == suit) return true;
    }
    return false;
}

std::optional<std::string> ReadWhole(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::string Counts(const PlaceCounts& c) {
    return " (player " + std::to_string(c.player) + ", robot " + std::to_string(c.robot) +
           ", stock " + std::to_string(c.stock) + ", played " + std::to_string(c.played) + ", up " +
           std::to_string(c.upCard) + ")";
}

}  // namespace

int WinnerOfTrick(int leader, const CardRec& led, const CardRec& followed, int trumps) {
    const int follower = leader == ThePlayer ? TheRobot : ThePlayer;
    if (led.Suit == followed.Suit) return followed.Value > led.Value ? follower : leader;
    return followed.Suit == trumps ? follower : leader;
}

void TableChecks::Fail(const std::string& what) {
    ++violations;
    if (notes.size() < kNotesKept) notes.push_back(what);
}

void TableChecks::OnRound(const Game& g) {
    const PlaceCounts c = CountPlaces(g);
    if (c.other != 0) Fail("a card lies in no known place" + Counts(c));
    if (g.TrickCount == 0) {
        dealSeen_ = true;
        seenOnPile_.fill(false);
    }
    for (int card = 1; card <= CardCount; ++card) {
        const bool onPile = Card(g, card).Place == PlacePlayed;
        bool& seen = seenOnPile_.at(static_cast<std::size_t>(card));
        if (seen && !onPile) {
            Fail("played card " + std::to_string(card) + " came back from the pile");
        }
        seen = seen || onPile;
    }
    const bool roundOn = g.RoundOneOn || g.RoundTwoOn;
    if (!g.GameOn) {
        if (c.stock != CardCount || roundOn) Fail("an idle table is not all stock" + Counts(c));
    } else if (g.RoundOneOn && g.RoundTwoOn) {
        Fail("both rounds on at once");
    } else if (!roundOn) {
        if (c.played != 0 || c.player > 12 || c.robot > 12) Fail("a deal gone wrong" + Counts(c));
    } else if (g.RoundOneOn) {
        if (c.player < 11 || c.player > 12 || c.robot < 11 || c.robot > 12 || c.played > 24) {
            Fail("Round One hands out of shape" + Counts(c));
        }
    } else if (c.stock != 0 || c.upCard != 0 || c.played < 24 || c.player > 12 || c.robot > 12 ||
               std::abs(c.player - c.robot) > 1) {
        Fail("Round Two hands out of shape" + Counts(c));
    }
    if (g.PlayerMayPlay && !(g.GameOn && roundOn)) Fail("a card awaited with no round on");
    const bool panelUp = g.view.IsControlVisible(TableControl::FramDeclare) ||
                         g.view.IsControlVisible(TableControl::FramMarriage);
    if (g.MeldAwaited && !(panelUp || g.MeldCommandRunning)) {
        Fail("a meld awaited with no panel up and no meld running");
    }
    if (g.MeldAwaited && !(g.GameOn && g.RoundOneOn)) Fail("a meld awaited outside Round One");
}

void TableChecks::StartHand(const Game& g) {
    dealSeen_ = false;
    played_.fill(false);
    tricksDone_ = 0;
    cardsInTrick_ = 0;
    upCardAtDeal_ = g.UpCard;
    dealer_ = g.Dealer;
    trickPoints_.fill(0);
    meldPoints_.fill(0);
    meldInFlight_.fill(0);
    if (g.HandNumber == 1) {
        totals_.fill(0);
        standing_.fill(0);
    } else if (firstHandOfRun_) {
        // A game taken up from its saved standing.
        if (g.PlayerTotal != standing_[1] || g.OpponentTotal != standing_[2]) {
            Fail("a game taken up at " + std::to_string(g.PlayerTotal) + "/" +
                 std::to_string(g.OpponentTotal) + ", saved at " + std::to_string(standing_[1]) +
                 "/" + std::to_string(standing_[2]));
        }
        totals_ = standing_;
    }
    firstHandOfRun_ = false;
    // Only a turned-up nine can have scored before the first card.
    trickPoints_.at(static_cast<std::size_t>(dealer_)) =
        Card(g, upCardAtDeal_).Value == Nine ? 10 : 0;
}

void TableChecks::OnPlay(const Game& g, const PlayLogEvent& event) {
    switch (event.kind) {
        case PlayLogKind::Card:
            CheckCardPlayed(g, event);
            break;
        case PlayLogKind::Trick:
            CheckTrick(g, event);
            break;
        case PlayLogKind::Draw: {
            const int place = Card(g, event.card).Place;
            if (place != PlaceStock && place != PlaceUpCard) {
                Fail("drew card " + std::to_string(event.card) + " from place " +
                     std::to_string(place));
            }
            // After a trick the winner draws first, then the other side.
            const int turn = drawsSinceTrick_ == 0 ? lastWinner_ : 3 - lastWinner_;
            if (drawsSinceTrick_ >= 2 || event.who != turn) {
                Fail("side " + std::to_string(event.who) + " drew out of turn after trick " +
                     std::to_string(tricksDone_));
            }
            ++drawsSinceTrick_;
            break;
        }
        case PlayLogKind::Meld:
            if (!g.RoundOneOn || event.points <= 0) Fail("a meld out of Round One or worthless");
            meldPoints_.at(static_cast<std::size_t>(event.who)) += event.points;
            meldInFlight_.at(static_cast<std::size_t>(event.who)) = event.points;
            totals_.at(static_cast<std::size_t>(event.who)) += event.points;
            break;
        case PlayLogKind::MeldTurn:
            break;
        case PlayLogKind::HandEnd:
            CheckHandEnd(g);
            dealSeen_ = true;
            break;
        case PlayLogKind::GameEnd:
            // A knock in the waits of a meld's cards ends the game before
            // the meld's points are posted.
            for (const int who : {ThePlayer, TheRobot}) {
                const auto side = static_cast<std::size_t>(who);
                const int melds = who == ThePlayer ? g.PlayerTotalMelds : g.OpponentTotalMelds;
                if (melds == meldPoints_.at(side) - meldInFlight_.at(side)) {
                    totals_.at(side) -= meldInFlight_.at(side);
                }
            }
            CheckTotals(g, "at the end of the game");
            break;
    }
}

void TableChecks::CheckCardPlayed(const Game& g, const PlayLogEvent& event) {
    // Every deal passes the dealer on; a count of tricks that fell back is a
    // new hand whose deal went by unseen.
    if (dealSeen_ || g.Dealer != dealer_ || g.TrickCount < tricksDone_) StartHand(g);
    const int trick = tricksDone_ + 1;
    const auto card = static_cast<std::size_t>(event.card);
    if (Card(g, event.card).Place != HandPlace(event.who)) {
        Fail("side " + std::to_string(event.who) + " played card " + std::to_string(event.card) +
             " from place " + std::to_string(Card(g, event.card).Place));
    }
    if (played_.at(card)) Fail("card " + std::to_string(event.card) + " played twice in a hand");
    played_.at(card) = true;
    if (cardsInTrick_ >= 2) {
        Fail("a third card in trick " + std::to_string(trick));
        return;
    }
    if (cardsInTrick_ == 0) {
        if (event.who != g.Leader) Fail("the wrong side led trick " + std::to_string(trick));
        CheckLead(g, trick);
        CheckTotals(g, "at a lead");
    } else {
        if (event.who == trickWho_[0]) Fail("one side played twice to a trick");
        const CardRec& led = Card(g, trickCards_[0]);
        const int suit = Card(g, event.card).Suit;
        // Round Two binds both sides: follow suit, else trump.
        if (g.RoundTwoOn && suit != led.Suit) {
            if (Holds(g, event.who, led.Suit)) Fail("a side failed to follow suit");
            if (suit != g.TrumpSuit && Holds(g, event.who, g.TrumpSuit)) {
                Fail("a side failed to trump");
            }
        }
    }
    trickCards_.at(static_cast<std::size_t>(cardsInTrick_)) = event.card;
    trickWho_.at(static_cast<std::size_t>(cardsInTrick_)) = event.who;
    ++cardsInTrick_;
}

void TableChecks::CheckLead(const Game& g, int trick) {
    const PlaceCounts c = CountPlaces(g);
    // In Round Two the winner of a trick may lead the next one during the
    // closing wait of the last, before the count of tricks moves on.
    const bool early =
        g.RoundTwoOn && trick > kLastTrickOfRoundOne + 1 && g.TrickCount == trick - 1;
    if (g.TrickCount != trick && !early) {
        Fail("trick " + std::to_string(trick) + " led at trick count " +
             std::to_string(g.TrickCount));
    }
    const int hand = trick <= kLastTrickOfRoundOne ? 12 : 25 - trick;
    const int stock = trick <= kLastTrickOfRoundOne ? 24 - 2 * (trick - 1) : 0;
    const bool roundFits = trick <= kLastTrickOfRoundOne ? g.RoundOneOn : g.RoundTwoOn;
    if (!roundFits || c.player != hand || c.robot != hand || g.StockLeft != stock ||
        c.stock + c.upCard != stock || c.played != 2 * (trick - 1)) {
        Fail("the lead of trick " + std::to_string(trick) + " out of shape" + Counts(c));
    }
}

void TableChecks::CheckTrick(const Game& g, const PlayLogEvent& event) {
    const int trick = tricksDone_ + 1;
    if (cardsInTrick_ != 2 || g.TrickCount != trick) {
        Fail("trick " + std::to_string(trick) + " valued with " + std::to_string(cardsInTrick_) +
             " cards at trick count " + std::to_string(g.TrickCount));
        return;
    }
    const CardRec& led = Card(g, trickCards_[0]);
    const CardRec& followed = Card(g, trickCards_[1]);
    const int points = CardPoints(led.Value) + CardPoints(followed.Value);
    const int winner = WinnerOfTrick(trickWho_[0], led, followed, g.TrumpSuit);
    if (event.points != points || event.winner != winner) {
        Fail("trick " + std::to_string(trick) + " booked " + std::to_string(event.points) +
             " to side " + std::to_string(event.winner) + ", expected " + std::to_string(points) +
             " to side " + std::to_string(winner));
    }
    trickPoints_.at(static_cast<std::size_t>(winner)) += points;
    if (trick == kLastTrickOfRoundOne) trickPoints_.at(static_cast<std::size_t>(winner)) += 10;
    ++tricksDone_;
    cardsInTrick_ = 0;
    lastWinner_ = winner;
    drawsSinceTrick_ = 0;
    meldInFlight_.fill(0);
}

void TableChecks::CheckHandEnd(const Game& g) {
    const int sum = g.PlayerTotalTricks + g.OpponentTotalTricks;
    const bool nine = Card(g, upCardAtDeal_).Value == Nine;
    if (sum != (nine ? 260 : 250)) {
        Fail("trick points of a hand sum to " + std::to_string(sum));
    }
    if (g.PlayerTotalTricks != trickPoints_[1] || g.OpponentTotalTricks != trickPoints_[2]) {
        Fail("trick points booked " + std::to_string(g.PlayerTotalTricks) + "/" +
             std::to_string(g.OpponentTotalTricks) + ", won " + std::to_string(trickPoints_[1]) +
             "/" + std::to_string(trickPoints_[2]));
    }
    if (g.PlayerTotalMelds != meldPoints_[1] || g.OpponentTotalMelds != meldPoints_[2]) {
        Fail("meld points of a hand differ from the melds made");
    }
    totals_[1] += trickPoints_[1];
    totals_[2] += trickPoints_[2];
    CheckTotals(g, "at the end of a hand");
    standing_ = totals_;
}

void TableChecks::CheckTotals(const Game& g, const char* when) {
    if (g.PlayerTotal != totals_[1] || g.OpponentTotal != totals_[2]) {
        Fail(std::string("totals ") + std::to_string(g.PlayerTotal) + "/" +
             std::to_string(g.OpponentTotal) + " differ from the posted " +
             std::to_string(totals_[1]) + "/" + std::to_string(totals_[2]) + " " + when);
        totals_[1] = g.PlayerTotal;
        totals_[2] = g.OpponentTotal;
    }
}

void TableChecks::CheckDataFiles(const std::filesystem::path& folder,
                                 const std::optional<DataFiles>& frozen) {
    for (std::size_t i = 0; i < kDataFileNames.size(); ++i) {
        const std::string name = kDataFileNames.at(i);
        const auto text = ReadWhole(folder / name);
        if (text && !ParseSettingsLine(*text)) Fail(name + " does not read back");
        if (frozen && text != frozen->at(i)) Fail(name + " changed though every write failed");
    }
    const auto saved = ReadWhole(folder / kSavedGameName);
    if (saved && !ParseStanding(*saved)) Fail("the saved game does not read back");
    if (frozen && saved) Fail("a game was saved though every write failed");
}

}  // namespace trickhaven
