// Plays whole games on the headless table with the real logic and a player
// policy, and reports what happened, how fast, and any broken invariant.
//
//   trickhaven-sim --policy first|random|greedy --games N --seed S --speed MS
//
// The last line is a signature of everything the games said; the self-check
// test compares it for a fixed seed.
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tests/headless/headless_game.h"
#include "tests/headless/player_policy.h"

namespace trickhaven {
namespace {

struct SimOptions {
    PolicyKind policy = PolicyKind::First;
    long games = 10;
    std::uint64_t seed = 1;
    int speed = 100;
};

struct SimReport {
    long games = 0;
    long hands = 0;
    long tricks = 0;
    long playerWins = 0;
    long robotWins = 0;
    long handPoints = 0;
    long violations = 0;
    std::uint64_t signature = 0xCBF29CE484222325ULL;

    void Sign(const std::string& text) {
        for (const char c : text) {
            signature = (signature ^ static_cast<unsigned char>(c)) * 0x100000001B3ULL;
        }
    }
};

// The trick points of a finished hand: the 240 of the cards and the 10 of the
// last trick, and 10 more when the dealer turned up a nine.
bool TrickPointsAddUp(const Game& g) {
    const int sum = g.PlayerTotalTricks + g.OpponentTotalTricks;
    return sum == 250 || sum == 260;
}

bool HandSizesFit(const Game& g) {
    int player = 0;
    int robot = 0;
    for (int card = 1; card <= CardCount; ++card) {
        player += Card(g, card).Place == PlacePlayerHand ? 1 : 0;
        robot += Card(g, card).Place == PlaceOpponentHand ? 1 : 0;
    }
    const int most = g.RoundTwoOn ? 12 : 13;
    return player <= most && robot <= most;
}

SimReport Simulate(const SimOptions& options) {
    SimReport report;
    HeadlessGame hg(options.seed);
    hg.table.keepHistory = false;
    PlayerPolicy player(options.policy, options.seed ^ 0x5EEDULL);
    int lastTrick = 0;

    hg.table.answerDeluxe = [&](const MessageRecord& m) {
        report.Sign(m.title + m.text);
        const Game& g = hg.game;
        const bool handOver = g.RoundTwoOn && g.TrickCount == 24;
        if (m.title == "Hand Won" || m.title == "Hand Lost" || m.title == "Draw" ||
            (m.title == "Play again?" && handOver)) {
            ++report.hands;
            report.handPoints += g.PlayerTotalMelds + g.PlayerTotalTricks;
            report.violations += TrickPointsAddUp(g) ? 0 : 1;
        }
        if (m.title == "Play again?") {
            ++report.games;
            return report.games < options.games ? 0 : 1;
        }
        return player.Answer(m);
    };
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.policy = [&](Game& g) -> std::optional<TableEvent> {
        if (g.GameSpeed != options.speed) g.GameSpeed = static_cast<std::int16_t>(options.speed);
        if (g.TrickCount != lastTrick) {
            lastTrick = g.TrickCount;
            report.tricks += lastTrick > 0 ? 1 : 0;
        }
        report.violations += HandSizesFit(g) ? 0 : 1;
        return player.Next(g);
    };
    hg.Run();
    report.playerWins = hg.game.GameStats[1];
    report.robotWins = hg.game.GameStats[2];
    report.Sign(std::to_string(report.playerWins) + "/" + std::to_string(report.robotWins));
    return report;
}

bool ParseOptions(int argc, char** argv, SimOptions& options) {
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string flag = argv[i];
        const std::string value = argv[i + 1];
        if (flag == "--policy") {
            const auto kind = PolicyKindByName(value);
            if (!kind) return false;
            options.policy = *kind;
        } else if (flag == "--games") {
            options.games = std::atol(value.c_str());
        } else if (flag == "--seed") {
            options.seed = std::strtoull(value.c_str(), nullptr, 10);
        } else if (flag == "--speed") {
            options.speed = std::atoi(value.c_str());
        } else {
            return false;
        }
    }
    return argc % 2 == 1 && options.games > 0 && options.speed >= 0 && options.speed <= 5000;
}

}  // namespace
}  // namespace trickhaven

int main(int argc, char** argv) {
    using namespace trickhaven;
    SimOptions options;
    if (!ParseOptions(argc, argv, options)) {
        std::fprintf(stderr,
                     "usage: trickhaven-sim [--policy first|random|greedy] [--games N] "
                     "[--seed S] [--speed MS]\n");
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    const SimReport report = Simulate(options);
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("games: %ld\nhands: %ld\ntricks: %ld\n", report.games, report.hands, report.tricks);
    std::printf("wins: player %ld, robot %ld\n", report.playerWins, report.robotWins);
    std::printf("mean player score per hand: %.1f\n",
                report.hands > 0 ? static_cast<double>(report.handPoints) / report.hands : 0.0);
    std::printf("hands per second: %.0f\n", seconds > 0 ? report.hands / seconds : 0.0);
    std::printf("peak resident memory: %ld KiB\n", usage.ru_maxrss);
    std::printf("violations: %ld\n", report.violations);
    std::printf("signature: %016llx\n", static_cast<unsigned long long>(report.signature));
    return report.violations > 0 ? 1 : 0;
}
