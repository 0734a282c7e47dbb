// Data.dat: the exact line, its reading field by field, and what a damaged
// file or a failed write does.
#include "data/data_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <tuple>

#include "data/data_folder.h"
#include "data/robot_file.h"
#include "data/settings_commands.h"
#include "game/hand_setup.h"
#include "headless/headless_game.h"
#include "headless/player_policy.h"

namespace trickhaven {
namespace {

void WriteRaw(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

const std::string kInitialLine = "0,0,100,\"Player\",\"Lorinda\",1000\r\n";

// Commas, blanks and letters beyond ASCII survive; quotes and line breaks
// are changed so that the file still reads.
TEST(DataFile, NamesSurviveASaveAndAReloadAndStayReadable) {
    HeadlessGame first;
    first.game.PlayerName = "Ann, Lee  ";
    first.game.OpponentName = "Zo\u00eb \"hi\"\r\n\u00e9clair";
    first.game.GameStats = {0, 7, 5};
    first.game.GameSpeed = 250;
    first.game.TargetScore = 500;
    SaveData(first.game);

    HeadlessGame second;
    std::filesystem::copy_file(first.folder / "Data.dat", second.folder / "Data.dat");
    Form_Load(second.game);
    const std::string opponent = "Zo\u00eb 'hi'  \u00e9clair";
    EXPECT_EQ(std::tuple(second.game.PlayerName, second.game.OpponentName, second.game.GameStats[1],
                         second.game.GameStats[2], second.game.GameSpeed),
              std::tuple("Ann, Lee  ", opponent, 7, 5, 250));
    EXPECT_EQ(second.game.TargetScore, 1000) << "the stored target never takes effect";
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

// A file that cannot be opened, here a directory, starts from the initial
// values and is never replaced.
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

// Robot.dat as one run leaves it reads at the next start; a missing file,
// or one that does not read, means the Classic robot and no Expert game,
// and a damaged one keeps its bytes beside it at the next save.
TEST(RobotFile, TheChoiceAndTheExpertsGamesOutliveARunAndAMissingOrDamagedFileMeansClassic) {
    HeadlessGame first;
    first.game.ExpertStats = {0, 3, 5};
    MnuExpert_Click(first.game);
    const std::string expert = FileBytes(first.folder / kRobotFileName);
    ASSERT_EQ(expert, "trickhaven robot 1\nrobot expert\nplayer 3\nexpert 5\n");
    const auto with = [&](const std::string& from, const std::string& to) {
        std::string text = expert;
        return text.replace(text.find(from), from.size(), to);
    };
    const std::vector<std::optional<std::string>> damaged{
        std::nullopt,
        "",
        expert.substr(0, expert.size() - 1),
        with("robot 1", "robot 2"),
        with("expert\n", "Expert\n"),
        with("player 3", "player -3"),
        with("player 3", "player 03"),
        with("expert 5", "expert 99999999999"),
        expert + "melds 40\n",
        std::string("\x7f\x01\xff garbage\n\0\n", 14),
    };
    for (const auto& found : damaged) {
        SCOPED_TRACE(found.value_or("missing"));
        HeadlessGame hg;
        if (found) WriteRaw(hg.folder / kRobotFileName, *found);
        Form_Load(hg.game);
        EXPECT_EQ(
            std::tuple(hg.game.ChosenRobot, hg.table.CheckedRobot(), hg.game.ExpertStats),
            std::tuple(RobotKind::Classic, RobotKind::Classic, std::array<std::int32_t, 3>{}));
        EXPECT_EQ(FileBytes(hg.folder / kRobotFileName), found.value_or(""));
        SaveRobotFile(hg.game);
        const auto kept = hg.folder / (std::string(kRobotFileName) + ".unreadable");
        EXPECT_EQ(std::filesystem::exists(kept), found.has_value());
        EXPECT_EQ(FileBytes(kept), found.value_or(""));
    }
    HeadlessGame next;
    std::filesystem::copy_file(first.folder / kRobotFileName, next.folder / kRobotFileName);
    Form_Load(next.game);
    EXPECT_EQ(std::tuple(next.game.ChosenRobot, next.table.CheckedRobot(), next.game.ExpertStats),
              std::tuple(RobotKind::Expert, RobotKind::Expert, first.game.ExpertStats));
    EXPECT_FALSE(std::filesystem::exists(next.folder / "Data.dat")) << "nothing else is written";
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
