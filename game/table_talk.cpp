#include "game/table_talk.h"

#include <algorithm>
#include <cctype>

namespace trickhaven {

namespace {

const std::string& SideName(const Game& g, int who) {
    return who == ThePlayer ? g.PlayerName : g.OpponentName;
}

std::string Points(int points) {
    return std::to_string(points) + (points == 1 ? " point" : " points");
}

std::string FourName(int value) {
    switch (value) {
        case Ace:
            return "four Aces";
        case King:
            return "four Kings";
        case Queen:
            return "four Queens";
        case Jack:
            return "four Jacks";
        default:
            return "four of a kind";
    }
}

std::string MeldName(const PlayLogEvent& event) {
    const std::string kind = event.meldKind;
    if (kind == "run") return "a run";
    if (kind == "fours") return FourName(event.value);
    if (kind == "pinochle") return "a pinochle";
    if (kind == "double") return "a double pinochle";
    if (kind == "marriage") return "a marriage in " + SuitWord(event.suit);
    if (kind == "dix") return "the dix";
    return "a meld";
}

// The number as a whole word of the line, not a piece of a longer one.
bool HoldsNumber(const std::string& line, const std::string& number) {
    for (std::size_t at = line.find(number); at != std::string::npos;
         at = line.find(number, at + 1)) {
        const std::size_t end = at + number.size();
        const bool digitBefore = at > 0 && std::isdigit(static_cast<unsigned char>(line[at - 1]));
        const bool digitAfter =
            end < line.size() && std::isdigit(static_cast<unsigned char>(line[end]));
        if (!digitBefore && !digitAfter) return true;
    }
    return false;
}

// A text spoken after another needs its full stop.
std::string Sentence(std::string text) {
    while (!text.empty() && text.back() == ' ') text.pop_back();
    if (!text.empty() && text.back() != '.' && text.back() != '!' && text.back() != '?') {
        text += '.';
    }
    return text;
}

}  // namespace

bool TableTalk::Repeats(const std::string& line, const Fact& fact) {
    if (fact.side.empty() || line.rfind(fact.side, 0) != 0) return false;
    const bool number = std::all_of(fact.mark.begin(), fact.mark.end(), [](char c) {
        return std::isdigit(static_cast<unsigned char>(c));
    });
    return number ? HoldsNumber(line, fact.mark) : line.find(fact.mark) != std::string::npos;
}

void TableTalk::Hear(const Game& g, const PlayLogEvent& event) {
    std::string text;
    Fact fact;
    switch (event.kind) {
        case PlayLogKind::Card:
            // The player's own card is told by the commentary as he plays it.
            if (event.who != TheRobot) return;
            fact = {g.OpponentName, Card(g, event.card).Name};
            text = g.OpponentName + " plays the " + Card(g, event.card).Name;
            break;
        case PlayLogKind::Trick:
            fact = {SideName(g, event.winner), std::to_string(event.points)};
            text = SideName(g, event.winner) + " takes the trick for " + Points(event.points);
            break;
        case PlayLogKind::Draw:
            // The robot's cards are hidden, but for the up card, which all
            // have seen.
            if (event.who == ThePlayer || event.card == g.UpCard) {
                text = SideName(g, event.who) + " draws the " + Card(g, event.card).Name;
            } else {
                text = g.OpponentName + " draws";
            }
            break;
        case PlayLogKind::Meld:
            fact = {SideName(g, event.who), std::to_string(event.points)};
            text = SideName(g, event.who) + " melds " + MeldName(event) + " for " +
                   Points(event.points);
            break;
        case PlayLogKind::MeldTurn:
            return;
        case PlayLogKind::HandEnd:
            text = "End of the hand: " + g.PlayerName + " " +
                   std::to_string(g.PlayerTotalMelds + g.PlayerTotalTricks) + ", " +
                   g.OpponentName + " " +
                   std::to_string(g.OpponentTotalMelds + g.OpponentTotalTricks) +
                   ". Total scores: " + g.PlayerName + " " + std::to_string(g.PlayerTotal) + ", " +
                   g.OpponentName + " " + std::to_string(g.OpponentTotal);
            break;
        case PlayLogKind::GameEnd:
            text = SideName(g, event.winner) + " wins the game, " + g.PlayerName + " " +
                   std::to_string(g.PlayerTotal) + ", " + g.OpponentName + " " +
                   std::to_string(g.OpponentTotal);
            break;
    }
    const bool saidAlready =
        std::any_of(commentedSinceEvent_.begin(), commentedSinceEvent_.end(),
                    [&](const std::string& line) { return Repeats(line, fact); });
    commentedSinceEvent_.clear();
    // Kept even when the commentary told it first: the same card may be
    // written again once it lies on the table.
    told_.assign(1, fact);
    if (!saidAlready) Tell(text);
}

void TableTalk::Commentary(const std::string& text) {
    // The same words written again change nothing on the table.
    if (text == lastCommentary_) return;
    lastCommentary_ = text;
    const auto repeat = std::find_if(told_.begin(), told_.end(),
                                     [&](const Fact& fact) { return Repeats(text, fact); });
    if (repeat != told_.end()) {
        told_.erase(repeat);
        return;
    }
    commentedSinceEvent_.push_back(text);
    Tell(text);
}

void TableTalk::MessageOpens(const std::string& title, const std::string& text) {
    Tell(title.empty() ? text : Sentence(title) + " " + text);
}

void TableTalk::Tell(std::string text) {
    if (text.empty()) return;
    const bool first = waiting_.empty();
    waiting_.push_back(Sentence(std::move(text)));
    if (first && onNews) onNews();
}

std::string TableTalk::TakeSpoken() {
    std::string spoken;
    for (const std::string& text : waiting_) {
        spoken += (spoken.empty() ? "" : " ") + text;
    }
    waiting_.clear();
    return spoken;
}

}  // namespace trickhaven
