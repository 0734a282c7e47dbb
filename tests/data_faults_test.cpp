// The data files under faults: a write that fails leaves the old file as it
// was, and a process killed in the middle of saving leaves the old file or
// the new one, never a mix, be it Data.dat or the game in progress.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <random>
#include <string>

#include "data/data_file.h"
#include "data/saved_game.h"
#include "headless/headless_game.h"

namespace trickhaven {
namespace {

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
