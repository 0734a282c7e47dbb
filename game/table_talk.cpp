#include "game/table_talk.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace trickhaven {

namespace {

// The prompts that come back at every trick: the player knows his turn from
// what was told before it, and the meld offer is asked in a word.
constexpr std::array<const char*, 4> kCardPrompts{
    " please click card you wish to play.", " please click the card you wish to play",
    " your lead, please click card to play", " your turn, please click card to play"};
constexpr std::array<const char*, 2> kMeldPrompts{
    " click Meld to make or Cancel to receive card.",
    " Click a Meld to make or click Cancel to receive a card"};
constexpr const char* kMeldAsked = "Meld?";

bool EndsWithOneOf(const std::string& text, const auto& endings) {
    return std::any_of(endings.begin(), endings.end(), [&](const std::string& ending) {
        return text.size() >= ending.size() &&
               text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
    });
}

const std::string& SideName(const Game& g, int who) {
    return who == ThePlayer ? g.PlayerName : g.OpponentName;
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

// "Ada 120, Lorinda 95".
std::string BothSides(const Game& g, int player, int robot) {
    return g.PlayerName + " " + std::to_string(player) + ", " + g.OpponentName + " " +
           std::to_string(robot);
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
            fact = {SideName(g, event.who), Card(g, event.card).Name};
            // The player's own card is his doing: he knows it.
            if (event.who == TheRobot) text = g.OpponentName + ": " + Card(g, event.card).Name;
            break;
        case PlayLogKind::Trick:
            fact = {SideName(g, event.winner), std::to_string(event.points)};
            text = SideName(g, event.winner) + "'s trick, " + std::to_string(event.points);
            break;
        case PlayLogKind::Draw:
            // The robot's cards are hidden, but for the up card, which all
            // have seen.
            if (event.who == ThePlayer || event.card == g.UpCard) {
                text = SideName(g, event.who) + " draws " + Card(g, event.card).Name;
            } else {
                text = g.OpponentName + " draws";
            }
            break;
        case PlayLogKind::Meld:
            fact = {SideName(g, event.who), std::to_string(event.points)};
            text = SideName(g, event.who) + " melds " + MeldName(event) + ", " +
                   std::to_string(event.points);
            break;
        case PlayLogKind::MeldTurn:
            return;
        case PlayLogKind::HandEnd:
            text = "Hand over: " +
                   BothSides(g, g.PlayerTotalMelds + g.PlayerTotalTricks,
                             g.OpponentTotalMelds + g.OpponentTotalTricks) +
                   ". Totals: " + BothSides(g, g.PlayerTotal, g.OpponentTotal);
            break;
        case PlayLogKind::GameEnd:
            text = SideName(g, event.winner) + " wins the game, " +
                   BothSides(g, g.PlayerTotal, g.OpponentTotal);
            break;
    }
    // A card played, or a new hand, starts what the commentary may repeat.
    if (event.kind == PlayLogKind::Card || event.kind == PlayLogKind::HandEnd) facts_.clear();
    // The commentary that told this first gives way to the shorter telling.
    std::erase_if(waiting_,
                  [&](const Line& line) { return line.commentary && Repeats(line.text, fact); });
    if (!fact.side.empty()) facts_.push_back(fact);
    Tell(text, false);
}

void TableTalk::Commentary(const std::string& text) {
    // The same words written again change nothing on the table.
    if (text == lastCommentary_) return;
    lastCommentary_ = text;
    if (EndsWithOneOf(text, kCardPrompts)) return;
    if (EndsWithOneOf(text, kMeldPrompts)) {
        Tell(kMeldAsked, true);
        return;
    }
    if (std::any_of(facts_.begin(), facts_.end(),
                    [&](const Fact& fact) { return Repeats(text, fact); })) {
        return;
    }
    Tell(text, true);
}

void TableTalk::MessageOpens() { messageOpen_ = true; }

void TableTalk::FocusedCardStanding(const std::string& cardName, bool playable) {
    Tell(cardName + (playable ? " can be played now" : " cannot be played now"), false);
}

void TableTalk::Tell(std::string text, bool commentary) {
    if (text.empty()) return;
    waiting_.push_back({Sentence(std::move(text)), commentary});
}

std::string TableTalk::TakeSpoken(const Game& g) {
    // The player's own meld is his doing while it runs, not a wait for him.
    const bool awaited = (g.PlayerMayPlay || g.MeldAwaited) && !g.MeldCommandRunning;
    const bool due = messageOpen_ || awaited || !g.GameOn;
    if (!due) return "";
    messageOpen_ = false;
    std::string spoken;
    for (const Line& line : waiting_) {
        spoken += (spoken.empty() ? "" : " ") + line.text;
    }
    waiting_.clear();
    if (!spoken.empty()) lastSpoken_ = spoken;
    return spoken;
}

}  // namespace trickhaven
