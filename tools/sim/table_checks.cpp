#include "tools/sim/table_checks.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "data/data_file.h"
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
    trick_ = 0;
    cardsInTrick_ = 0;
    upCardAtDeal_ = g.UpCard;
    dealer_ = g.Dealer;
    trickPoints_.fill(0);
    meldPoints_.fill(0);
    if (g.HandNumber == 1) totals_.fill(0);
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
            break;
        }
        case PlayLogKind::Meld:
            if (!g.RoundOneOn || event.points <= 0) Fail("a meld out of Round One or worthless");
            meldPoints_.at(static_cast<std::size_t>(event.who)) += event.points;
            totals_.at(static_cast<std::size_t>(event.who)) += event.points;
            break;
        case PlayLogKind::MeldTurn:
            break;
        case PlayLogKind::HandEnd:
            CheckHandEnd(g);
            break;
        case PlayLogKind::GameEnd:
            CheckTotals(g, "at the end of the game");
            break;
    }
}

void TableChecks::CheckCardPlayed(const Game& g, const PlayLogEvent& event) {
    if (dealSeen_ || g.TrickCount < trick_) StartHand(g);
    if (g.TrickCount != trick_) {
        trick_ = g.TrickCount;
        cardsInTrick_ = 0;
    }
    const auto card = static_cast<std::size_t>(event.card);
    if (Card(g, event.card).Place != HandPlace(event.who)) {
        Fail("side " + std::to_string(event.who) + " played card " + std::to_string(event.card) +
             " from place " + std::to_string(Card(g, event.card).Place));
    }
    if (played_.at(card)) Fail("card " + std::to_string(event.card) + " played twice in a hand");
    played_.at(card) = true;
    if (cardsInTrick_ >= 2) {
        Fail("a third card in trick " + std::to_string(trick_));
        return;
    }
    if (cardsInTrick_ == 0) {
        if (event.who != g.Leader) Fail("the wrong side led trick " + std::to_string(trick_));
        CheckLead(g);
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

void TableChecks::CheckLead(const Game& g) {
    const PlaceCounts c = CountPlaces(g);
    const int t = g.TrickCount;
    if (g.RoundOneOn) {
        const int stock = 24 - 2 * (t - 1);
        if (c.player != 12 || c.robot != 12 || g.StockLeft != stock ||
            c.stock + c.upCard != stock || c.played != 2 * (t - 1)) {
            Fail("Round One lead of trick " + std::to_string(t) + " out of shape" + Counts(c));
        }
    } else if (g.RoundTwoOn) {
        const int hand = 25 - t;
        if (c.player != hand || c.robot != hand || c.played != 24 + 2 * (t - 13)) {
            Fail("Round Two lead of trick " + std::to_string(t) + " out of shape" + Counts(c));
        }
    } else {
        Fail("a card led with no round on");
    }
}

void TableChecks::CheckTrick(const Game& g, const PlayLogEvent& event) {
    if (cardsInTrick_ != 2) {
        Fail("trick " + std::to_string(g.TrickCount) + " valued with " +
             std::to_string(cardsInTrick_) + " cards");
        return;
    }
    const CardRec& led = Card(g, trickCards_[0]);
    const CardRec& followed = Card(g, trickCards_[1]);
    const int points = CardPoints(led.Value) + CardPoints(followed.Value);
    const int winner = WinnerOfTrick(trickWho_[0], led, followed, g.TrumpSuit);
    if (event.points != points || event.winner != winner) {
        Fail("trick " + std::to_string(g.TrickCount) + " booked " + std::to_string(event.points) +
             " to side " + std::to_string(event.winner) + ", expected " + std::to_string(points) +
             " to side " + std::to_string(winner));
    }
    trickPoints_.at(static_cast<std::size_t>(winner)) += points;
    if (g.TrickCount == kLastTrickOfRoundOne)
        trickPoints_.at(static_cast<std::size_t>(winner)) += 10;
    cardsInTrick_ = 3;
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
                                 const std::optional<std::string>& expectedData) {
    for (const char* name : {"Data.dat", "All.dat"}) {
        const auto text = ReadWhole(folder / name);
        if (text && !ParseSettingsLine(*text)) Fail(std::string(name) + " does not read back");
    }
    if (expectedData && ReadWhole(folder / "Data.dat") != *expectedData) {
        Fail("Data.dat changed though every write failed");
    }
}

}  // namespace trickhaven
