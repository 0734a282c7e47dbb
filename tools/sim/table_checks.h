// The rules that must hold after every step of any session, whatever was
// clicked: where the cards are, what each phase allows, that no card is
// played twice, that the trick points of a hand add up and that the totals
// are what was posted, that the flags the player waits on can be released,
// and that the data files always read back.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "game/game_state.h"

namespace trickhaven {

constexpr std::array<const char*, 2> kDataFileNames{"Data.dat", "All.dat"};
// The texts of the two data files, in that order.
using DataFiles = std::array<std::string, 2>;

class TableChecks {
public:
    // Each step of play, with the table just before it changes.
    void OnPlay(const Game& g, const PlayLogEvent& event);
    // A quiet moment: a round of events, or the return of an event handler.
    void OnRound(const Game& g);
    // Data.dat and All.dat, where they exist, read back; while every write
    // fails, they hold exactly what they held before. A saved game there
    // reads whole too, and none is written while every write fails.
    void CheckDataFiles(const std::filesystem::path& folder,
                        const std::optional<DataFiles>& frozen);
    // The program starts again: a game it takes up must stand where the
    // last hand of the run before left it.
    void NewRun() { firstHandOfRun_ = true; }

    void Fail(const std::string& what);

    long violations = 0;
    // The first few, for the report.
    std::vector<std::string> notes;

private:
    void StartHand(const Game& g);
    void CheckCardPlayed(const Game& g, const PlayLogEvent& event);
    void CheckLead(const Game& g, int trick);
    void CheckTrick(const Game& g, const PlayLogEvent& event);
    void CheckHandEnd(const Game& g);
    void CheckTotals(const Game& g, const char* when);

    bool dealSeen_ = true;
    std::array<bool, CardCount + 1> played_{};
    std::array<bool, CardCount + 1> seenOnPile_{};
    // Tricks booked in this hand; the one in play is the next.
    int tricksDone_ = 0;
    std::array<int, 2> trickCards_{};
    std::array<int, 2> trickWho_{};
    int cardsInTrick_ = 0;
    int lastWinner_ = 0;
    int drawsSinceTrick_ = 0;
    int upCardAtDeal_ = 0;
    int dealer_ = 0;
    // Items 1 and 2: the player and the robot.
    std::array<int, 3> trickPoints_{};
    std::array<int, 3> meldPoints_{};
    // The points of a meld made since the last trick, which may not be
    // posted yet.
    std::array<int, 3> meldInFlight_{};
    std::array<int, 3> totals_{};
    // The totals as the last hand's end, or the game's start, saved them.
    std::array<int, 3> standing_{};
    bool firstHandOfRun_ = false;
};

// The winner of two cards, the first led, by the rules of both rounds.
int WinnerOfTrick(int leader, const CardRec& led, const CardRec& followed, int trumps);

}  // namespace trickhaven
