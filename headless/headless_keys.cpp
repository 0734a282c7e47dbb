#include "headless/headless_keys.h"

#include "game/game_state.h"

namespace trickhaven {

TableSight SightOf(const HeadlessTable& table) {
    TableSight sight{};
    for (int card = 1; card <= CardCount; ++card) {
        const CardPicture& picture = table.Picture(card);
        sight.at(static_cast<std::size_t>(card)) = {picture.left, picture.top, picture.visible,
                                                    picture.image != CardBackImage};
    }
    return sight;
}

std::optional<TableEvent> HeadlessKeyboard::Press(const Game& g, const HeadlessTable& table,
                                                  KeyPress key) {
    ++presses.at(static_cast<std::size_t>(key.key));
    return PressTableKey(focus_, g, SightOf(table), key);
}

std::optional<TableEvent> HeadlessKeyboard::PressToward(const Game& g, const HeadlessTable& table,
                                                        const TableEvent& wanted) {
    if (wanted.kind == TableEventKind::KnockClick) return Press(g, table, {TableKey::Knock});
    return Walk(g, table, wanted);
}

// Tab round the table to the stop, then along the hand: each stop and each
// card is passed at most once, so a key that fails to move ends the walk.
std::optional<TableEvent> HeadlessKeyboard::Walk(const Game& g, const HeadlessTable& table,
                                                 const TableEvent& wanted) {
    const bool card = wanted.kind == TableEventKind::CardClick;
    auto atStop = [&] {
        return card
                   ? focus_.stop == TableStop::Hand
                   : focus_.stop != TableStop::Hand && StopClick(focus_.stop).kind == wanted.kind &&
                         StopClick(focus_.stop).index == wanted.index;
    };
    Follow(g, table);
    for (int step = 0; step < TableStopCount && !atStop(); ++step) {
        Press(g, table, {TableKey::Tab});
    }
    if (!atStop()) return std::nullopt;
    if (card) {
        Press(g, table, {TableKey::Home});
        while (focus_.hand.card != wanted.index) {
            const int before = focus_.hand.card;
            Press(g, table, {TableKey::Right});
            if (focus_.hand.card == before) break;
        }
        if (focus_.hand.card != wanted.index) return std::nullopt;
    }
    return Press(g, table, {TableKey::Enter});
}

bool HeadlessKeyboard::Used() const {
    for (const long count : presses) {
        if (count != 0) return true;
    }
    return false;
}

void HeadlessKeyboard::Follow(const Game& g, const HeadlessTable& table) {
    FollowTable(focus_, g, SightOf(table));
}

std::optional<std::string> PressReview(const Game& g, const HeadlessTable& table,
                                       const TableReview& review, const std::string& lastTold,
                                       char letter) {
    const std::optional<ReviewKind> kind = ReviewOfLetter(letter);
    if (!kind) return std::nullopt;
    return review.Tell(*kind, g, SightOf(table), lastTold);
}

std::vector<KeyPress> KeysToAnswer(const MessageRecord& message, int button) {
    if (button == 0) return {{TableKey::Enter}};
    if (RefusingButton(message.buttons) == button) return {{TableKey::Escape}};
    std::vector<KeyPress> keys(static_cast<std::size_t>(button), KeyPress{TableKey::Tab});
    keys.push_back({TableKey::Space});
    return keys;
}

std::optional<int> AnswerByKeys(const MessageRecord& message, const std::vector<KeyPress>& keys) {
    MessageFocus focus;
    for (const KeyPress key : keys) {
        if (const auto button = PressMessageKey(focus, message.buttons, key)) return button;
    }
    return std::nullopt;
}

}  // namespace trickhaven
