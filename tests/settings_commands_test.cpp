// The menu commands that change the stored settings, and the two ways out.
#include "data/settings_commands.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "data/data_file.h"
#include "game/session.h"
#include "tests/headless/headless_game.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

std::string FileText(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

// A table that logs each write to the screen with what Data.dat held at
// that moment, so that the order of screen and file is seen.
class LoggingTable : public HeadlessTable {
public:
    explicit LoggingTable(const std::filesystem::path& folder) : data_(folder / "Data.dat") {}

    void SetTitle(const std::string& text) override {
        Log("title " + text);
        HeadlessTable::SetTitle(text);
    }
    void SetCaption(TableLabel label, const std::string& text) override {
        Log("caption " + text);
        HeadlessTable::SetCaption(label, text);
    }
    void ShowPlainMessage(const std::string& message, const std::string& title) override {
        Log("plain " + title);
        HeadlessTable::ShowPlainMessage(message, title);
    }
    int ShowDeluxeMessage(const std::string& message, const std::string& button0,
                          const std::string& button1, const std::string& button2, int icon,
                          const std::string& title) override {
        Log("deluxe " + title);
        return HeadlessTable::ShowDeluxeMessage(message, button0, button1, button2, icon, title);
    }
    bool AskQuestion(const std::string& question, const std::string& title) override {
        Log("question " + title);
        return HeadlessTable::AskQuestion(question, title);
    }
    std::string AskInput(const std::string& prompt, const std::string& title) override {
        Log("input " + title);
        return HeadlessTable::AskInput(prompt, title);
    }

    std::vector<std::string> log;

private:
    void Log(const std::string& entry) {
        const std::string line = FileText(data_);
        log.push_back(entry + " | " + line.substr(0, line.find('\r')));
    }
    std::filesystem::path data_;
};

// A game on a logging table, in the folder of a headless game.
struct LoggedGame {
    LoggedGame() : table(hg.folder), game(table, hg.platform) {
        game.DataFolder = hg.folder;
        hg.platform.game = &game;
        LoadCardTable(game);
        game.OpponentName = "Lorinda";
        game.TargetScore = 1000;
    }
    std::string Saved() const { return FileText(hg.folder / "Data.dat"); }

    HeadlessGame hg;
    LoggingTable table;
    Game game;
};

struct TargetCommand {
    void (*command)(Game&);
    int target;
};

TEST(Settings, TargetCommandsSetTitleThenTellThenSave) {
    for (const TargetCommand& c : {TargetCommand{Menu1000_Click, 1000},
                                   {MenuMedium_Click, 750},
                                   {MnuHalf_Click, 500},
                                   {MnuQuick_Click, 300}}) {
        SCOPED_TRACE(c.target);
        LoggedGame lg;
        lg.game.TargetScore = 1250;
        c.command(lg.game);
        const std::string digits = std::to_string(c.target);
        EXPECT_EQ(lg.game.TargetScore, c.target);
        EXPECT_EQ(lg.table.log, (std::vector<std::string>{"title Target Score " + digits + " | ",
                                                          "plain Trickhaven | "}));
        EXPECT_EQ(lg.table.Messages()[0].text, " You have changed target score to " + digits +
                                                   ". You can come back and change at any time");
        EXPECT_EQ(lg.Saved(), "0,0,100,\"Player\",\"Lorinda\"," + digits + "\r\n");
    }
}

TEST(Settings, NamesAreAskedForTakenAsTypedAndSaved) {
    LoggedGame lg;
    lg.table.answerInput = [](const MessageRecord&) { return std::string(" Ann, the Great "); };
    MnuYours_Click(lg.game);
    EXPECT_EQ(lg.game.PlayerName, " Ann, the Great ");
    EXPECT_EQ(lg.table.Caption(TableLabel::LblPlayer), lg.game.PlayerName);
    EXPECT_EQ(lg.table.Caption(TableLabel::LblPname), lg.game.PlayerName);
    const std::string typed = "caption  Ann, the Great  | ";
    EXPECT_EQ(lg.table.log, (std::vector<std::string>{"question New Name | ",
                                                      "input Player's Name | ", typed, typed}));
    EXPECT_EQ(lg.table.Messages()[0].text,
              "If you wish to enter or change the player's name click Yes");
    EXPECT_EQ(lg.table.Messages()[1].text, "Please enter player's name.");
    EXPECT_NE(lg.Saved().find("\" Ann, the "), std::string::npos);

    // Cancel gives the empty name; No changes nothing.
    lg.table.answerInput = nullptr;
    MnuTheirName_Click(lg.game);
    EXPECT_EQ(lg.game.OpponentName, "");
    EXPECT_EQ(lg.table.Caption(TableLabel::LblBName), "");
    EXPECT_EQ(lg.table.Caption(TableLabel::LblBotsName), "");
    EXPECT_EQ(lg.table.Messages()[2].text,
              "If you wish to enter or change your opponents's name click Yes");
    EXPECT_EQ(lg.table.Messages()[3].text, "Please enter opponent's name.");
    EXPECT_EQ(lg.table.Messages()[3].title, "Opponents's Name");
    EXPECT_NE(lg.Saved().find(",\"\","), std::string::npos);
    lg.table.answerQuestion = [](const MessageRecord&) { return false; };
    const std::size_t shown = lg.table.Messages().size();
    MnuYours_Click(lg.game);
    EXPECT_EQ(lg.table.Messages().size(), shown + 1);
    EXPECT_EQ(lg.game.PlayerName, " Ann, the Great ");
}

TEST(Statistics, ViewTellsTheCountsThenSaves) {
    LoggedGame lg;
    lg.game.GameStats = {0, 7, 5};
    MnuuView_Click(lg.game);
    const MessageRecord& m = lg.table.Messages().at(0);
    EXPECT_EQ(
        m.text,
        "Player you have played a total of 12 games, and won 7 against Lorinda winning 5 games");
    EXPECT_EQ(m.buttons, (std::array<std::string, 3>{"Right", "", ""}));
    EXPECT_EQ(m.icon, 3);
    EXPECT_EQ(lg.table.log, std::vector<std::string>{"deluxe Current Statistics | "});
    EXPECT_EQ(lg.Saved(), "7,5,100,\"Player\",\"Lorinda\",1000\r\n");

    lg.game.GameStats = {0, 2147483647, 1};
    MnuuView_Click(lg.game);
    EXPECT_NE(lg.table.Messages().at(1).text.find(" total of 2147483648 games"), std::string::npos);
}

TEST(Statistics, DeleteErasesOnlyOnYes) {
    LoggedGame lg;
    lg.game.GameStats = {0, 7, 5};
    lg.table.answerDeluxe = [](const MessageRecord&) { return 1; };
    MnuDelete_Click(lg.game);
    EXPECT_EQ(lg.game.GameStats[1], 7);
    EXPECT_FALSE(std::filesystem::exists(lg.hg.folder / "Data.dat"));
    lg.table.answerDeluxe = nullptr;
    MnuDelete_Click(lg.game);
    const MessageRecord& m = lg.table.Messages().at(1);
    EXPECT_EQ(m.text, "Player This will erase all statistice of games won and lost. Erase them?");
    EXPECT_EQ(m.buttons, (std::array<std::string, 3>{"Yes ", "No", ""}));
    EXPECT_EQ(m.icon, 2);
    EXPECT_EQ(m.title, "Really Erase?");
    EXPECT_EQ(lg.Saved(), "0,0,100,\"Player\",\"Lorinda\",1000\r\n");
}

// The ways out, played on the session: a Quit ends Run() with false.
struct ExitCase {
    const char* what;
    bool gameOn;
    std::vector<TableEvent> events;
    std::vector<int> answers;
    std::vector<std::string> titles;
    bool quits;
};

TEST(Exit, MenuAndCloseBoxAskAndLeaveOrCarryOn) {
    const TableEvent exitMenu{TableEventKind::MenuExit};
    const TableEvent closeBox{TableEventKind::CloseBox};
    const std::vector<ExitCase> cases{
        {"menu, no game", false, {exitMenu}, {}, {}, true},
        {"menu in a game, No Continue", true, {exitMenu}, {0}, {"Really Exit?"}, false},
        {"menu in a game, Yes Exit", true, {exitMenu}, {1}, {"Really Exit?"}, true},
        {"close box, Carry On", false, {closeBox}, {1}, {"Really Exit?"}, false},
        {"close box, Yes Exit", false, {closeBox}, {0}, {"Really Exit?"}, true},
        {"close box in a game, then No Continue",
         true,
         {closeBox},
         {0, 0},
         {"Really Exit?", "Really Exit?"},
         false},
        {"close box in a game, Yes Exit twice",
         true,
         {closeBox},
         {0, 1},
         {"Really Exit?", "Really Exit?"},
         true},
    };
    for (const ExitCase& c : cases) {
        SCOPED_TRACE(c.what);
        HeadlessGame hg;
        std::vector<std::string> titles;
        std::size_t asked = 0;
        std::vector<CardPicture> asking;
        hg.table.answerDeluxe = [&](const MessageRecord& m) {
            if (m.title != "Really Exit?") return 0;
            titles.push_back(m.title);
            for (int card = 1; card <= CardCount; ++card) asking.push_back(hg.table.Picture(card));
            return c.answers.at(asked++);
        };
        if (c.gameOn) hg.platform.script.push_back({TableEventKind::MenuNewGame});
        for (const TableEvent& e : c.events) hg.platform.script.push_back(e);
        const long events = static_cast<long>(hg.platform.script.size());
        hg.platform.stopWhen = [&](const Game&) { return hg.platform.eventsServed >= events; };
        EXPECT_EQ(hg.Run(), !c.quits);
        EXPECT_EQ(titles, c.titles);
        EXPECT_EQ(FileText(hg.folder / "All.dat"),
                  c.quits ? "0,0,100,\"Player\",\"Lorinda\",1000\r\n" : "");
        EXPECT_FALSE(std::filesystem::exists(hg.folder / "Data.dat"));
        if (!c.quits && !asking.empty()) {
            for (int card = 1; card <= CardCount; ++card) {
                const CardPicture& now = hg.table.Picture(card);
                const CardPicture& then = asking[static_cast<std::size_t>(card - 1)];
                EXPECT_EQ(now.visible, then.visible);
                EXPECT_EQ(now.image, then.image);
                EXPECT_EQ(now.left, then.left);
            }
        }
    }
}

TEST(Exit, QuestionTexts) {
    HeadlessGame hg;
    ClearTable(hg.game);
    hg.game.PlayerName = "Ann";
    hg.game.GameOn = true;
    hg.table.answerDeluxe = [](const MessageRecord&) { return 0; };
    Form_QueryUnload(hg.game);
    const auto& messages = hg.table.Messages();
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[0].text, " Do you really wish to exit?");
    EXPECT_EQ(messages[0].buttons, (std::array<std::string, 3>{"Yes Exit", "Carry On", ""}));
    EXPECT_EQ(messages[0].icon, 2);
    EXPECT_EQ(messages[1].text,
              "Ann You are in the middle of a game. Do you really wish to Exit the game?");
    EXPECT_EQ(messages[1].buttons, (std::array<std::string, 3>{"No Continue", "Yes Exit", ""}));
    EXPECT_EQ(messages[1].icon, 2);
    EXPECT_EQ(hg.game.Request, SessionRequest::None);
}

}  // namespace
}  // namespace trickhaven
