#include "data/saved_game.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <fstream>
#include <limits>
#include <system_error>

#include "data/data_file.h"

namespace trickhaven {

namespace {

constexpr std::string_view kVersionLine = "trickhaven saved game 1";
constexpr std::string_view kExpertLine = "robot expert\n";
constexpr std::array<std::string_view, 6> kFields{"player", "robot", "target",
                                                  "dealer", "hands", "seed"};
// Far more than the file ever holds; a bigger one is read no further.
constexpr std::size_t kLargestSavedGame = 4096;

constexpr std::int64_t kHighestScore = std::numeric_limits<std::int16_t>::max();
constexpr std::int64_t kTargetRise = 250;
constexpr std::int64_t kFirstTarget = 1000;
constexpr std::int64_t kMostHands = std::numeric_limits<std::uint8_t>::max();

std::string SeedDigits(std::uint64_t seed) {
    std::array<char, 16> digits{};
    for (std::size_t i = digits.size(); i-- > 0; seed >>= 4U) {
        digits.at(i) = "0123456789abcdef"[seed & 0xFU];
    }
    return {digits.begin(), digits.end()};
}

// The targets of the menu (1000, 750, 500, 300) and every rise of 250 above
// them, with no more rises than hands were played.
bool ReachableTarget(std::int64_t target, std::int64_t hands) {
    const bool onTheSteps =
        target >= 300 && ((target - 300) % kTargetRise == 0 || (target - 500) % kTargetRise == 0);
    return onTheSteps && target <= kHighestScore && target <= kFirstTarget + kTargetRise * hands;
}

// The values as read, wide enough that nothing wraps before it is judged.
struct ReadValues {
    std::int64_t player = 0;
    std::int64_t robot = 0;
    std::int64_t target = 0;
    std::int64_t dealer = 0;
    std::int64_t hands = 0;
    std::uint64_t seed = 0;
    bool expert = false;
};

bool Possible(const ReadValues& v) {
    const bool scores =
        v.player >= 0 && v.player <= kHighestScore && v.robot >= 0 && v.robot <= kHighestScore;
    const bool hands = v.hands >= 0 && v.hands <= kMostHands;
    const bool dealer = v.dealer == ThePlayer || v.dealer == TheRobot;
    // Before its first hand a game has no points and the target it starts with.
    const bool fresh = v.hands != 0 || (v.player == 0 && v.robot == 0 && v.target == kFirstTarget);
    return scores && hands && dealer && fresh && ReachableTarget(v.target, v.hands);
}

template <typename Int>
bool ReadNumber(std::string_view digits, Int& value, int base = 10) {
    const char* end = digits.data() + digits.size();
    const auto [next, error] = std::from_chars(digits.data(), end, value, base);
    return !digits.empty() && error == std::errc{} && next == end;
}

// Takes the next line, which must end in a line feed.
bool NextLine(std::string_view& text, std::string_view& line) {
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos) return false;
    line = text.substr(0, end);
    text.remove_prefix(end + 1);
    return true;
}

std::optional<ReadValues> ReadFields(std::string_view text) {
    std::string_view line;
    if (!NextLine(text, line) || line != kVersionLine) return std::nullopt;
    std::array<std::string_view, kFields.size()> values{};
    for (std::size_t i = 0; i < kFields.size(); ++i) {
        if (!NextLine(text, line) || !line.starts_with(kFields.at(i)) ||
            line.substr(kFields.at(i).size(), 1) != " ") {
            return std::nullopt;
        }
        values.at(i) = line.substr(kFields.at(i).size() + 1);
    }
    ReadValues v;
    const bool read = ReadNumber(values[0], v.player) && ReadNumber(values[1], v.robot) &&
                      ReadNumber(values[2], v.target) && ReadNumber(values[3], v.dealer) &&
                      ReadNumber(values[4], v.hands) && values[5].size() == 16 &&
                      ReadNumber(values[5], v.seed, 16);
    v.expert = text == kExpertLine;
    if (!read || !(text.empty() || v.expert)) return std::nullopt;
    return v;
}

std::optional<GameStanding> ReadStandingFile(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string start(kLargestSavedGame + 1, '\0');
    in.read(start.data(), static_cast<std::streamsize>(start.size()));
    start.resize(static_cast<std::size_t>(in.gcount()));
    if (start.size() > kLargestSavedGame) return std::nullopt;
    return ParseStanding(start);
}

std::filesystem::path SavedGameFile(const Game& g) {
    return g.DataFolder / kSavedGameName;
}

}  // namespace

std::string FormatStanding(const GameStanding& s) {
    return std::string(kVersionLine) + "\nplayer " + std::to_string(s.PlayerTotal) + "\nrobot " +
           std::to_string(s.OpponentTotal) + "\ntarget " + std::to_string(s.TargetScore) +
           "\ndealer " + std::to_string(s.NextDealer) + "\nhands " + std::to_string(s.HandsPlayed) +
           "\nseed " + SeedDigits(s.DealSeed) + "\n" +
           (s.Robot == RobotKind::Expert ? std::string(kExpertLine) : std::string());
}

std::optional<GameStanding> ParseStanding(std::string_view text) {
    const std::optional<ReadValues> v = ReadFields(text);
    if (!v || !Possible(*v)) return std::nullopt;
    GameStanding standing{static_cast<std::int16_t>(v->player),
                          static_cast<std::int16_t>(v->robot),
                          static_cast<std::int16_t>(v->target),
                          static_cast<int>(v->dealer),
                          static_cast<std::uint8_t>(v->hands),
                          v->seed,
                          v->expert ? RobotKind::Expert : RobotKind::Classic};
    // Only the game's own spelling reads: no sign, no leading zero, no
    // capital in the seed.
    if (FormatStanding(standing) != text) return std::nullopt;
    return standing;
}

GameStanding CurrentStanding(const Game& g) {
    // DealHand passes the deal on from the side that dealt last, and the
    // robot chosen in the menu sits down at the next deal.
    return GameStanding{
        g.PlayerTotal, g.OpponentTotal, g.TargetScore, g.Dealer == ThePlayer ? TheRobot : ThePlayer,
        g.HandNumber,  g.NextDealSeed,  g.ChosenRobot};
}

std::optional<GameStanding> ReadSavedGame(const Game& g) {
    return ReadStandingFile(SavedGameFile(g));
}

void SaveStanding(Game& g) {
    const std::filesystem::path file = SavedGameFile(g);
    const auto readsWhole = [](const std::filesystem::path& present) {
        return ReadStandingFile(present).has_value();
    };
    if (KeepUnreadableBytes(file, readsWhole))
        WriteFileWhole(file, FormatStanding(CurrentStanding(g)));
}

void DropSavedGame(Game& g) {
    std::error_code error;
    std::filesystem::remove(SavedGameFile(g), error);
}

}  // namespace trickhaven
