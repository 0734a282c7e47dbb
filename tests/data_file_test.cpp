// Data.dat: the exact line, its reading, and what a bad file or a failed
// write does.
#include "data/data_file.h"

#include <gtest/gtest.h>

#include <fstream>

#include "data/data_folder.h"
#include "game/hand_setup.h"
#include "headless/headless_game.h"

namespace trickhaven {
namespace {

void WriteRaw(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

TEST(DataFile, TheDefaultLineByteForByte) {
    EXPECT_EQ(FormatSettingsLine(SettingsLine{}), "0,0,100,\"Player\",\"Lorinda\",1000\r\n");
    HeadlessGame hg;
    WriteRaw(hg.folder / "Data.dat", "");
    Form_Load(hg.game);
    SaveData(hg.game);
    EXPECT_EQ(FileBytes(hg.folder / "Data.dat"), "0,0,100,\"Player\",\"Lorinda\",1000\r\n");
}

TEST(DataFile, NamesWithCommasBlanksAndLettersBeyondAsciiSurviveASaveAndAReload) {
    HeadlessGame first;
    first.game.PlayerName = "Ann, Lee  ";
    first.game.OpponentName = "Zoë \u00e9clair";
    first.game.GameStats = {0, 7, 5};
    first.game.GameSpeed = 250;
    first.game.TargetScore = 500;
    SaveData(first.game);

    HeadlessGame second;
    std::filesystem::copy_file(first.folder / "Data.dat", second.folder / "Data.dat");
    Form_Load(second.game);
    EXPECT_EQ(second.game.PlayerName, "Ann, Lee  ");
    EXPECT_EQ(second.game.OpponentName, "Zoë \u00e9clair");
    EXPECT_EQ(second.game.GameStats[1], 7);
    EXPECT_EQ(second.game.GameStats[2], 5);
    EXPECT_EQ(second.game.GameSpeed, 250);
    EXPECT_EQ(second.game.TargetScore, 1000) << "the stored target never takes effect";
    EXPECT_EQ(second.table.Title(), " Target Score 1000");
    EXPECT_EQ(second.table.Caption(TableLabel::LblPlayer), "Ann, Lee  ");
    EXPECT_EQ(second.table.Caption(TableLabel::LblBotsName), "Zoë \u00e9clair");
}

TEST(DataFile, QuotesAndLineBreaksInANameStillGiveAReadableFile) {
    SettingsLine line;
    line.PlayerName = "say \"hi\"\r\nnow";
    const auto parsed = ParseSettingsLine(FormatSettingsLine(line));
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(parsed->PlayerName, "say 'hi'  now");
    EXPECT_EQ(parsed->OpponentName, "Lorinda");
}

TEST(DataFile, AMissingShortGarbledOrOversizedFileStartsWithTheInitialValues) {
    const std::vector<std::pair<std::string, std::string>> files{
        {"empty", ""},
        {"short", "3,4,250,\"Bo\""},
        {"letters for numbers", "x,4,250,\"Bo\",\"Al\",1000\r\n"},
        {"unclosed quote", "3,4,250,\"Bo,\"Al,1000\r\n"},
        {"blank before a field", "3, 4,250,\"Bo\",\"Al\",1000\r\n"},
        {"speed beyond 16 bits", "3,4,99999,\"Bo\",\"Al\",1000\r\n"},
        {"negative speed", "3,4,-100,\"Bo\",\"Al\",1000\r\n"},
        {"trailing field", "3,4,250,\"Bo\",\"Al\",1000,9\r\n"},
        {"binary", std::string("\0\xff\xfe,\x01", 5)},
        {"oversized", std::string(2U << 20U, '7')},
    };
    for (const auto& [what, bytes] : files) {
        SCOPED_TRACE(what);
        HeadlessGame hg;
        WriteRaw(hg.folder / "Data.dat", bytes);
        Form_Load(hg.game);
        EXPECT_EQ(hg.game.GameStats[1], 0);
        EXPECT_EQ(hg.game.GameStats[2], 0);
        EXPECT_EQ(hg.game.GameSpeed, 100);
        EXPECT_EQ(hg.game.PlayerName, "Player");
        EXPECT_EQ(hg.game.OpponentName, "Lorinda");
    }
    HeadlessGame missing;
    Form_Load(missing.game);
    EXPECT_EQ(missing.game.OpponentName, "Lorinda");
    EXPECT_FALSE(std::filesystem::exists(missing.folder / "Data.dat")) << "reading writes nothing";
}

TEST(DataFile, AGoodLineWithAnLfEndingReadsToo) {
    const auto parsed = ParseSettingsLine("12,3,25,\"A\",\"B\",750\n");
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(parsed->PlayerWins, 12);
    EXPECT_EQ(parsed->OpponentWins, 3);
    EXPECT_EQ(parsed->GameSpeed, 25);
    EXPECT_EQ(parsed->TargetScore, 750);
}

TEST(DataFile, AFailedWriteLeavesTheOldFileWholeAndNoLitter) {
    HeadlessGame hg;
    const std::string old = "1,2,100,\"Old\",\"Lorinda\",1000\r\n";
    WriteRaw(hg.folder / "Data.dat", old);
    // A folder where the temporary file would go makes every write fail,
    // as a full disk would, even for root.
    std::filesystem::create_directory(hg.folder / "Data.dat.tmp");
    hg.game.PlayerName = "New";
    SaveData(hg.game);
    EXPECT_EQ(FileBytes(hg.folder / "Data.dat"), old);
    EXPECT_FALSE(WriteFileWhole(hg.folder / "Data.dat", "x"));

    std::filesystem::remove(hg.folder / "Data.dat.tmp");
    SaveData(hg.game);
    EXPECT_EQ(FileBytes(hg.folder / "Data.dat"), "0,0,100,\"New\",\"\",0\r\n");
    EXPECT_FALSE(std::filesystem::exists(hg.folder / "Data.dat.tmp"));
}

TEST(DataFile, AFolderThatIsGoneFailsTheWriteQuietly) {
    EXPECT_FALSE(WriteFileWhole("/nonexistent-trickhaven-folder/Data.dat", "0"));
}

TEST(DataFolder, AnInstalledGameKeepsItsFilesInTheUsersFolderFromACopy) {
    HeadlessGame hg;
    const auto program = hg.folder / "program";
    const auto user = hg.folder / "user" / "trickhaven";
    std::filesystem::create_directories(program);
    WriteRaw(program / "Data.dat", "4,5,250,\"Ann\",\"Lorinda\",1000\r\n");

    EXPECT_EQ(ChooseDataFolder(program, true, user), program);
    EXPECT_FALSE(std::filesystem::exists(user)) << "a writable program folder is used as it is";

    EXPECT_EQ(ChooseDataFolder(program, false, user), user);
    EXPECT_EQ(FileBytes(user / "Data.dat"), FileBytes(program / "Data.dat"));

    // The user's own file is never overwritten by the installed one.
    WriteRaw(user / "Data.dat", "9,9,25,\"Me\",\"Lorinda\",1000\r\n");
    ChooseDataFolder(program, false, user);
    EXPECT_EQ(FileBytes(user / "Data.dat"), "9,9,25,\"Me\",\"Lorinda\",1000\r\n");
}

}  // namespace
}  // namespace trickhaven
