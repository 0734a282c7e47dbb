#include "data/data_file.h"

#include <charconv>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <limits>
#include <system_error>

#if defined(__unix__)
#include <unistd.h>
#endif

namespace trickhaven {

namespace {

// A file bigger than this is no settings file of ours.
constexpr std::uintmax_t kLargestDataFile = 1U << 20U;

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

class FieldReader {
public:
    explicit FieldReader(std::string_view text) : text_(text) {}

    template <typename Int>
    std::optional<Int> Number() {
        const char* begin = text_.data() + pos_;
        const char* end = text_.data() + text_.size();
        Int value{};
        auto [next, error] = std::from_chars(begin, end, value);
        if (error != std::errc{} || next == begin) {
            return std::nullopt;
        }
        pos_ += static_cast<std::size_t>(next - begin);
        return value;
    }

    std::optional<std::string> Quoted() {
        if (pos_ >= text_.size() || text_[pos_] != '"') {
            return std::nullopt;
        }
        const std::size_t close = text_.find('"', pos_ + 1);
        if (close == std::string_view::npos) {
            return std::nullopt;
        }
        std::string value(text_.substr(pos_ + 1, close - pos_ - 1));
        pos_ = close + 1;
        return value;
    }

    bool Comma() {
        if (pos_ < text_.size() && text_[pos_] == ',') {
            ++pos_;
            return true;
        }
        return false;
    }

    bool LineEnd() const {
        const std::string_view rest = text_.substr(pos_);
        return rest.empty() || rest.front() == '\n' || rest.substr(0, 2) == "\r\n";
    }

private:
    std::string_view text_;
    std::size_t pos_ = 0;
};

std::optional<std::string> ReadSmallFile(const std::filesystem::path& file) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error || size > kLargestDataFile) {
        return std::nullopt;
    }
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
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

std::optional<SettingsLine> ParseSettingsLine(std::string_view text) {
    FieldReader reader(text);
    SettingsLine line;
    const auto playerWins = reader.Number<std::int32_t>();
    if (!playerWins || !reader.Comma()) return std::nullopt;
    const auto opponentWins = reader.Number<std::int32_t>();
    if (!opponentWins || !reader.Comma()) return std::nullopt;
    const auto speed = reader.Number<std::int16_t>();
    if (!speed || !reader.Comma()) return std::nullopt;
    auto playerName = reader.Quoted();
    if (!playerName || !reader.Comma()) return std::nullopt;
    auto opponentName = reader.Quoted();
    if (!opponentName || !reader.Comma()) return std::nullopt;
    const auto target = reader.Number<std::int16_t>();
    if (!target || !reader.LineEnd()) return std::nullopt;
    // A speed outside the range of sane waits would stall the table or
    // overflow the paces built on it.
    if (*speed < 0 || *speed > 5000) return std::nullopt;
    line.PlayerWins = *playerWins;
    line.OpponentWins = *opponentWins;
    line.GameSpeed = *speed;
    line.PlayerName = std::move(*playerName);
    line.OpponentName = std::move(*opponentName);
    line.TargetScore = *target;
    return line;
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

SettingsLine CurrentSettings(const Game& g) {
    return SettingsLine{g.GameStats[1], g.GameStats[2], g.GameSpeed,
                        g.PlayerName,   g.OpponentName, g.TargetScore};
}

void ReadDataFile(Game& g) {
    const auto text = ReadSmallFile(g.DataFolder / "Data.dat");
    const auto line = text ? ParseSettingsLine(*text) : std::nullopt;
    ApplySettings(g, line.value_or(SettingsLine{}));
}

void SaveData(Game& g) {
    WriteFileWhole(g.DataFolder / "Data.dat", FormatSettingsLine(CurrentSettings(g)));
}

void SaveAllData(Game& g) {
    WriteFileWhole(g.DataFolder / "All.dat", FormatSettingsLine(CurrentSettings(g)));
}

}  // namespace trickhaven
