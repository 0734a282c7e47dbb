#include "game/table_keys.h"

#include <algorithm>
#include <cctype>
#include <tuple>

namespace trickhaven {

namespace {

struct StopDesign {
    const char* control;
    TableEvent click;
    // The control whose showing lets Tab reach the stop: the button itself
    // or the panel that holds it.
    TableControl shownWith;
};

using E = TableEventKind;

// In Tab's order, TableStop by TableStop. The hand's row has no control: its
// click is the focused card's.
constexpr std::array<StopDesign, TableStopCount> kStops{{
    {"", {E::CardClick}, TableControl::CmdSort},
    {"CmdSort", {E::SortClick}, TableControl::CmdSort},
    {"LblKnock", {E::KnockClick}, TableControl::LblKnock},
    {"CmdDBezique", {E::DoublePinochleClick}, TableControl::FramDeclare},
    {"CmdBezique", {E::PinochleClick}, TableControl::FramDeclare},
    {"CmdSequence", {E::RunClick}, TableControl::FramDeclare},
    {"CmdFours3", {E::FoursClick, 3}, TableControl::FramDeclare},
    {"CmdFours0", {E::FoursClick, 0}, TableControl::FramDeclare},
    {"CmdFours1", {E::FoursClick, 1}, TableControl::FramDeclare},
    {"CmdFours2", {E::FoursClick, 2}, TableControl::FramDeclare},
    {"cmdDec7Trumps", {E::DixClick}, TableControl::FramDeclare},
    {"CmdMakeMarriage4", {E::MakeMarriageClick}, TableControl::FramDeclare},
    {"CmdCancel", {E::CancelClick}, TableControl::FramDeclare},
    {"CmdMarriage1", {E::MarriageClick, Diamonds}, TableControl::FramMarriage},
    {"CmdMarriage2", {E::MarriageClick, Clubs}, TableControl::FramMarriage},
    {"CmdMarriage3", {E::MarriageClick, Hearts}, TableControl::FramMarriage},
    {"CmdMarriage4", {E::MarriageClick, Spades}, TableControl::FramMarriage},
    {"Command1", {E::ReminderOkClick}, TableControl::FramMeldHelp},
}};

const StopDesign& Design(TableStop stop) {
    return kStops.at(static_cast<std::size_t>(stop));
}

// Each panel that takes the focus as it comes up, with its first button.
struct PanelDesign {
    TableControl panel;
    TableStop first;
};
constexpr std::array<PanelDesign, 3> kPanels{{
    {TableControl::FramDeclare, TableStop::DoublePinochle},
    {TableControl::FramMarriage, TableStop::MarriageDiamonds},
    {TableControl::FramMeldHelp, TableStop::ReminderOk},
}};

std::string FirstWord(const std::string& caption) {
    std::string word;
    for (const char c : caption) {
        if (c == '&') continue;
        if (c == ' ') {
            if (word.empty()) continue;
            break;
        }
        word += c;
    }
    return word;
}

}  // namespace

std::vector<int> HandChain(const Game& g, const TableSight& sight) {
    std::vector<int> chain;
    for (int card = 1; card <= CardCount; ++card) {
        const CardSight& seen = sight.at(static_cast<std::size_t>(card));
        if (Card(g, card).Place == PlacePlayerHand && seen.shown && seen.faceUp) {
            chain.push_back(card);
        }
    }
    auto order = [&](int card) {
        const CardSight& seen = sight.at(static_cast<std::size_t>(card));
        return std::make_tuple(Card(g, card).Melded, seen.top, seen.left, card);
    };
    std::sort(chain.begin(), chain.end(), [&](int a, int b) { return order(a) < order(b); });
    return chain;
}

void FollowHand(HandFocus& focus, const std::vector<int>& chain, bool dealt) {
    if (chain.empty()) {
        focus = {};
        return;
    }
    if (!focus.walked && dealt) {
        focus.position = 0;
        focus.card = chain.front();
        return;
    }
    const auto kept = std::find(chain.begin(), chain.end(), focus.card);
    if (kept != chain.end()) {
        focus.position = static_cast<std::size_t>(kept - chain.begin());
        return;
    }
    focus.position = std::min(focus.position, chain.size() - 1);
    focus.card = chain[focus.position];
}

bool MoveHandFocus(HandFocus& focus, const std::vector<int>& chain, TableKey key) {
    FollowHand(focus, chain);
    if (chain.empty()) return false;
    const std::size_t last = chain.size() - 1;
    switch (key) {
        case TableKey::Left:
            focus.position = focus.position == 0 ? 0 : focus.position - 1;
            break;
        case TableKey::Right:
            focus.position = std::min(focus.position + 1, last);
            break;
        case TableKey::Home:
            focus.position = 0;
            break;
        case TableKey::End:
            focus.position = last;
            break;
        default:
            return false;
    }
    focus.card = chain[focus.position];
    focus.walked = true;
    return true;
}

const char* StopControlName(TableStop stop) {
    return Design(stop).control;
}

TableEvent StopClick(TableStop stop) {
    return Design(stop).click;
}

bool StopShown(const TableView& view, TableStop stop, bool handHasCard) {
    if (stop == TableStop::Hand) return handHasCard;
    return view.IsControlVisible(Design(stop).shownWith);
}

TableStop NextStop(const TableView& view, TableStop from, bool forward, bool handHasCard) {
    const int step = forward ? 1 : TableStopCount - 1;
    int at = static_cast<int>(from);
    for (int tried = 1; tried < TableStopCount; ++tried) {
        at = (at + step) % TableStopCount;
        const auto stop = static_cast<TableStop>(at);
        if (StopShown(view, stop, handHasCard)) return stop;
    }
    return from;
}

namespace {

bool FollowTable(TableFocus& focus, const Game& g, const std::vector<int>& chain) {
    // A screen reader speaks each move of the focus: it does not go along
    // with every card the deal brings.
    FollowHand(focus.hand, chain, g.RoundOneOn || g.RoundTwoOn);
    for (std::size_t i = 0; i < kPanels.size(); ++i) {
        const bool up = g.view.IsControlVisible(kPanels.at(i).panel);
        if (up && !focus.panelsUp.at(i)) focus.stop = kPanels.at(i).first;
        focus.panelsUp.at(i) = up;
    }
    const bool handHasCard = !chain.empty();
    if (!StopShown(g.view, focus.stop, handHasCard)) focus.stop = TableStop::Hand;
    return handHasCard;
}

std::optional<TableEvent> PressEscape(const TableView& view) {
    if (view.IsControlVisible(TableControl::FramMeldHelp)) return StopClick(TableStop::ReminderOk);
    if (view.IsControlVisible(TableControl::FramDeclare)) return StopClick(TableStop::Cancel);
    return std::nullopt;
}

}  // namespace

void FollowTable(TableFocus& focus, const Game& g, const TableSight& sight) {
    FollowTable(focus, g, HandChain(g, sight));
}

std::optional<TableEvent> PressTableKey(TableFocus& focus, const Game& g, const TableSight& sight,
                                        KeyPress key) {
    const std::vector<int> chain = HandChain(g, sight);
    const bool handHasCard = FollowTable(focus, g, chain);
    switch (key.key) {
        case TableKey::Left:
        case TableKey::Right:
        case TableKey::Home:
        case TableKey::End:
            if (focus.stop == TableStop::Hand) MoveHandFocus(focus.hand, chain, key.key);
            return std::nullopt;
        case TableKey::Tab:
        case TableKey::BackTab:
            focus.stop = NextStop(g.view, focus.stop, key.key == TableKey::Tab, handHasCard);
            return std::nullopt;
        case TableKey::Enter:
        case TableKey::Space:
            if (focus.stop != TableStop::Hand) return StopClick(focus.stop);
            if (focus.hand.card == 0) return std::nullopt;
            focus.hand.walked = true;
            return TableEvent{TableEventKind::CardClick, focus.hand.card};
        case TableKey::Knock:
            if (!g.view.IsControlVisible(TableControl::LblKnock)) return std::nullopt;
            return TableEvent{TableEventKind::KnockClick};
        case TableKey::Escape:
            return PressEscape(g.view);
        case TableKey::AltLetter:
            return std::nullopt;
    }
    return std::nullopt;
}

std::optional<int> RefusingButton(const std::array<std::string, 3>& captions) {
    for (int i = 0; i < 3; ++i) {
        const std::string& caption = captions.at(static_cast<std::size_t>(i));
        const std::string word = FirstWord(caption);
        if (word == "No" || word == "Cancel" || caption == "Carry On") return i;
    }
    return std::nullopt;
}

char MarkedLetter(const std::string& caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != '&') continue;
        if (caption[i + 1] == '&') {
            ++i;
            continue;
        }
        return static_cast<char>(std::tolower(static_cast<unsigned char>(caption[i + 1])));
    }
    return 0;
}

std::optional<int> PressMessageKey(MessageFocus& focus, const std::array<std::string, 3>& captions,
                                   KeyPress key) {
    auto shown = [&](int i) { return !captions.at(static_cast<std::size_t>(i)).empty(); };
    switch (key.key) {
        case TableKey::Enter:
        case TableKey::Space:
            return focus.button;
        case TableKey::Tab:
        case TableKey::BackTab: {
            const int step = key.key == TableKey::Tab ? 1 : 2;
            for (int tried = 0; tried < 3; ++tried) {
                focus.button = (focus.button + step) % 3;
                if (shown(focus.button)) break;
            }
            return std::nullopt;
        }
        case TableKey::Escape:
            return RefusingButton(captions);
        case TableKey::AltLetter: {
            const char wanted =
                static_cast<char>(std::tolower(static_cast<unsigned char>(key.letter)));
            for (int i = 0; i < 3; ++i) {
                if (wanted != 0 &&
                    MarkedLetter(captions.at(static_cast<std::size_t>(i))) == wanted) {
                    return i;
                }
            }
            return std::nullopt;
        }
        default:
            return std::nullopt;
    }
}

}  // namespace trickhaven
