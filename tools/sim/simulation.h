// Whole sessions of the game on the headless table: a player policy (or the
// chaos player) against the robot, the checks of the table after every step,
// the transcript, and what the run cost.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace trickhaven {

struct SimOptions {
    std::string policy = "first";   // first, random, greedy, expert or chaos
    std::string robot = "classic";  // classic or expert
    long games = 10;
    // Stop once this many hands are over; 0 plays the games out.
    long hands = 0;
    std::uint64_t seed = 1;
    int speed = 100;
    // Where the transcript goes; none without.
    std::FILE* transcript = nullptr;
    // The program's folder for Data.dat and All.dat; empty for a fresh
    // temporary one.
    std::filesystem::path dataDir;
    // Every write of a data file fails; Data.dat must stay as it was.
    bool failWrites = false;
    // The chaos player may now and then leave by an exit question; the
    // program is then started again.
    bool allowExit = false;
    // Hand counts after which the stack depth and the memory are sampled.
    std::vector<long> checkpoints;
    // A mark taken at the outermost frame of the process; 0 takes one at the
    // start of the run.
    std::uintptr_t stackBase = 0;
};

struct Checkpoint {
    long hands = 0;
    // Depth at the player's first lead of the next hand he leads, a point
    // reached always by the same calls.
    long stackDepth = 0;
    long deepestStack = 0;
    long residentKiB = 0;
};

struct SimReport {
    long games = 0;
    long hands = 0;
    long tricks = 0;
    long playerWins = 0;
    long robotWins = 0;
    long handPoints = 0;
    long robotHandPoints = 0;
    long playerMelds = 0;
    long robotMelds = 0;
    // The Expert's time per decision, in milliseconds of the steady clock.
    std::vector<double> decisionMs;
    long violations = 0;
    long sessions = 0;
    long eventsServed = 0;
    long injected = 0;
    long exitsTaken = 0;
    long keysPressed = 0;
    // Saved games taken up at a restart.
    long gamesTakenUp = 0;
    std::vector<std::string> notes;
    std::vector<Checkpoint> checkpoints;
    std::uint64_t signature = 0xCBF29CE484222325ULL;

    void Sign(const std::string& text);
};

bool IsKnownPolicy(const std::string& name);
bool IsKnownRobot(const std::string& name);

SimReport Simulate(const SimOptions& options);

}  // namespace trickhaven
