// The whole shared state of a run: the card table and every game variable.
// One plain struct, made once by the program and once per test, so that two
// games can live side by side in one process. Routines are free functions
// over it.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "forms/platform.h"
#include "forms/table_view.h"
#include "game/card_random.h"
#include "game/card_table.h"
#include "game/play_log.h"

namespace trickhaven {

// The two robots: the design's, with its fixed lists, and the one that
// searches what its seat can see.
enum class RobotKind : std::uint8_t { Classic, Expert };

// What the table has shown of the hand in play, the same to both seats:
// every card played, and the cards seen going into each hand (the up card
// at a dix exchange, the last two cards of Round One), as bit (i - 1) for
// card i.
struct ShownCards {
    std::uint64_t played = 0;
    std::array<std::uint64_t, 3> intoHand{};
};

// A game between two hands: all that the next deal needs to go on with it.
struct GameStanding {
    std::int16_t PlayerTotal = 0;
    std::int16_t OpponentTotal = 0;
    std::int16_t TargetScore = 1000;
    int NextDealer = 1;
    std::uint8_t HandsPlayed = 0;
    std::uint64_t DealSeed = 0;
    // The robot of the next deal.
    RobotKind Robot = RobotKind::Classic;
};

// What the session loop is asked to do once the running routines unwind.
enum class SessionRequest { None, NewGame, Quit };

struct Game {
    Game(TableView& table, Platform& machine) : view(table), platform(machine) {}

    TableView& view;
    Platform& platform;
    // The program's folder: Data.dat, All.dat and the sounds lie here.
    std::filesystem::path DataFolder;

    CardTable Cards{};

    // Settings and records.
    std::string PlayerName = "Player";
    std::string OpponentName;
    std::int16_t GameSpeed = 100;
    std::int16_t TargetScore = 0;
    std::array<std::int32_t, 3> GameStats{};  // items 1 and 2
    // The robot the menu has chosen, and the one playing this deal: a
    // change in mid-game waits for the next deal.
    RobotKind ChosenRobot = RobotKind::Classic;
    RobotKind Robot = RobotKind::Classic;
    // Games won against the Expert, kept apart from GameStats, which stay
    // the Classic robot's: item 1 by the player, item 2 by the Expert.
    std::array<std::int32_t, 3> ExpertStats{};

    // Pacing.
    std::int16_t DelayMs = 0;
    std::int32_t DelayStart = 0;
    // How long the Expert has just thought: the next wait is that much
    // shorter, so that its thinking falls inside the robot's pause.
    std::int32_t ThinkingMs = 0;

    // The run of a game.
    bool GameOn = false;
    int Dealer = 0;
    int Leader = 0;
    std::uint8_t HandNumber = 0;
    bool RoundOneOn = false;
    bool RoundTwoOn = false;
    int TrickCount = 0;
    bool PlayerMayPlay = false;
    bool MeldAwaited = false;
    bool MeldDone = false;
    bool PlayerKnocked = false;

    // The table and the trick.
    int TrumpSuit = NoSuit;
    int UpCard = 0;
    std::int16_t StockLeft = 0;
    int LastStockCard = 0;
    int LeadCard = 0;
    int FollowCard = 0;
    int LeadSuit = NoSuit;
    int FollowSuit = NoSuit;
    std::int16_t PlayerPileLeft = 10440;
    std::int16_t OpponentPileLeft = 10440;

    // Scores.
    std::int16_t PlayerLastMeld = 0;
    std::int16_t OpponentLastMeld = 0;
    std::int16_t PlayerLastTrick = 0;
    std::int16_t OpponentLastTrick = 0;
    std::int16_t PlayerTotalMelds = 0;
    std::int16_t OpponentTotalMelds = 0;
    std::int16_t PlayerTotalTricks = 0;
    std::int16_t OpponentTotalTricks = 0;
    std::int16_t PlayerTotal = 0;
    std::int16_t OpponentTotal = 0;
    bool PlayerPinochleMade = false;
    bool OpponentPinochleMade = false;
    bool PlayerDoublePinochleMade = false;
    bool OpponentDoublePinochleMade = false;

    std::int16_t MessageChoice = 0;

    // Every card that leaves the stock in a hand, in the deal and in the
    // draws, comes from one stream begun from the hand's seed; the seed of
    // the next hand is chosen, and saved, before that hand is dealt.
    std::uint64_t NextDealSeed = 0;
    CardRandom HandCards;

    // A saved game taken up at the first New Game, waiting for the new
    // game's set-up.
    std::optional<GameStanding> ResumedGame;

    // Guards of re-entry that the rules leave open. While the closing
    // sequence of Round One runs, a click on the player's hand plays
    // nothing; while a meld routine started from a meld panel runs, the
    // panels' buttons do nothing.
    bool RoundOneClosing = false;
    bool MeldCommandRunning = false;

    // Set by a new game or an exit; the waits and pumps then unwind the
    // running routines back to the session loop.
    SessionRequest Request = SessionRequest::None;

    ShownCards Shown;

    // Told of every step of play, just before the step changes the table;
    // empty in the program itself.
    std::function<void(const Game&, const PlayLogEvent&)> onPlay;
    // Told as the Expert starts (true) and ends (false) a decision; empty in
    // the program itself.
    std::function<void(bool)> onThinking;
};

// The record of card index 1..48.
inline CardRec& Card(Game& g, int index) {
    return g.Cards.at(static_cast<std::size_t>(index));
}
inline const CardRec& Card(const Game& g, int index) {
    return g.Cards.at(static_cast<std::size_t>(index));
}

// Tells the listener, and remembers what was shown: a card played, and
// the last two cards of Round One, which lie face up as they are shared.
inline void LogPlay(Game& g, const PlayLogEvent& event) {
    if (g.onPlay) g.onPlay(g, event);
    const std::uint64_t bit = event.card > 0 ? std::uint64_t{1} << (event.card - 1) : 0;
    if (event.kind == PlayLogKind::Card) g.Shown.played |= bit;
    if (event.kind == PlayLogKind::Draw && g.TrickCount == 12) {
        g.Shown.intoHand.at(static_cast<std::size_t>(event.who)) |= bit;
    }
}

}  // namespace trickhaven
