#include "data/settings_commands.h"

#include <array>
#include <cstdint>
#include <string>

#include "data/data_file.h"
#include "data/robot_file.h"
#include "game/session.h"

namespace trickhaven {

namespace {

// A target chosen in the menu plays at once, on a game that is on too.
void ChooseTarget(Game& g, std::int16_t target) {
    const std::string digits = std::to_string(target);
    g.TargetScore = target;
    g.view.SetTitle("Target Score " + digits);
    g.view.ShowPlainMessage(" You have changed target score to " + digits +
                                ". You can come back and change at any time",
                            "Trickhaven");
    SaveData(g);
}

struct NameQuestions {
    const char* question;
    const char* prompt;
    const char* title;
    TableLabel tableLabel;
    TableLabel panelLabel;
};

// The name is taken exactly as typed; Cancel gives the empty name.
void AskForName(Game& g, std::string& name, const NameQuestions& asked) {
    if (!g.view.AskQuestion(asked.question, "New Name")) {
        return;
    }
    name = g.view.AskInput(asked.prompt, asked.title);
    g.view.SetCaption(asked.tableLabel, name);
    g.view.SetCaption(asked.panelLabel, name);
    SaveData(g);
}

// The robot chosen in the menu plays from the next deal: a hand in progress
// goes on against the robot that started it.
void ChooseRobot(Game& g, RobotKind robot) {
    KeepRobotChoice(g, robot);
    const bool waits = g.GameOn && g.Robot != robot;
    g.view.ShowPlainMessage(std::string(" You have changed the robot to ") + RobotName(robot) +
                                (waits ? ". It will play from the next hand." : ".") +
                                " You can come back and change at any time",
                            "Trickhaven");
}

// "... won 7 against Lorinda winning 5 games": the games of one robot.
std::string GamesPlayed(const Game& g, const std::array<std::int32_t, 3>& stats) {
    // Wide enough that the sum never wraps, however many games are stored.
    const std::int64_t played =
        static_cast<std::int64_t>(stats[1]) + static_cast<std::int64_t>(stats[2]);
    return " a total of " + std::to_string(played) + " games, and won " + std::to_string(stats[1]) +
           " against " + g.OpponentName + " winning " + std::to_string(stats[2]) + " games";
}

}  // namespace

void Menu1000_Click(Game& g) {
    ChooseTarget(g, 1000);
}
void MenuMedium_Click(Game& g) {
    ChooseTarget(g, 750);
}
void MnuHalf_Click(Game& g) {
    ChooseTarget(g, 500);
}
void MnuQuick_Click(Game& g) {
    ChooseTarget(g, 300);
}

void MnuYours_Click(Game& g) {
    AskForName(g, g.PlayerName,
               {"If you wish to enter or change the player's name click Yes",
                "Please enter player's name.", "Player's Name", TableLabel::LblPlayer,
                TableLabel::LblPname});
}

void MnuTheirName_Click(Game& g) {
    AskForName(g, g.OpponentName,
               {"If you wish to enter or change your opponents's name click Yes",
                "Please enter opponent's name.", "Opponents's Name", TableLabel::LblBName,
                TableLabel::LblBotsName});
}

void MnuClassic_Click(Game& g) {
    ChooseRobot(g, RobotKind::Classic);
}

void MnuExpert_Click(Game& g) {
    ChooseRobot(g, RobotKind::Expert);
}

void MnuuView_Click(Game& g) {
    // The design's statistics are the Classic robot's; the Expert's follow
    // once a game against it has been counted.
    std::string message = g.PlayerName + " you have played" + GamesPlayed(g, g.GameStats);
    if (g.ExpertStats[1] != 0 || g.ExpertStats[2] != 0) {
        message += " as Classic, and" + GamesPlayed(g, g.ExpertStats) + " as Expert";
    }
    g.MessageChoice = static_cast<std::int16_t>(
        g.view.ShowDeluxeMessage(message, "Right", "", "", 3, "Current Statistics"));
    SaveData(g);
}

void MnuDelete_Click(Game& g) {
    g.MessageChoice = static_cast<std::int16_t>(g.view.ShowDeluxeMessage(
        g.PlayerName + " This will erase all statistice of games won and lost. Erase them?", "Yes ",
        "No", "", 2, "Really Erase?"));
    if (g.MessageChoice != 0) {
        return;
    }
    g.GameStats[1] = 0;
    g.GameStats[2] = 0;
    SaveData(g);
    // "All statistics": the Expert's games go too.
    if (g.ExpertStats[1] != 0 || g.ExpertStats[2] != 0) {
        g.ExpertStats[1] = 0;
        g.ExpertStats[2] = 0;
        SaveRobotFile(g);
    }
}

void MnuExit_Click(Game& g) {
    if (g.GameOn) {
        g.MessageChoice = static_cast<std::int16_t>(g.view.ShowDeluxeMessage(
            g.PlayerName + " You are in the middle of a game. Do you really wish to Exit the game?",
            "No Continue", "Yes Exit", "", 2, "Really Exit?"));
        if (g.MessageChoice == 0) {
            return;
        }
    }
    SaveAllData(g);
    Abandon(g, SessionRequest::Quit);
}

void Form_QueryUnload(Game& g) {
    // Here the first button is the one that leaves. A close taken back at
    // the second question leaves the table as it was: the card pictures go
    // only with the program.
    g.MessageChoice = static_cast<std::int16_t>(g.view.ShowDeluxeMessage(
        " Do you really wish to exit?", "Yes Exit", "Carry On", "", 2, "Really Exit?"));
    if (g.MessageChoice == 0) {
        MnuExit_Click(g);
    }
}

}  // namespace trickhaven
