#include "tools/sim/simulation.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <fstream>
#include <iterator>
#include <optional>

#include "data/data_file.h"
#include "data/saved_game.h"
#include "headless/headless_game.h"
#include "headless/player_policy.h"
#include "tools/sim/chaos_policy.h"
#include "tools/sim/process_probe.h"
#include "tools/sim/table_checks.h"
#include "tools/sim/transcript.h"

namespace trickhaven {

namespace {

// The virtual clock is 32 bits of milliseconds, as the machine's tick count
// is: a very long run leaves the program and starts it again, with its
// Data.dat, before the clock could wrap.
constexpr std::int32_t kRestartAfterMs = 1 << 30;
// Rounds of events with no card played: the game no longer moves.
constexpr long kRoundsWithoutPlay = 200000;

// Every settings command saves Data.dat and waits for the disk; a folder in
// memory, where the system has one, keeps long runs from waiting on it.
std::filesystem::path ScratchFolder() {
    std::error_code error;
    const std::filesystem::path memory = "/dev/shm";
    return std::filesystem::is_directory(memory, error) ? memory
                                                        : std::filesystem::temp_directory_path();
}

class SimFolder {
public:
    explicit SimFolder(const std::filesystem::path& given) : path(given) {
        if (path.empty()) {
            static std::atomic<int> counter{0};
            path = ScratchFolder() / ("trickhaven-sim-" + std::to_string(::getpid()) + "-" +
                                      std::to_string(++counter));
            owned_ = true;
        }
        std::filesystem::create_directories(path);
    }
    ~SimFolder() {
        std::error_code error;
        for (const auto& blocker : blockers_) std::filesystem::remove(blocker, error);
        if (owned_) std::filesystem::remove_all(path, error);
    }
    SimFolder(const SimFolder&) = delete;
    SimFolder& operator=(const SimFolder&) = delete;

    // Puts a folder where each data file's temporary copy is written, so
    // that every save fails; gives both files as they stand (written first
    // where there is none).
    DataFiles BlockWrites() {
        DataFiles texts;
        for (std::size_t i = 0; i < kDataFileNames.size(); ++i) {
            const auto file = path / kDataFileNames.at(i);
            if (!std::filesystem::exists(file)) {
                WriteFileWhole(file, FormatSettingsLine(SettingsLine{}));
            }
            const auto blocker = path / (std::string(kDataFileNames.at(i)) + ".tmp");
            if (std::filesystem::create_directory(blocker)) blockers_.push_back(blocker);
            std::ifstream in(file, std::ios::binary);
            texts.at(i).assign(std::istreambuf_iterator<char>(in),
                               std::istreambuf_iterator<char>());
        }
        // No game is saved either: a standing left from before goes.
        std::filesystem::remove(path / kSavedGameName);
        const auto blocker = path / (std::string(kSavedGameName) + ".tmp");
        if (std::filesystem::create_directory(blocker)) blockers_.push_back(blocker);
        return texts;
    }

    std::filesystem::path path;

private:
    bool owned_ = false;
    std::vector<std::filesystem::path> blockers_;
};

bool IsMenuCommand(TableEventKind kind) {
    return kind >= TableEventKind::MenuNewGame;
}

// One run of the program, from its start to its exit or to the end of the
// wanted play.
class SimSession {
public:
    SimSession(const SimOptions& options, SimReport& report, TableChecks& checks,
               const std::filesystem::path& folder, const std::optional<DataFiles>& frozenData,
               std::uintptr_t stackBase)
        : options_(options),
          report_(report),
          checks_(checks),
          folder_(folder),
          frozenData_(frozenData),
          stackBase_(stackBase),
          hg_(options.seed + static_cast<std::uint64_t>(report.sessions) * 0x9E3779B9ULL),
          player_(PolicyKindByName(options.policy).value_or(PolicyKind::Random),
                  (options.seed ^ 0x5EEDULL) + static_cast<std::uint64_t>(report.sessions)),
          // A player back at the table after a restart clicks anew; the
          // same clicks on a game taken up would replay the same exit.
          chaos_((options.seed ^ 0xC4A05C4A05ULL) + static_cast<std::uint64_t>(report.sessions),
                 ChaosSettings{options.allowExit, 4000}, hg_.table) {
        if (options.transcript != nullptr) transcript_.emplace(options.transcript);
        hg_.game.DataFolder = folder;
        hg_.table.keepHistory = false;
        hg_.platform.keepHistory = false;
        Hook();
    }

    // False when the game got stuck and the run cannot go on.
    bool Run() {
        ++report_.sessions;
        checks_.NewRun();
        try {
            hg_.Run();
        } catch (const TableStuck&) {
            checks_.Fail("a pump waited for an event that could never come");
            stuck_ = true;
        }
        report_.eventsServed += hg_.platform.eventsServed;
        report_.injected += chaos_.injected;
        report_.exitsTaken += chaos_.exitsTaken;
        report_.keysPressed += chaos_.KeysPressed();
        if (chaos_.keysAstray != 0)
            checks_.Fail("keys clicked another control than they walked to");
        return !stuck_ && roundsWithoutPlay_ <= kRoundsWithoutPlay;
    }

private:
    bool Chaos() const { return options_.policy == "chaos"; }

    // A hand count reached still waits for its sample of the stack.
    bool PlayOn() const {
        return report_.games < options_.games &&
               (options_.hands == 0 || report_.hands < options_.hands || pendingCheckpoint_ != 0);
    }

    void Hook() {
        hg_.game.onThinking = [this](bool starting) { TimeDecision(starting); };
        player_.onThinking = [this](bool starting) { TimeDecision(starting); };
        // The robot is chosen as the player chooses it, in its menu.
        if (options_.robot == "expert") hg_.platform.script.push_back({TableEventKind::MenuExpert});
        hg_.platform.script.push_back({TableEventKind::MenuNewGame});
        hg_.game.onPlay = [this](const Game& g, const PlayLogEvent& e) { OnPlay(g, e); };
        hg_.table.onMessage = [this](const MessageRecord& m) {
            if (transcript_) transcript_->Message(hg_.game, m);
        };
        hg_.table.onPanelText = [this](int panel, const std::string& text) {
            if (transcript_) transcript_->Status(hg_.game, panel, text);
        };
        hg_.table.answerDeluxe = [this](const MessageRecord& m) { return AnswerDeluxe(m); };
        if (Chaos()) {
            hg_.table.answerQuestion = [this](const MessageRecord&) {
                return chaos_.AnswerQuestion();
            };
            hg_.table.answerInput = [this](const MessageRecord&) { return chaos_.AnswerInput(); };
        }
        hg_.platform.policy = [this](Game& g) { return NextEvent(g); };
        hg_.platform.stopWhen = [this](const Game&) {
            return !PlayOn() || roundsWithoutPlay_ > kRoundsWithoutPlay;
        };
        hg_.platform.afterEvent = [this](const Game& g, const TableEvent& e) {
            // A new game or an exit is unwinding: the table is half cleared.
            if (g.Request == SessionRequest::None) checks_.OnRound(g);
            if (options_.failWrites || IsMenuCommand(e.kind)) {
                checks_.CheckDataFiles(folder_, frozenData_);
            }
        };
    }

    int AnswerDeluxe(const MessageRecord& m) {
        report_.Sign(m.title + m.text);
        if (m.title == "Play again?") {
            ++report_.games;
            const bool restart = hg_.platform.TickCount() > kRestartAfterMs;
            return PlayOn() && !restart ? 0 : 1;
        }
        const int answer =
            Chaos() ? chaos_.AnswerDeluxe(hg_.game, m, PlayOn()) : player_.Answer(m, &hg_.game);
        if (m.title == "Saved Game" && answer == 0) ++report_.gamesTakenUp;
        return answer;
    }

    void OnPlay(const Game& g, const PlayLogEvent& e) {
        if (transcript_) transcript_->Play(g, e);
        checks_.OnPlay(g, e);
        switch (e.kind) {
            case PlayLogKind::Card:
                roundsWithoutPlay_ = 0;
                break;
            case PlayLogKind::Trick:
                ++report_.tricks;
                break;
            case PlayLogKind::Meld:
                ++(e.who == ThePlayer ? report_.playerMelds : report_.robotMelds);
                break;
            case PlayLogKind::HandEnd:
                ++report_.hands;
                report_.handPoints += g.PlayerTotalMelds + g.PlayerTotalTricks;
                report_.robotHandPoints += g.OpponentTotalMelds + g.OpponentTotalTricks;
                if (std::find(options_.checkpoints.begin(), options_.checkpoints.end(),
                              report_.hands) != options_.checkpoints.end()) {
                    pendingCheckpoint_ = report_.hands;
                }
                break;
            case PlayLogKind::GameEnd:
                ++(e.winner == ThePlayer ? report_.playerWins : report_.robotWins);
                checks_.CheckDataFiles(folder_, frozenData_);
                break;
            default:
                break;
        }
    }

    void TimeDecision(bool starting) {
        const auto now = std::chrono::steady_clock::now();
        if (starting) {
            thinkingSince_ = now;
        } else {
            report_.decisionMs.push_back(
                std::chrono::duration<double, std::milli>(now - thinkingSince_).count());
        }
    }

    std::optional<TableEvent> NextEvent(Game& g) {
        if (g.GameSpeed != options_.speed) g.GameSpeed = static_cast<std::int16_t>(options_.speed);
        ++roundsWithoutPlay_;
        const long depth = StackDepthFrom(stackBase_);
        deepest_ = std::max(deepest_, depth);
        if (pendingCheckpoint_ != 0 && CardAwaited(g) && g.Leader == ThePlayer &&
            g.TrickCount == 1) {
            report_.checkpoints.push_back({pendingCheckpoint_, depth, deepest_, ResidentKiB()});
            pendingCheckpoint_ = 0;
        }
        checks_.OnRound(g);
        if (roundsWithoutPlay_ == kRoundsWithoutPlay) checks_.Fail("no card played for too long");
        return Chaos() ? chaos_.Next(g) : player_.Next(g);
    }

    const SimOptions& options_;
    SimReport& report_;
    TableChecks& checks_;
    std::filesystem::path folder_;
    const std::optional<DataFiles>& frozenData_;
    std::uintptr_t stackBase_;
    HeadlessGame hg_;
    PlayerPolicy player_;
    ChaosPolicy chaos_;
    std::optional<Transcript> transcript_;
    std::chrono::steady_clock::time_point thinkingSince_;
    long roundsWithoutPlay_ = 0;
    long pendingCheckpoint_ = 0;
    long deepest_ = 0;
    bool stuck_ = false;
};

}  // namespace

void SimReport::Sign(const std::string& text) {
    for (const char c : text) {
        signature = (signature ^ static_cast<unsigned char>(c)) * 0x100000001B3ULL;
    }
}

bool IsKnownRobot(const std::string& name) {
    return name == "classic" || name == "expert";
}

bool IsKnownPolicy(const std::string& name) {
    return name == "chaos" || PolicyKindByName(name).has_value();
}

SimReport Simulate(const SimOptions& options) {
    SimReport report;
    const std::uintptr_t stackBase = options.stackBase != 0 ? options.stackBase : StackMark();
    SimFolder folder(options.dataDir);
    std::optional<DataFiles> frozenData;
    if (options.failWrites) frozenData = folder.BlockWrites();
    TableChecks checks;
    // Each pass is one start of the program; it is started again after an
    // exit that came before the wanted play was over.
    const long mostSessions = options.games + 1000;
    while (report.games < options.games && (options.hands == 0 || report.hands < options.hands) &&
           report.sessions < mostSessions) {
        SimSession session(options, report, checks, folder.path, frozenData, stackBase);
        if (!session.Run()) break;
    }
    report.Sign(std::to_string(report.playerWins) + "/" + std::to_string(report.robotWins));
    report.violations = checks.violations;
    report.notes = checks.notes;
    return report;
}

}  // namespace trickhaven
