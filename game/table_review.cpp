#include "game/table_review.h"

#include <cctype>
#include <cstring>
#include <map>

namespace trickhaven {

namespace {

const std::string& SideName(const Game& g, int who) {
    return who == ThePlayer ? g.PlayerName : g.OpponentName;
}

std::string Both(const Game& g, int player, int robot) {
    return g.PlayerName + " " + std::to_string(player) + ", " + g.OpponentName + " " +
           std::to_string(robot);
}

std::string Cards(const Game& g, const std::vector<std::pair<int, int>>& played) {
    std::string text;
    for (const auto& [who, card] : played) {
        text += (text.empty() ? "" : "; ") + SideName(g, who) + ", " + Card(g, card).Name;
    }
    return text;
}

// A side's meld rows as they lie, top row first, each from the left.
std::string MeldRows(const Game& g, const TableSight& sight, int place) {
    std::map<int, std::map<std::pair<int, int>, std::string>> rows;
    for (int card = 1; card <= CardCount; ++card) {
        const CardSight& seen = sight.at(static_cast<std::size_t>(card));
        if (Card(g, card).Place == place && Card(g, card).Melded && seen.shown && seen.faceUp) {
            rows[seen.top][{seen.left, card}] = Card(g, card).Name;
        }
    }
    std::string text;
    for (const auto& [top, row] : rows) {
        std::string names;
        for (const auto& [at, name] : row) names += (names.empty() ? "" : ", ") + name;
        text += (text.empty() ? "" : "; ") + names;
    }
    return text.empty() ? "no melds" : text;
}

}  // namespace

std::optional<ReviewKind> ReviewOfLetter(char letter) {
    const char* at = std::strchr(ReviewLetters, std::toupper(static_cast<unsigned char>(letter)));
    if (letter == 0 || at == nullptr) return std::nullopt;
    return static_cast<ReviewKind>(at - ReviewLetters);
}

void TableReview::Hear(const Game& g, const PlayLogEvent& event) {
    switch (event.kind) {
        case PlayLogKind::Card:
            if (latest_.number != g.TrickCount) latest_ = {{}, g.TrickCount};
            latest_.cards.emplace_back(event.who, event.card);
            break;
        case PlayLogKind::Trick:
            latest_.winner = event.winner;
            latest_.points = event.points;
            break;
        case PlayLogKind::HandEnd:
            latest_ = {};
            break;
        default:
            break;
    }
}

// The trick being played is told as it lies; once taken, or while the next
// waits for its first card, the last trick with its taker.
std::string TableReview::TellTrick(const Game& g) const {
    if (latest_.number == g.TrickCount && latest_.winner == 0 && !latest_.cards.empty()) {
        return "On the table: " + Cards(g, latest_.cards) + ".";
    }
    const bool lastTrick = latest_.winner != 0 && latest_.number > 0 &&
                           (latest_.number == g.TrickCount || latest_.number + 1 == g.TrickCount);
    if (lastTrick) {
        return "Last trick: " + Cards(g, latest_.cards) + ". " + SideName(g, latest_.winner) +
               "'s trick, " + std::to_string(latest_.points) + ".";
    }
    return "No trick played yet in this hand.";
}

std::string TableReview::Tell(ReviewKind kind, const Game& g, const TableSight& sight,
                              const std::string& lastTold) const {
    switch (kind) {
        case ReviewKind::Trick:
            return TellTrick(g);
        case ReviewKind::Points:
            return "Totals: " + Both(g, g.PlayerTotal, g.OpponentTotal) +
                   ". This hand, tricks: " + Both(g, g.PlayerTotalTricks, g.OpponentTotalTricks) +
                   "; melds: " + Both(g, g.PlayerTotalMelds, g.OpponentTotalMelds) + ". Target " +
                   std::to_string(g.TargetScore) + ".";
        case ReviewKind::UpCard: {
            if (g.TrumpSuit == NoSuit || g.UpCard == 0) return "No cards dealt yet.";
            const CardRec& up = Card(g, g.UpCard);
            return SuitWord(g.TrumpSuit) + " are Trumps. " +
                   (up.Place == PlaceUpCard ? "The up card is " + up.Name
                                            : "The up card, " + up.Name + ", is taken") +
                   ". Stock " + std::to_string(g.StockLeft) + ".";
        }
        case ReviewKind::Melds:
            return g.PlayerName + ": " + MeldRows(g, sight, PlacePlayerHand) + ". " +
                   g.OpponentName + ": " + MeldRows(g, sight, PlaceOpponentHand) + ".";
        case ReviewKind::Again:
            return lastTold.empty() ? "Nothing told yet." : lastTold;
    }
    return "";
}

}  // namespace trickhaven
