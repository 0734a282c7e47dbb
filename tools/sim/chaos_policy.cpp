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

long ChaosPolicy::KeysPressed() const {
    long all = messageKeys_;
    for (const long count : keyboard_.presses) all += count;
    return all;
}

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

// The move by keys, half the time; a card the keys cannot reach is clicked.
std::optional<TableEvent> ChaosPolicy::Keyed(const Game& g, const TableEvent& move) {
    if (Chance(50)) return move;
    const auto keyed = keyboard_.PressToward(g, table_, move);
    if (!keyed) return move;
    if (keyed->kind != move.kind || keyed->index != move.index) ++keysAstray;
    return keyed;
}

// One to four keys struck anywhere on the table, the last of them often a
// click of what has the focus.
std::optional<TableEvent> ChaosPolicy::AnyKeys(const Game& g) {
    constexpr std::array<TableKey, 10> kKeys{
        TableKey::Left,    TableKey::Right, TableKey::Home,  TableKey::End,    TableKey::Tab,
        TableKey::BackTab, TableKey::Enter, TableKey::Space, TableKey::Escape, TableKey::Knock};
    ++injected;
    std::optional<TableEvent> event;
    for (int n = Below(4) + 1; n > 0 && !event; --n) {
        event =
            keyboard_.Press(g, table_, {kKeys.at(static_cast<std::size_t>(Below(kKeys.size())))});
    }
    return event;
}

std::optional<TableEvent> ChaosPolicy::Next(const Game& g) {
    keyboard_.Follow(g, table_);
    if (Below(settings_.newGameOdds) == 0) {
        ++injected;
        return TableEvent{TableEventKind::MenuNewGame};
    }
    // The legal player answers whatever is asked of him, most of the time.
    // While he is awaited there is always a click, so a pump that waits
    // with nothing to come is the game's fault, never the player's.
    // A meld offer is where a stray click does most harm.
    if (const auto move = player_.Next(g)) {
        if (Chance(g.MeldAwaited ? 60 : 85)) return Keyed(g, *move);
        if (Chance(50)) {
            if (const auto keyed = AnyKeys(g)) return keyed;
        }
        return AnyEvent(g);
    }
    if (Chance(25)) return Chance(50) ? AnyEvent(g) : AnyKeys(g);
    return std::nullopt;
}

// Half the answers by keys, now and then after keys that answer nothing.
int ChaosPolicy::AnswerByKeys(const MessageRecord& message, int button) {
    if (Chance(50)) return button;
    std::vector<KeyPress> keys;
    if (Chance(20)) keys.push_back({TableKey::Left});
    if (Chance(20) && !RefusingButton(message.buttons)) keys.push_back({TableKey::Escape});
    if (Chance(20)) keys.push_back({TableKey::AltLetter, static_cast<char>('a' + Below(26))});
    const std::vector<KeyPress> answer = KeysToAnswer(message, button);
    keys.insert(keys.end(), answer.begin(), answer.end());
    messageKeys_ += static_cast<long>(keys.size());
    const std::optional<int> answered = trickhaven::AnswerByKeys(message, keys);
    if (answered != button) ++keysAstray;
    return answered.value_or(button);
}

int ChaosPolicy::AnswerDeluxe(const Game& g, const MessageRecord& message, bool playOn) {
    return AnswerByKeys(message, ChooseAnswer(g, message, playOn));
}

int ChaosPolicy::ChooseAnswer(const Game& g, const MessageRecord& message, bool playOn) {
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
