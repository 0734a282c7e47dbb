#include "data/data_file.h"

#include <charconv>
#include <cstdio>
#include <fstream>
#include <system_error>

#if defined(__unix__)
#include <unistd.h>
#endif

namespace trickhaven {

namespace {

// More than a settings line could ever need; a bigger file is read no
// further.
constexpr std::size_t kLargestDataFile = 1U << 20U;

constexpr std::int32_t kLongestSpeed = 5000;

// The format has no escape: a double quote would end the name at the next
// reading, and a line break would end the line. Both are written as
// something harmless instead, so the file always reads back.
std::string StorableName(const std::string& name) {
    std::string out = name;
    for (char& c : out) {
        if (c == '"') {
            c = '\'';
        } else if (c == '\r' || c == '\n') {
            c = ' ';
        }
    }
    return out;
}

// Reads the fields of the first line in turn, each up to the next comma or
// the line end, and notes whether anything did not read or was left over.
class FieldReader {
public:
    explicit FieldReader(std::string_view text) {
        const std::size_t lineEnd = text.find('\n');
        line_ = text.substr(0, lineEnd);
        if (lineEnd != std::string_view::npos) {
            if (line_.ends_with('\r')) line_.remove_suffix(1);
            leftOver_ = lineEnd + 1 < text.size();
        }
    }

    // A number as the program writes it, and nothing else in its field.
    template <typename Int>
    std::optional<Int> Number() {
        const std::optional<std::string_view> field = Field();
        Int value{};
        if (field) {
            const char* end = field->data() + field->size();
            const auto [next, error] = std::from_chars(field->data(), end, value);
            if (error == std::errc{} && next == end) return value;
        }
        whole_ = false;
        return std::nullopt;
    }

    // A name between double quotes; one that lost its closing quote runs to
    // the line end, as far as the text goes.
    std::optional<std::string> Quoted() {
        if (ended_ || pos_ >= line_.size() || line_[pos_] != '"') {
            Field();
            whole_ = false;
            return std::nullopt;
        }
        const std::size_t close = line_.find('"', pos_ + 1);
        std::string value(line_.substr(pos_ + 1, close - pos_ - 1));
        if (close == std::string_view::npos) {
            ended_ = true;
            whole_ = false;
        } else {
            pos_ = close + 1;
            if (!Field()->empty()) whole_ = false;
        }
        return value;
    }

    // Every field read, the last at the line end, and nothing after it.
    bool Whole() const { return whole_ && ended_ && !leftOver_; }

private:
    std::optional<std::string_view> Field() {
        if (ended_) return std::nullopt;
        const std::size_t comma = line_.find(',', pos_);
        const std::string_view field = line_.substr(pos_, comma - pos_);
        if (comma == std::string_view::npos) {
            ended_ = true;
        } else {
            pos_ = comma + 1;
        }
        return field;
    }

    std::string_view line_;
    std::size_t pos_ = 0;
    bool ended_ = false;
    bool whole_ = true;
    bool leftOver_ = false;
};

// Reads no more than a settings line could ever need: a file bigger than
// that never reads whole, and one that cannot be opened reads as empty.
SettingsReading ReadSettingsFile(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string start(kLargestDataFile + 1, '\0');
    in.read(start.data(), static_cast<std::streamsize>(start.size()));
    start.resize(static_cast<std::size_t>(in.gcount()));
    SettingsReading reading = ReadSettingsText(std::string_view(start).substr(0, kLargestDataFile));
    reading.whole = reading.whole && start.size() <= kLargestDataFile;
    return reading;
}

// A Data.dat that does not read whole may hold games won that the reading
// lost: its bytes go beside it before a save replaces it.
bool KeepDamagedFile(const std::filesystem::path& file) {
    return KeepUnreadableBytes(
        file, [](const std::filesystem::path& present) { return ReadSettingsFile(present).whole; });
}

void ApplySettings(Game& g, const SettingsLine& line) {
    g.GameStats[1] = line.PlayerWins;
    g.GameStats[2] = line.OpponentWins;
    g.GameSpeed = line.GameSpeed;
    g.PlayerName = line.PlayerName;
    g.OpponentName = line.OpponentName;
    g.TargetScore = line.TargetScore;
}

}  // namespace

std::string FormatSettingsLine(const SettingsLine& line) {
    return std::to_string(line.PlayerWins) + "," + std::to_string(line.OpponentWins) + "," +
           std::to_string(line.GameSpeed) + ",\"" + StorableName(line.PlayerName) + "\",\"" +
           StorableName(line.OpponentName) + "\"," + std::to_string(line.TargetScore) + "\r\n";
}

SettingsReading ReadSettingsText(std::string_view text) {
    FieldReader reader(text);
    const SettingsLine initial;
    SettingsReading reading;
    SettingsLine& line = reading.line;
    line.PlayerWins = reader.Number<std::int32_t>().value_or(initial.PlayerWins);
    line.OpponentWins = reader.Number<std::int32_t>().value_or(initial.OpponentWins);
    const auto speed = reader.Number<std::int32_t>();
    line.PlayerName = reader.Quoted().value_or(initial.PlayerName);
    line.OpponentName = reader.Quoted().value_or(initial.OpponentName);
    line.TargetScore = reader.Number<std::int16_t>().value_or(initial.TargetScore);
    // The menu writes 25, 100 or 250; another wait a player could sit
    // through is kept, but a longer or negative one would stall the table
    // or overflow the paces built on it.
    const bool saneSpeed = speed && *speed >= 0 && *speed <= kLongestSpeed;
    line.GameSpeed = saneSpeed ? static_cast<std::int16_t>(*speed) : initial.GameSpeed;
    reading.whole = reader.Whole() && saneSpeed;
    return reading;
}

std::optional<SettingsLine> ParseSettingsLine(std::string_view text) {
    SettingsReading reading = ReadSettingsText(text);
    if (!reading.whole) return std::nullopt;
    return std::move(reading.line);
}

bool WriteFileWhole(const std::filesystem::path& file, std::string_view content) {
    std::filesystem::path temporary = file;
    temporary += ".tmp";
    std::FILE* out = std::fopen(temporary.c_str(), "wb");
    if (out == nullptr) {
        return false;
    }
    bool written = std::fwrite(content.data(), 1, content.size(), out) == content.size();
    written = std::fflush(out) == 0 && written;
#if defined(__unix__)
    written = ::fsync(::fileno(out)) == 0 && written;
#endif
    written = std::fclose(out) == 0 && written;
    std::error_code error;
    if (written) {
        std::filesystem::rename(temporary, file, error);
    }
    if (!written || error) {
        std::filesystem::remove(temporary, error);
        return false;
    }
    return true;
}

bool KeepUnreadableBytes(const std::filesystem::path& file,
                         const std::function<bool(const std::filesystem::path&)>& readsWhole) {
    std::error_code error;
    if (!std::filesystem::exists(file, error) || readsWhole(file)) return true;
    std::filesystem::path kept = file;
    kept += ".unreadable";
    return std::filesystem::copy_file(file, kept, std::filesystem::copy_options::overwrite_existing,
                                      error);
}

SettingsLine CurrentSettings(const Game& g) {
    return SettingsLine{g.GameStats[1], g.GameStats[2], g.GameSpeed,
                        g.PlayerName,   g.OpponentName, g.TargetScore};
}

void ReadDataFile(Game& g) {
    ApplySettings(g, ReadSettingsFile(g.DataFolder / "Data.dat").line);
}

void SaveData(Game& g) {
    const std::filesystem::path file = g.DataFolder / "Data.dat";
    if (KeepDamagedFile(file)) WriteFileWhole(file, FormatSettingsLine(CurrentSettings(g)));
}

void SaveAllData(Game& g) {
    WriteFileWhole(g.DataFolder / "All.dat", FormatSettingsLine(CurrentSettings(g)));
}

}  // namespace trickhaven
