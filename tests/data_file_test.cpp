// Data.dat: the exact line, its reading field by field, and what a damaged
// file or a failed write does; a process killed in the middle of saving
// leaves the old file or the new one, never a mix. A game in progress
// outlives the program: the standing saved at each game's start and hand's
// end, offered back at the first New Game of the next run, dealt on from its
// seed, and dropped when the game is over.
#include "data/data_file.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
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
#include "game/session.h"
#include "headless/headless_game.h"
#include "headless/player_policy.h"
#include "round_one/game_end.h"
#include "tests/table_fixtures.h"

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

const GameStanding kMidGame{430, 610, 1250, 2, 3, 0x0123456789abcdefULL};
const std::string kMidGameText =
    "trickhaven saved game 1\nplayer 430\nrobot 610\ntarget 1250\ndealer 2\nhands 3\n"
    "seed 0123456789abcdef\n";

std::filesystem::path SavedFile(const HeadlessGame& hg) {
    return hg.folder / kSavedGameName;
}

auto Fields(const GameStanding& s) {
    return std::tuple(s.PlayerTotal, s.OpponentTotal, s.TargetScore, s.NextDealer, +s.HandsPlayed,
                      s.DealSeed);
}

// The first New Game of a run with these bytes saved, up to its Round One.
void NewGameWith(HeadlessGame& hg, const std::string& saved) {
    std::ofstream(SavedFile(hg), std::ios::binary) << saved;
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.stopWhen = [](const Game& g) { return g.RoundOneOn; };
    ASSERT_TRUE(hg.Run());
}

int Offers(const HeadlessGame& hg) {
    return static_cast<int>(
        std::ranges::count(hg.table.Messages(), "Saved Game", &MessageRecord::title));
}

// The deal on the table once Round One is on: where every card lies, the up
// card, the dealer, the game's figures, the generator the stock's draws come
// from, and the totals shown.
auto SeeDeal(const HeadlessGame& hg) {
    const Game& g = hg.game;
    std::vector<int> places;
    for (int card = 1; card <= CardCount; ++card) places.push_back(Card(g, card).Place);
    return std::tuple(places, g.UpCard, g.Dealer, +g.HandNumber, g.PlayerTotal, g.OpponentTotal,
                      g.TargetScore, g.HandCards.state,
                      hg.table.Caption(TableLabel::LblTotalScoreP) + "/" +
                          hg.table.Caption(TableLabel::LblTotScoreC));
}

// Each damaged form of the file, as a change of the mid-game text.
std::vector<std::pair<std::string, std::string>> DamagedForms() {
    const auto with = [](const std::string& from, const std::string& to) {
        std::string text = kMidGameText;
        return text.replace(text.find(from), from.size(), to);
    };
    return {
        {"empty", ""},
        {"cut before the line end", kMidGameText.substr(0, kMidGameText.size() - 1)},
        {"lines missing", kMidGameText.substr(0, 35)},
        {"garbage", std::string("\x7f\x01\xff garbage\n\0\n", 14)},
        {"another version", with("game 1", "game 2")},
        {"a line added", kMidGameText + "melds 40\n"},
        {"carriage returns", with("\nplayer", "\r\nplayer")},
        {"a field renamed", with("robot", "robby")},
        {"a negative score", with("player 430", "player -10")},
        {"a score beyond 16 bits", with("robot 610", "robot 40000")},
        {"a leading zero", with("player 430", "player 0430")},
        {"a target no menu gives", with("target 1250", "target 1100")},
        {"a target below the least", with("target 1250", "target 50")},
        {"more rises than hands", with("target 1250", "target 2000")},
        {"a dealer of neither side", with("dealer 2", "dealer 0")},
        {"hands beyond the counter", with("hands 3", "hands 256")},
        {"points before the first hand",
         with("target 1250\ndealer 2\nhands 3", "target 1000\ndealer 2\nhands 0")},
        {"a short seed", with("0123456789abcdef", "0123456789abcde")},
        {"a seed that is no number", with("0123456789abcdef", "0123456789abcdeg")},
    };
}

TEST(SavedGame, EveryDamagedFormStartsANormalGameAndKeepsItsBytes) {
    for (const auto& [form, bytes] : DamagedForms()) {
        SCOPED_TRACE(form);
        EXPECT_FALSE(ParseStanding(bytes).has_value());
        HeadlessGame hg;
        NewGameWith(hg, bytes);
        EXPECT_EQ(Offers(hg), 0);
        EXPECT_EQ(FileBytes(hg.folder / (std::string(kSavedGameName) + ".unreadable")), bytes);
    }
}

// A whole game played at speed 100: every deal, with the saved file as it
// stood when the deal began.
auto PlayThrough(std::uint64_t seed) {
    HeadlessGame hg(seed);
    std::vector<std::pair<decltype(SeeDeal(hg)), std::string>> deals;
    PlayerPolicy player(PolicyKind::First, seed);
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.policy = [&](Game& g) { return player.Next(g); };
    hg.table.answerDeluxe = [&](const MessageRecord& m) {
        return m.title == "Play again?" ? 1 : player.Answer(m);
    };
    hg.platform.stopWhen = [&](const Game& g) {
        if (g.RoundOneOn && g.HandNumber > deals.size()) {
            deals.emplace_back(SeeDeal(hg), FileBytes(SavedFile(hg)));
        }
        return false;
    };
    EXPECT_FALSE(hg.Run()) << "the game ends with its Exit";
    EXPECT_FALSE(std::filesystem::exists(SavedFile(hg))) << "a finished game leaves no save";
    return deals;
}

TEST(SavedGame, AGameLeftAfterAnyHandGoesOnWithTheSameFiguresAndDeal) {
    for (const std::uint64_t seed : {5U, 6U}) {
        const auto deals = PlayThrough(seed);
        ASSERT_GE(deals.size(), 3U);
        for (std::size_t hand = 0; hand < deals.size(); ++hand) {
            SCOPED_TRACE(std::to_string(seed) + " hand " + std::to_string(hand + 1));
            // Another run of the program, with another clock and generator.
            HeadlessGame hg(seed * 1000 + hand);
            NewGameWith(hg, deals[hand].second);
            EXPECT_EQ(Offers(hg), 1);
            EXPECT_EQ(SeeDeal(hg), deals[hand].first);
        }
    }
}

// Round Two over with the hand's tricks counted, as EndOfHand finds it.
void AtHandEnd(Game& g, int player, int robot, int playerTricks, int robotTricks) {
    ClearTable(g);
    g.GameOn = g.RoundTwoOn = true;
    g.Dealer = TheRobot;
    g.HandNumber = 4;
    g.TargetScore = 1000;
    g.PlayerTotal = static_cast<std::int16_t>(player);
    g.OpponentTotal = static_cast<std::int16_t>(robot);
    g.PlayerTotalTricks = static_cast<std::int16_t>(playerTricks);
    g.OpponentTotalTricks = static_cast<std::int16_t>(robotTricks);
}

TEST(SavedGame, EachHandEndAndEachRiseSavesWithTheNextDealsSeedAndGameOverDropsIt) {
    // Both over the target at the hand's end: it rises, and the file holds
    // the rise while each message is up.
    HeadlessGame hg;
    Game& g = hg.game;
    AtHandEnd(g, 900, 880, 130, 120);
    const std::uint64_t before = g.NextDealSeed;
    std::vector<std::optional<GameStanding>> seen;
    hg.table.answerDeluxe = [&](const MessageRecord&) {
        seen.push_back(ParseStanding(FileBytes(SavedFile(hg))));
        return 0;
    };
    EndOfHand(g);
    ASSERT_EQ(seen.size(), 3U);  // the rise, the hand, the totals
    for (const auto& standing : seen) {
        ASSERT_TRUE(standing.has_value());
        EXPECT_EQ(Fields(*standing), std::tuple(std::int16_t(1030), std::int16_t(1000),
                                                std::int16_t(1250), ThePlayer, 4, g.NextDealSeed));
    }
    EXPECT_NE(g.NextDealSeed, before) << "a fresh seed for the next hand";
    // A target changed in the menu goes with the next save.
    AtHandEnd(g, 700, 650, 10, 0);
    g.TargetScore = 750;
    seen.clear();
    EndOfHand(g);
    EXPECT_EQ(seen.at(0)->TargetScore, 750);
    // A game won and answered: kept until the answer, then gone.
    AtHandEnd(g, 1000, 300, 100, 0);
    seen.clear();
    EXPECT_THROW(EndOfHand(g), GameAbandoned);
    EXPECT_TRUE(seen.at(0).has_value());
    EXPECT_FALSE(std::filesystem::exists(SavedFile(hg)));
}

// The file byte for byte, and back at the highest figures. A game against
// the Expert ends its file in one more line; one without it, as every file
// before had, is the Classic robot's. Taken up, the game keeps its robot,
// and the menu's mark and Robot.dat follow it.
TEST(SavedGame, AGameTakenUpKeepsItsRobotAndAnOldFileIsTheClassicRobots) {
    const std::string expertGame = kMidGameText + "robot expert\n";
    GameStanding expert = kMidGame;
    expert.Robot = RobotKind::Expert;
    EXPECT_EQ(FormatStanding(kMidGame) + FormatStanding(expert), kMidGameText + expertGame);
    const GameStanding highest{32767, 0, 1000, 1, 255, ~0ULL};
    EXPECT_EQ(Fields(ParseStanding(FormatStanding(highest)).value()), Fields(highest));
    for (const std::string& damaged :
         {kMidGameText + "robot classic\n", expertGame + "robot expert\n",
          kMidGameText + "robot Expert\n", kMidGameText + "robot expert"}) {
        EXPECT_FALSE(ParseStanding(damaged).has_value()) << damaged;
    }
    for (const auto& [saved, chosen, robot] :
         {std::tuple(expertGame, RobotKind::Classic, RobotKind::Expert),
          std::tuple(kMidGameText, RobotKind::Expert, RobotKind::Classic)}) {
        HeadlessGame hg;
        std::ofstream(hg.folder / kRobotFileName, std::ios::binary)
            << FormatRobotRecord({chosen, {0, 4, 6}});
        NewGameWith(hg, saved);
        EXPECT_EQ(Offers(hg), 1);
        EXPECT_EQ(std::tuple(hg.game.Robot, hg.game.ChosenRobot, hg.table.CheckedRobot()),
                  std::tuple(robot, robot, robot));
        EXPECT_EQ(FileBytes(hg.folder / kRobotFileName), FormatRobotRecord({robot, {0, 4, 6}}));
    }
}

// A run with a saved game in the folder, that can no longer be written over:
// a standing given up must go even when the new game's own save fails. The
// first New Game is scripted; a box is answered with the button named
// `press`, else the first; in the first hand of the game taken up, `then`
// is clicked.
struct OfferCase {
    const char* press;
    std::optional<TableEventKind> then;
    bool kept;
};

TEST(SavedGame, NoAtTheOfferAndYesNewGameDropItExitAndCloseKeepItAndOnlyTheFirstNewGameOffers) {
    const OfferCase cases[] = {{"New Game", std::nullopt, false},
                               {"Yes New Game", TableEventKind::MenuNewGame, false},
                               {"Yes Exit", TableEventKind::MenuExit, true},
                               {"Yes Exit", TableEventKind::CloseBox, true}};
    for (const OfferCase& c : cases) {
        SCOPED_TRACE(std::string(c.press) + (c.then ? " after a click" : ""));
        HeadlessGame hg;
        std::ofstream(SavedFile(hg), std::ios::binary) << kMidGameText;
        std::filesystem::create_directory(SavedFile(hg).string() + ".tmp");
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.table.answerDeluxe = [&](const MessageRecord& m) {
            return int(std::ranges::find(m.buttons, c.press) - m.buttons.begin()) % 3;
        };
        bool clicked = !c.then;
        hg.platform.policy = [&](Game& g) -> std::optional<TableEvent> {
            if (!g.RoundOneOn || clicked) return std::nullopt;
            clicked = true;
            return TableEvent{*c.then};
        };
        hg.platform.stopWhen = [&](const Game& g) { return clicked && g.RoundOneOn; };
        EXPECT_EQ(hg.Run(), !c.kept) << "a game from nothing, or the program ends";
        EXPECT_TRUE(clicked);
        ASSERT_EQ(Offers(hg), 1);
        EXPECT_EQ(hg.table.Messages().front().text,
                  "Player Your last game stands at 430 against 610 with target score 1250. "
                  "Carry on with it?");
        EXPECT_EQ(FileBytes(SavedFile(hg)), c.kept ? kMidGameText : "");
        // Left in the first hand taken up, or a game from nothing.
        EXPECT_EQ(std::tuple(+hg.game.PlayerTotal, +hg.game.HandNumber),
                  c.kept ? std::tuple(430, 4) : std::tuple(0, 1));
        EXPECT_FALSE(std::filesystem::exists(SavedFile(hg).string() + ".unreadable"));
    }
}

}  // namespace
}  // namespace trickhaven
