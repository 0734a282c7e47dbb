// Data.dat: the exact line, its reading field by field, and what a damaged
// file or a failed write does.
#include "data/data_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <tuple>

#include "data/data_folder.h"
#include "game/hand_setup.h"
#include "headless/headless_game.h"
#include "headless/player_policy.h"

namespace trickhaven {
namespace {

void WriteRaw(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

const std::string kInitialLine = "0,0,100,\"Player\",\"Lorinda\",1000\r\n";

TEST(DataFile, TheDefaultLineByteForByte) {
    EXPECT_EQ(FormatSettingsLine(SettingsLine{}), kInitialLine);
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

// Starts the program on the file as it stands and plays three tricks at the
// speed it gave, then saves twice: the second save of a run copies nothing.
void PlayAndSave(HeadlessGame& hg) {
    PlayerPolicy player(PolicyKind::First, 1);
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.policy = [&](Game& g) { return player.Next(g); };
    hg.table.answerDeluxe = [&](const MessageRecord& m) { return player.Answer(m); };
    hg.platform.stopWhen = [](const Game& g) { return g.RoundOneOn && g.TrickCount == 4; };
    ASSERT_TRUE(hg.Run());
    SaveData(hg.game);
    SaveData(hg.game);
}

TEST(DataFile, EachFieldThatReadsIsKeptAndADamagedFileIsCopiedBesideBeforeTheFirstSave) {
    const std::string megabyte(1000000, 'x');
    // The file as found, the line the saves write, and whether the old bytes
    // are kept beside it.
    const std::vector<std::tuple<std::string, std::string, bool>> files{
        {"12,3,25,\"A, B\",\"C\",750\n", "12,3,25,\"A, B\",\"C\",1000\r\n", false},
        {"3,4,0,\"Bo\",\"Al\",300\r\n", "3,4,0,\"Bo\",\"Al\",1000\r\n", false},
        {"3,4,5000,\"Bo\",\"Al\",-7", "3,4,5000,\"Bo\",\"Al\",1000\r\n", false},
        {"3,4,5001,\"Bo\",\"Al\",1000\r\n", "3,4,100,\"Bo\",\"Al\",1000\r\n", true},
        {"3,4,-1,\"Bo\",\"Al\",1000\r\n", "3,4,100,\"Bo\",\"Al\",1000\r\n", true},
        {"3,4,99999,\"Bo\",\"Al\",1000\r\n", "3,4,100,\"Bo\",\"Al\",1000\r\n", true},
        {"3, 4,25\r,\"Bo\",\"Al\",1000\r\n", "3,0,100,\"Bo\",\"Al\",1000\r\n", true},
        {"99999999999,4,250,\"Bo\",\"Al\",\r\n", "0,4,250,\"Bo\",\"Al\",1000\r\n", true},
        {"3,4,250,\"Bo\" ,\"Al\",1000\r\n", "3,4,250,\"Bo\",\"Al\",1000\r\n", true},
        {"3,4,250,\"Bo\",Al,1000\r\n", "3,4,250,\"Bo\",\"Lorinda\",1000\r\n", true},
        {"3,4,250,\"Bo\",\"Al\",99999\r\n", "3,4,250,\"Bo\",\"Al\",1000\r\n", true},
        {"3,4,250,\"Bo", "3,4,250,\"Bo\",\"Lorinda\",1000\r\n", true},
        {"3,4,250,\"Bo\",\"Al\",1000,9\r\n", "3,4,250,\"Bo\",\"Al\",1000\r\n", true},
        {"3,4,250,\"Bo\",\"Al\",1000\r\n" + megabyte, "3,4,250,\"Bo\",\"Al\",1000\r\n", true},
        {"", kInitialLine, true},
        {std::string("\0\xff\xfe,\x01\"\x80", 7), kInitialLine, true},
    };
    for (const auto& [found, saved, kept] : files) {
        SCOPED_TRACE(found.substr(0, 40));
        HeadlessGame hg;
        WriteRaw(hg.folder / "Data.dat", found);
        WriteRaw(hg.folder / "Data.dat.unreadable", "an older damaged file");
        PlayAndSave(hg);
        EXPECT_EQ(FileBytes(hg.folder / "Data.dat"), saved);
        EXPECT_EQ(FileBytes(hg.folder / "Data.dat.unreadable"),
                  kept ? found : "an older damaged file");
    }
}

TEST(DataFile, ADirectoryInPlaceOfTheFileOrOfItsCopyIsLeftAsItIsAndNothingIsReplaced) {
    HeadlessGame hg;
    std::filesystem::create_directory(hg.folder / "Data.dat");
    PlayAndSave(hg);
    EXPECT_EQ(FormatSettingsLine(CurrentSettings(hg.game)), kInitialLine);
    EXPECT_FALSE(WriteFileWhole(hg.folder / "Data.dat", "x"));
    EXPECT_TRUE(std::filesystem::is_directory(hg.folder / "Data.dat"));
    // Beside it only the game in progress, saved at its start: no litter.
    EXPECT_TRUE(std::filesystem::remove(hg.folder / "SavedGame.dat"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(hg.folder), {}), 1);

    std::filesystem::rename(hg.folder / "Data.dat", hg.folder / "Data.dat.unreadable");
    WriteRaw(hg.folder / "Data.dat", "7,x");
    SaveData(hg.game);
    EXPECT_EQ(FileBytes(hg.folder / "Data.dat"), "7,x")
        << "a damaged file is replaced only once copied";
}

TEST(DataFile, AFileThatCannotBeReadStartsFromTheInitialValuesAndIsNeverReplaced) {
    if (::geteuid() == 0) GTEST_SKIP() << "root reads a file whatever its permissions say";
    HeadlessGame hg;
    WriteRaw(hg.folder / "Data.dat", "7,5,250,\"Bo\",\"Al\",1000\r\n");
    std::filesystem::permissions(hg.folder / "Data.dat", std::filesystem::perms::none);
    PlayAndSave(hg);
    EXPECT_EQ(FormatSettingsLine(CurrentSettings(hg.game)), kInitialLine);
    std::filesystem::permissions(hg.folder / "Data.dat", std::filesystem::perms::owner_read);
    EXPECT_EQ(FileBytes(hg.folder / "Data.dat"), "7,5,250,\"Bo\",\"Al\",1000\r\n");
    EXPECT_FALSE(std::filesystem::exists(hg.folder / "Data.dat.unreadable"));
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

    // Under /usr the package manager owns the folder, writable or not.
    EXPECT_EQ(ChooseDataFolder("/usr/lib/trickhaven", true, user), user);
    EXPECT_EQ(ChooseDataFolder("/usrlocal/trickhaven", true, user), "/usrlocal/trickhaven");
}

}  // namespace
}  // namespace trickhaven
