// Data.dat: the exact line, its reading field by field, and what a damaged
// file or a failed write does; a process killed in the middle of saving
// leaves the old file or the new one, never a mix, be it Data.dat or the
// game in progress.
#include "data/data_file.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <random>
#include <string>
#include <tuple>

#include "data/data_folder.h"
#include "data/robot_file.h"
#include "data/saved_game.h"
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

TEST(DataFaults, AFailedSaveLeavesThePreviousFilesByteForByte) {
    HeadlessGame hg;
    Game& g = hg.game;
    g.PlayerName = "Ann";
    g.OpponentName = "Lorinda";
    g.GameStats = {0, 5, 7};
    SaveData(g);
    SaveAllData(g);
    const std::string data = FileBytes(hg.folder / "Data.dat");
    const std::string all = FileBytes(hg.folder / "All.dat");
    ASSERT_EQ(data, "5,7,100,\"Ann\",\"Lorinda\",0\r\n");
    ASSERT_EQ(all, data);
    // A folder where the temporary copies go makes every write fail.
    std::filesystem::create_directory(hg.folder / "Data.dat.tmp");
    std::filesystem::create_directory(hg.folder / "All.dat.tmp");
    g.PlayerName = std::string(5000, 'Z');
    g.GameStats = {0, 6, 7};
    SaveData(g);
    SaveAllData(g);
    EXPECT_EQ(FileBytes(hg.folder / "Data.dat"), data);
    EXPECT_EQ(FileBytes(hg.folder / "All.dat"), all);
    EXPECT_FALSE(WriteFileWhole(hg.folder / "Data.dat", "x"));
    EXPECT_FALSE(WriteFileWhole("/nonexistent-trickhaven-folder/Data.dat", "0"));
    // Once the way is clear the next save writes the new line, and leaves
    // no litter.
    std::filesystem::remove(hg.folder / "Data.dat.tmp");
    SaveData(g);
    EXPECT_FALSE(std::filesystem::exists(hg.folder / "Data.dat.tmp"));
    const auto line = ParseSettingsLine(FileBytes(hg.folder / "Data.dat"));
    ASSERT_TRUE(line.has_value());
    EXPECT_EQ(line->PlayerName, g.PlayerName);
    EXPECT_EQ(line->PlayerWins, 6);
}

// A child saves two different lines and standings in turn, as fast as it
// can, until it is killed; it works on its own copy of the parent's game and
// tells the parent of each round of saves that is through by a byte down the
// pipe.
[[noreturn]] void SaveForever(Game& g, int done) {
    for (long round = 0;; ++round) {
        const bool even = round % 2 == 0;
        g.PlayerName = std::string(even ? 20000 : 3, even ? 'E' : 'o');
        g.GameStats = {0, even ? 2 : 1, 0};
        g.PlayerTotal = even ? 111 : 222;
        g.HandNumber = even ? 1 : 2;
        SaveData(g);
        SaveStanding(g);
        const char saved = 's';
        if (::write(done, &saved, 1) != 1) ::_exit(1);
    }
}

TEST(DataFaults, AKillInTheMiddleOfSavingLeavesAWholeFile) {
    HeadlessGame hg;
    hg.game.PlayerName = "first";
    hg.game.TargetScore = 1000;
    SaveData(hg.game);
    std::mt19937 random(20240611);
    int seenEven = 0;
    int seenOdd = 0;
    for (int attempt = 0; attempt < 40; ++attempt) {
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe(pipe.data()), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            ::close(pipe[0]);
            SaveForever(hg.game, pipe[1]);
        }
        ::close(pipe[1]);
        // The kill comes after one to three whole saves, however slow the
        // disk, and then at a moment of the next save.
        const auto wholeSaves = 1 + random() % 3;
        char saved = 0;
        for (unsigned long save = 0; save < wholeSaves; ++save) {
            ASSERT_EQ(::read(pipe[0], &saved, 1), 1);
        }
        ::usleep(random() % 3000);
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ::close(pipe[0]);
        ASSERT_TRUE(WIFSIGNALED(status));
        const auto line = ParseSettingsLine(FileBytes(hg.folder / "Data.dat"));
        ASSERT_TRUE(line.has_value()) << "attempt " << attempt;
        const auto standing = ParseStanding(FileBytes(hg.folder / kSavedGameName));
        ASSERT_TRUE(standing.has_value()) << "attempt " << attempt;
        EXPECT_TRUE(standing->PlayerTotal == 111 || standing->PlayerTotal == 222);
        const std::string& name = line->PlayerName;
        if (name == std::string(20000, 'E') && line->PlayerWins == 2) {
            ++seenEven;
        } else if (name == "ooo" && line->PlayerWins == 1) {
            ++seenOdd;
        } else {
            ADD_FAILURE() << "attempt " << attempt << " left " << name.substr(0, 20);
        }
    }
    // The kills came at many moments: both lines were caught whole.
    EXPECT_GT(seenEven, 0);
    EXPECT_GT(seenOdd, 0);
}

}  // namespace
}  // namespace trickhaven
