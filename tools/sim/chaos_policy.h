// A player who clicks anything at any moment: any card, every meld and
// marriage button, the knock, the sort, every menu command, with odd names
// and every answer to the questions, while still playing mostly legal cards
// so that games come to an end. He presses keys as often as he clicks:
// walking to his move, striking keys at random, answering messages.
#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string>

#include "game/game_state.h"
#include "headless/headless_keys.h"
#include "headless/headless_table.h"
#include "headless/player_policy.h"

namespace trickhaven {

struct ChaosSettings {
    // Whether an exit question may now and then be answered with leaving.
    bool allowExit = false;
    // One round in this many brings a "New Game" from the menu.
    int newGameOdds = 4000;
};

class ChaosPolicy {
public:
    ChaosPolicy(std::uint64_t seed, ChaosSettings settings, const HeadlessTable& table)
        : settings_(settings),
          random_(seed),
          player_(PolicyKind::Random, seed ^ 0xC4A05ULL),
          table_(table) {}

    std::optional<TableEvent> Next(const Game& g);

    // The answers to the boxes. playOn: the wanted games are not all played.
    int AnswerDeluxe(const Game& g, const MessageRecord& message, bool playOn);
    bool AnswerQuestion();
    std::string AnswerInput();

    long injected = 0;
    long exitsTaken = 0;
    long KeysPressed() const;
    // Keys that walked to a move or a button and clicked another one.
    long keysAstray = 0;

private:
    TableEvent AnyEvent(const Game& g);
    std::optional<TableEvent> Keyed(const Game& g, const TableEvent& move);
    std::optional<TableEvent> AnyKeys(const Game& g);
    int AnswerByKeys(const MessageRecord& message, int button);
    int ChooseAnswer(const Game& g, const MessageRecord& message, bool playOn);
    bool Chance(int percent);
    int Below(int bound);

    ChaosSettings settings_;
    std::mt19937_64 random_;
    PlayerPolicy player_;
    const HeadlessTable& table_;
    HeadlessKeyboard keyboard_;
    long messageKeys_ = 0;
};

}  // namespace trickhaven
