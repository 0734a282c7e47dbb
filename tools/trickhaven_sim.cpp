// Plays whole sessions on the headless table with the real logic and a
// player policy, checks the table after every step, and reports what
// happened, how fast, what it cost, and any broken rule.
//
//   trickhaven-sim [--policy first|random|greedy|expert|chaos] [--robot classic|expert]
//                  [--games N] [--hands N]
//                  [--seed S] [--speed MS] [--transcript FILE] [--data-dir DIR]
//                  [--fail-writes] [--allow-exit]
//
// The last line is a signature of everything the games said; the self-check
// test compares it for a fixed seed. The exit status is 1 when a rule broke.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tools/sim/process_probe.h"
#include "tools/sim/simulation.h"

namespace trickhaven {
namespace {

struct CommandLine {
    SimOptions options;
    std::string transcriptFile;
};

bool ParseOptions(int argc, char** argv, CommandLine& line) {
    SimOptions& options = line.options;
    for (int i = 1; i < argc; ++i) {
        const std::string flag = argv[i];
        if (flag == "--fail-writes") {
            options.failWrites = true;
            continue;
        }
        if (flag == "--allow-exit") {
            options.allowExit = true;
            continue;
        }
        if (i + 1 >= argc) return false;
        const std::string value = argv[++i];
        if (flag == "--policy") {
            if (!IsKnownPolicy(value)) return false;
            options.policy = value;
        } else if (flag == "--robot") {
            if (!IsKnownRobot(value)) return false;
            options.robot = value;
        } else if (flag == "--games") {
            options.games = std::atol(value.c_str());
        } else if (flag == "--hands") {
            options.hands = std::atol(value.c_str());
        } else if (flag == "--seed") {
            options.seed = std::strtoull(value.c_str(), nullptr, 10);
        } else if (flag == "--speed") {
            options.speed = std::atoi(value.c_str());
        } else if (flag == "--transcript") {
            line.transcriptFile = value;
        } else if (flag == "--data-dir") {
            options.dataDir = value;
        } else {
            return false;
        }
    }
    return options.games > 0 && options.hands >= 0 && options.speed >= 0 && options.speed <= 5000;
}

double PerHand(long total, long hands) {
    return hands > 0 ? static_cast<double>(total) / static_cast<double>(hands) : 0.0;
}

// The share of games the player won, with its 95% interval (Wilson's).
void PrintWinShare(const SimReport& report) {
    const double n = static_cast<double>(report.playerWins + report.robotWins);
    if (n == 0) return;
    const double p = static_cast<double>(report.playerWins) / n;
    const double z = 1.96;
    const double centre = (p + z * z / (2 * n)) / (1 + z * z / n);
    const double half = z * std::sqrt(p * (1 - p) / n + z * z / (4 * n * n)) / (1 + z * z / n);
    std::printf("player won %.1f%% of games (95%% interval %.1f%% to %.1f%%)\n", 100 * p,
                100 * std::max(0.0, centre - half), 100 * std::min(1.0, centre + half));
}

// The Expert's time per decision: median, 99th percentile and worst.
void PrintDecisionTimes(std::vector<double> ms) {
    if (ms.empty()) return;
    std::sort(ms.begin(), ms.end());
    auto at = [&ms](double share) {
        return ms[static_cast<std::size_t>(share * static_cast<double>(ms.size() - 1))];
    };
    std::printf("expert decisions: %zu, median %.2f ms, 99th percentile %.2f ms, worst %.2f ms\n",
                ms.size(), at(0.5), at(0.99), ms.back());
}

void PrintReport(const SimReport& report, double seconds) {
    std::printf("games: %ld\nhands: %ld\ntricks: %ld\n", report.games, report.hands, report.tricks);
    std::printf("wins: player %ld, robot %ld\n", report.playerWins, report.robotWins);
    PrintWinShare(report);
    std::printf("mean player score per hand: %.1f\n", PerHand(report.handPoints, report.hands));
    std::printf("points per hand: player %.1f, robot %.1f\n",
                PerHand(report.handPoints, report.hands),
                PerHand(report.robotHandPoints, report.hands));
    std::printf("melds per hand: player %.2f, robot %.2f\n",
                PerHand(report.playerMelds, report.hands),
                PerHand(report.robotMelds, report.hands));
    PrintDecisionTimes(report.decisionMs);
    std::printf("hands per second: %.0f\n", seconds > 0 ? report.hands / seconds : 0.0);
    std::printf(
        "events served: %ld, injected: %ld, keys pressed: %ld, program starts: %ld, exits taken: "
        "%ld, games taken up: %ld\n",
        report.eventsServed, report.injected, report.keysPressed, report.sessions,
        report.exitsTaken, report.gamesTakenUp);
    for (const Checkpoint& point : report.checkpoints) {
        std::printf("after %ld hands: stack depth %ld bytes (deepest %ld), resident %ld KiB\n",
                    point.hands, point.stackDepth, point.deepestStack, point.residentKiB);
    }
    std::printf("peak resident memory: %ld KiB\n", PeakResidentKiB());
    std::printf("violations: %ld\n", report.violations);
    for (const std::string& note : report.notes) std::printf("  violation: %s\n", note.c_str());
    std::printf("signature: %016llx\n", static_cast<unsigned long long>(report.signature));
}

}  // namespace
}  // namespace trickhaven

int main(int argc, char** argv) {
    using namespace trickhaven;
    const std::uintptr_t stackBase = StackMark();
    CommandLine line;
    if (!ParseOptions(argc, argv, line)) {
        std::fprintf(stderr,
                     "usage: trickhaven-sim [--policy first|random|greedy|expert|chaos] "
                     "[--robot classic|expert] [--games N] "
                     "[--hands N] [--seed S] [--speed MS] [--transcript FILE] [--data-dir DIR] "
                     "[--fail-writes] [--allow-exit]\n");
        return 2;
    }
    SimOptions& options = line.options;
    options.stackBase = stackBase;
    options.checkpoints = {100, 1000, 10000};
    std::FILE* transcript = nullptr;
    if (!line.transcriptFile.empty()) {
        transcript = std::fopen(line.transcriptFile.c_str(), "wb");
        if (transcript == nullptr) {
            std::fprintf(stderr, "cannot write %s\n", line.transcriptFile.c_str());
            return 2;
        }
        options.transcript = transcript;
    }
    const auto start = std::chrono::steady_clock::now();
    const SimReport report = Simulate(options);
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (transcript != nullptr) std::fclose(transcript);
    PrintReport(report, seconds);
    return report.violations > 0 ? 1 : 0;
}
