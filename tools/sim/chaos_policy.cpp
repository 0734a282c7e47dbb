#include "tools/sim/chaos_policy.h"

#include <array>

namespace trickhaven {

namespace {

// Names no form would expect: empty, very long, with the file's separators,
// quotes, line breaks, a backslash, other scripts and broken UTF-8.
std::string OddName(int which) {
    switch (which) {
        case 0:
            return "";
        case 1:
            return std::string(10000, 'W');
        case 2:
            return "Smith, John";
        case 3:
            return "The \"Ace\"";
        case 4:
            return "Zoë Ødegård 名前 🂡";
        case 5:
            return "\xFF\xFE broken \xC3";
        case 6:
            return "two\r\nlines";
        default:
            return "back\\slash\t,\",";
    }
}

constexpr int kOddNames = 8;

// Every control and menu command a player can reach, with the indexes the
// events carry.
constexpr std::array<TableEvent, 30> kEveryControl{{
    {TableEventKind::KnockClick},
    {TableEventKind::SortClick},
    {TableEventKind::DoublePinochleClick},
    {TableEventKind::PinochleClick},
    {TableEventKind::RunClick},
    {TableEventKind::FoursClick, 0},
    {TableEventKind::FoursClick, 1},
    {TableEventKind::FoursClick, 2},
    {TableEventKind::FoursClick, 3},
    {TableEventKind::DixClick},
    {TableEventKind::MakeMarriageClick},
    {TableEventKind::MarriageClick, 1},
    {TableEventKind::MarriageClick, 2},
    {TableEventKind::MarriageClick, 3},
    {TableEventKind::MarriageClick, 4},
    {TableEventKind::CancelClick},
    {TableEventKind::ReminderOkClick},
    {TableEventKind::MenuReminder},
    {TableEventKind::MenuExit},
    {TableEventKind::CloseBox},
    {TableEventKind::MenuYourName},
    {TableEventKind::MenuOpponentName},
    {TableEventKind::MenuViewStatistics},
    {TableEventKind::MenuDeleteStatistics},
    {TableEventKind::MenuTarget1000},
    {TableEventKind::MenuTarget750},
    {TableEventKind::MenuTarget500},
    {TableEventKind::MenuTarget300},
    {TableEventKind::MenuFast},
    {TableEventKind::MenuSlow},
}};

int ButtonIndex(const MessageRecord& message, const std::string& caption) {
    for (int i = 0; i < 3; ++i) {
        if (message.buttons.at(static_cast<std::size_t>(i)) == caption) return i;
    }
    return -1;
}

}  // namespace

bool ChaosPolicy::Chance(int percent) {
    return Below(100) < percent;
}

int ChaosPolicy::Below(int bound) {
    return static_cast<int>(random_() % static_cast<std::uint64_t>(bound));
}

TableEvent ChaosPolicy::AnyEvent(const Game& g) {
    ++injected;
    if (Chance(45)) {
        // Mostly a card of his own hand: the clicks that could play a card
        // at the wrong moment.
        const int card = Below(CardCount) + 1;
        if (Chance(40)) return {TableEventKind::CardClick, card};
        for (int step = 0; step < CardCount; ++step) {
            const int mine = (card + step - 1) % CardCount + 1;
            if (Card(g, mine).Place == PlacePlayerHand) return {TableEventKind::CardClick, mine};
        }
        return {TableEventKind::CardClick, card};
    }
    if (Chance(2)) return {TableEventKind::MenuMedium};
    return kEveryControl.at(static_cast<std::size_t>(Below(kEveryControl.size())));
}

std::optional<TableEvent> ChaosPolicy::Next(const Game& g) {
    if (Below(settings_.newGameOdds) == 0) {
        ++injected;
        return TableEvent{TableEventKind::MenuNewGame};
    }
    // The legal player answers whatever is asked of him, most of the time.
    // While he is awaited there is always a click, so a pump that waits
    // with nothing to come is the game's fault, never the player's.
    // A meld offer is where a stray click does most harm.
    if (const auto move = player_.Next(g)) {
        return Chance(g.MeldAwaited ? 60 : 85) ? *move : AnyEvent(g);
    }
    if (Chance(25)) return AnyEvent(g);
    return std::nullopt;
}

int ChaosPolicy::AnswerDeluxe(const Game& g, const MessageRecord& message, bool playOn) {
    if (message.title == "Play again?") return playOn ? 0 : 1;
    if (message.title == "Really Exit?") {
        const int leave = ButtonIndex(message, "Yes Exit");
        // The close box's question passes to the menu's, which asks again
        // while a game is on: leaving at the first is safe then.
        const bool secondQuestionFollows = leave == 0 && g.GameOn;
        if ((settings_.allowExit && Chance(3)) || (secondQuestionFollows && Chance(50))) {
            if (!secondQuestionFollows) ++exitsTaken;
            return leave;
        }
        return 1 - leave;
    }
    if (message.title == "Leave this game?" || message.title == "Really Erase?" ||
        message.title == "Make choice" || message.title == "Saved Game") {
        return Below(2);
    }
    return player_.Answer(message);
}

bool ChaosPolicy::AnswerQuestion() {
    return Chance(70);
}

std::string ChaosPolicy::AnswerInput() {
    return OddName(Below(kOddNames));
}

}  // namespace trickhaven
