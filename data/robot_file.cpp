#include "data/robot_file.h"

#include <charconv>
#include <fstream>
#include <vector>

#include "data/data_file.h"

namespace trickhaven {

namespace {

constexpr std::string_view kVersionLine = "trickhaven robot 1";
// Far more than the file ever holds; a bigger one is read no further.
constexpr std::size_t kLargestRobotFile = 256;

std::filesystem::path RobotFile(const Game& g) {
    return g.DataFolder / kRobotFileName;
}

// The lines of the text, each of which must end in a line feed.
std::optional<std::vector<std::string_view>> Lines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos) return std::nullopt;
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    return lines;
}

// The count after the word and a blank, as the game writes it.
std::optional<std::int32_t> Count(std::string_view line, std::string_view word) {
    if (!line.starts_with(word) || line.substr(word.size(), 1) != " ") return std::nullopt;
    const std::string_view digits = line.substr(word.size() + 1);
    std::int32_t count = 0;
    const char* end = digits.data() + digits.size();
    const auto [next, error] = std::from_chars(digits.data(), end, count);
    if (digits.empty() || error != std::errc{} || next != end || count < 0) return std::nullopt;
    return count;
}

std::optional<RobotRecord> ReadRecordFile(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string start(kLargestRobotFile + 1, '\0');
    in.read(start.data(), static_cast<std::streamsize>(start.size()));
    start.resize(static_cast<std::size_t>(in.gcount()));
    if (start.size() > kLargestRobotFile) return std::nullopt;
    return ParseRobotRecord(start);
}

RobotRecord CurrentRecord(const Game& g) {
    return RobotRecord{g.ChosenRobot, g.ExpertStats};
}

}  // namespace

const char* RobotName(RobotKind robot) {
    return robot == RobotKind::Expert ? "Expert" : "Classic";
}

std::string FormatRobotRecord(const RobotRecord& record) {
    return std::string(kVersionLine) + "\nrobot " +
           (record.Chosen == RobotKind::Expert ? "expert" : "classic") + "\nplayer " +
           std::to_string(record.ExpertStats[1]) + "\nexpert " +
           std::to_string(record.ExpertStats[2]) + "\n";
}

std::optional<RobotRecord> ParseRobotRecord(std::string_view text) {
    const auto lines = Lines(text);
    if (!lines || lines->size() != 4 || lines->at(0) != kVersionLine) return std::nullopt;
    const std::string_view robot = lines->at(1);
    if (robot != "robot classic" && robot != "robot expert") return std::nullopt;
    const auto won = Count(lines->at(2), "player");
    const auto lost = Count(lines->at(3), "expert");
    if (!won || !lost) return std::nullopt;
    RobotRecord record{robot == "robot expert" ? RobotKind::Expert : RobotKind::Classic,
                       {0, *won, *lost}};
    // Only the game's own spelling reads: no sign, no leading zero.
    if (FormatRobotRecord(record) != text) return std::nullopt;
    return record;
}

void ReadRobotFile(Game& g) {
    const RobotRecord record = ReadRecordFile(RobotFile(g)).value_or(RobotRecord{});
    g.ChosenRobot = record.Chosen;
    g.ExpertStats = record.ExpertStats;
    g.view.CheckRobot(g.ChosenRobot);
}

void SaveRobotFile(Game& g) {
    const std::filesystem::path file = RobotFile(g);
    const auto readsWhole = [](const std::filesystem::path& present) {
        return ReadRecordFile(present).has_value();
    };
    if (KeepUnreadableBytes(file, readsWhole)) {
        WriteFileWhole(file, FormatRobotRecord(CurrentRecord(g)));
    }
}

void KeepRobotChoice(Game& g, RobotKind robot) {
    g.ChosenRobot = robot;
    g.view.CheckRobot(robot);
    SaveRobotFile(g);
}

}  // namespace trickhaven
