// The menu commands that change the stored settings, and the two ways out:
// what each shows, and when Data.dat and All.dat are written.
#include "data/settings_commands.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "data/robot_file.h"
#include "game/pacing.h"
#include "game/session.h"
#include "headless/headless_game.h"
#include "headless/player_policy.h"

namespace trickhaven {
namespace {

// A table in the folder of a headless game that logs each title, caption
// and box, one a line, with the line that Data.dat held at that moment, so
// that the order of screen and file is seen.
struct LoggedGame : HeadlessTable {
    LoggedGame() : g(*this, hg.platform) {
        g.DataFolder = hg.folder;
        g.OpponentName = "Lorinda";
        onMessage = [this](const MessageRecord& m) {
            Log(m.title + " [" + m.buttons[0] + "|" + m.buttons[1] + "] " + std::to_string(m.icon) +
                ": " + m.text);
        };
    }
    void SetTitle(const std::string& text) override { Log("title " + text); }
    void SetCaption(TableLabel label, const std::string& text) override {
        Log(LabelName(label) + (" " + text));
    }
    void Log(const std::string& entry) { log += entry + " | " + Saved() + "\n"; }
    std::string Saved() const {
        const std::string line = FileBytes(hg.folder / "Data.dat");
        return line.substr(0, line.find('\r'));
    }
    HeadlessGame hg;
    Game g;
    std::string log;
};

TEST(Settings, TargetCommandsTitleTellThenSaveAndSpeedCommandsSaveThenTell) {
    const std::pair<void (*)(Game&), int> commands[]{{Menu1000_Click, 1000},
                                                     {MenuMedium_Click, 750},
                                                     {MnuHalf_Click, 500},
                                                     {MnuQuick_Click, 300}};
    for (const auto& [command, target] : commands) {
        LoggedGame lg;
        lg.g.TargetScore = 1250;
        command(lg.g);
        const std::string digits = std::to_string(target);
        EXPECT_EQ(lg.log, "title Target Score " + digits +
                              " | \nTrickhaven [OK|] 0:  You have changed target score to " +
                              digits + ". You can come back and change at any time | \n");
        EXPECT_EQ(lg.Saved(), "0,0,100,\"Player\",\"Lorinda\"," + digits);
    }
    const std::tuple<void (*)(Game&), int, std::string> speeds[]{
        {MnuFast_Click, 25, "faster"},
        {MnuMedium_Click, 100, "at a medium speed"},
        {MnuSlow_Click, 250, "slowly"}};
    for (const auto& [command, speed, how] : speeds) {
        LoggedGame lg;
        lg.g.GameSpeed = 7;
        lg.g.DelayMs = 9;
        command(lg.g);
        // The pace of a wait under way is left alone.
        EXPECT_EQ(std::tuple(lg.g.GameSpeed, lg.g.DelayMs), std::tuple(speed, 9));
        EXPECT_EQ(lg.log, "Trickhaven [OK|] 0:  The cards should now play " + how +
                              ", but it will depend on the speed of your computer to a degree. | "
                              "0,0," +
                              std::to_string(speed) + ",\"Player\",\"Lorinda\",0\n");
    }
}

// No asks no more and saves nothing; a name is taken as typed, Cancel
// giving the empty name.
TEST(Settings, NamesAreAskedForShownThenSaved) {
    LoggedGame lg;
    lg.answerQuestion = [](const MessageRecord&) { return false; };
    MnuYours_Click(lg.g);
    lg.answerQuestion = nullptr;
    lg.answerInput = [](const MessageRecord&) { return std::string(" Ann, the Great "); };
    MnuYours_Click(lg.g);
    lg.answerInput = nullptr;
    MnuTheirName_Click(lg.g);
    const std::string ann = " Ann, the Great ";
    const std::string saved = " | 0,0,100,\"" + ann + "\",\"Lorinda\",0\n";
    const std::string askYours =
        "New Name [Yes|No] 0: If you wish to enter or change the player's name click Yes | ";
    EXPECT_EQ(lg.log, askYours + "\n" + askYours +
                          "\nPlayer's Name [OK|Cancel] 0: Please enter player's name. | " +
                          "\nLblPlayer0 " + ann + " | \nLblPname1 " + ann +
                          " | \nNew Name [Yes|No] 0: If you wish to enter or change your "
                          "opponents's name click Yes" +
                          saved + "Opponents's Name [OK|Cancel] 0: Please enter opponent's name." +
                          saved + "LblBName " + saved + "LblBotsName " + saved);
    EXPECT_EQ(lg.Saved(), "0,0,100,\"" + ann + "\",\"\",0");
}

// The Expert's games are told after the design's once there are any, and
// "all statistics" erases them too; Data.dat keeps the design's games.
TEST(Statistics, ViewTellsTheCountsThenSavesAndDeleteErasesBothRobotsGamesOnlyOnYes) {
    LoggedGame lg;
    lg.g.GameStats = {0, 7, 5};
    lg.answerDeluxe = [](const MessageRecord&) { return 1; };
    MnuDelete_Click(lg.g);
    lg.answerDeluxe = nullptr;
    MnuuView_Click(lg.g);
    lg.g.ExpertStats = {0, 1, 3};
    MnuuView_Click(lg.g);
    MnuDelete_Click(lg.g);
    const std::string erase =
        "Really Erase? [Yes |No] 2: Player This will erase all statistice of games won and lost. "
        "Erase them? | ";
    const std::string view =
        "Current Statistics [Right|] 3: Player you have played a total of 12 games, and won 7 "
        "against Lorinda winning 5 games";
    const std::string saved = "7,5,100,\"Player\",\"Lorinda\",0\n";
    EXPECT_EQ(lg.log,
              erase + "\n" + view + " | \n" + view +
                  " as Classic, and a total of 4 games, and won 1 against Lorinda winning 3 "
                  "games as Expert | " +
                  saved + erase + saved);
    EXPECT_EQ(lg.Saved(), "0,0,100,\"Player\",\"Lorinda\",0");
    EXPECT_EQ(FileBytes(lg.hg.folder / kRobotFileName), FormatRobotRecord({}));
}

// The robot's menu moves its mark and writes Robot.dat before its box
// tells the change, which in a game waits for the next deal; Data.dat is
// never written.
TEST(RobotMenu, TheChoiceIsMarkedSavedThenToldAndInAGameWaitsForTheNextDeal) {
    const std::string later = ". It will play from the next hand.";
    const std::tuple<bool, RobotKind, void (*)(Game&), RobotKind, std::string> cases[]{
        {false, RobotKind::Classic, MnuExpert_Click, RobotKind::Expert, "."},
        {true, RobotKind::Classic, MnuExpert_Click, RobotKind::Expert, later},
        {true, RobotKind::Expert, MnuClassic_Click, RobotKind::Classic, later},
        {true, RobotKind::Expert, MnuExpert_Click, RobotKind::Expert, "."},
    };
    for (const auto& [gameOn, playing, command, chosen, then] : cases) {
        LoggedGame lg;
        lg.g.GameOn = gameOn;
        lg.g.Robot = lg.g.ChosenRobot = playing;
        std::string fileWhenTold;
        lg.onMessage = [&](const MessageRecord& m) {
            lg.Log(m.title + ": " + m.text);
            fileWhenTold = FileBytes(lg.hg.folder / kRobotFileName);
        };
        command(lg.g);
        EXPECT_EQ(lg.log, std::string("Trickhaven:  You have changed the robot to ") +
                              RobotName(chosen) + then +
                              " You can come back and change at any time | \n");
        EXPECT_EQ(std::tuple(lg.g.ChosenRobot, lg.CheckedRobot(), lg.g.Robot),
                  std::tuple(chosen, chosen, playing));
        EXPECT_EQ(fileWhenTold, FormatRobotRecord({chosen, {}}));
    }
    // Expert chosen in the first hand of a game: that hand is played out
    // against the Classic robot, the next against the Expert, and the
    // standing saved between them says so.
    HeadlessGame hg;
    PlayerPolicy player(PolicyKind::First, 3);
    std::set<std::pair<int, RobotKind>> played;
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.policy = [&](Game& g) -> std::optional<TableEvent> {
        if (g.RoundOneOn && g.ChosenRobot == RobotKind::Classic)
            return TableEvent{TableEventKind::MenuExpert};
        return player.Next(g);
    };
    hg.platform.stopWhen = [&](const Game& g) {
        if (g.RoundOneOn) played.emplace(g.HandNumber, g.Robot);
        return g.HandNumber == 2 && g.RoundOneOn;
    };
    ASSERT_TRUE(hg.Run());
    EXPECT_EQ(played, (std::set<std::pair<int, RobotKind>>{{1, RobotKind::Classic},
                                                           {2, RobotKind::Expert}}));
    EXPECT_EQ(hg.table.Messages().at(0).text, " You have changed the robot to Expert" + later +
                                                  " You can come back and change at any time");
    EXPECT_TRUE(FileBytes(hg.folder / "SavedGame.dat").ends_with("\nrobot expert\n"));
}

// In a game the close box asks, then the menu's exit asks again; All.dat is
// written only once leaving is certain, and Data.dat never.
TEST(Exit, TheCloseBoxWritesAllDatOnlyWhenLeaving) {
    LoggedGame lg;
    lg.g.GameOn = true;
    // Carry On; Yes Exit, then No Continue; Yes Exit twice.
    lg.answerDeluxe = [&lg](const MessageRecord&) {
        return std::array{1, 0, 0, 0, 1}.at(lg.Messages().size());
    };
    Form_QueryUnload(lg.g);
    Form_QueryUnload(lg.g);
    // A close taken back leaves every card picture as it was.
    for (const std::string& step : lg.timeline)
        EXPECT_NE(step.find(" message "), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(lg.hg.folder / "All.dat"));
    EXPECT_THROW(Form_QueryUnload(lg.g), GameAbandoned);
    EXPECT_EQ(std::tuple(lg.g.Request, lg.Messages().size(), lg.Saved()),
              std::tuple(SessionRequest::Quit, 5U, ""));
    EXPECT_EQ(FileBytes(lg.hg.folder / "All.dat"), "0,0,100,\"Player\",\"Lorinda\",0\r\n");
}

}  // namespace
}  // namespace trickhaven
