// The menu commands that change the stored settings, and the two ways out.
#include "data/settings_commands.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <tuple>

#include "game/session.h"
#include "headless/headless_game.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

std::string FileText(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// A table that logs each title, caption and box with the first line that
// Data.dat held at that moment, so that the order of screen and file is seen.
struct LoggingTable : HeadlessTable {
    explicit LoggingTable(const std::filesystem::path& folder) : data(folder / "Data.dat") {
        onMessage = [this](const MessageRecord& m) { Log(m.kind + " " + m.title); };
    }
    void SetTitle(const std::string& text) override {
        Log("title " + text);
        HeadlessTable::SetTitle(text);
    }
    void SetCaption(TableLabel label, const std::string& text) override {
        Log("caption " + text);
        HeadlessTable::SetCaption(label, text);
    }
    void Log(const std::string& entry) {
        const std::string line = FileText(data);
        log.push_back(entry + " | " + line.substr(0, line.find('\r')));
    }
    std::filesystem::path data;
    std::vector<std::string> log;
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
    const MessageRecord& Box(std::size_t n) const { return table.Messages().at(n); }

    HeadlessGame hg;
    LoggingTable table;
    Game game;
};

TEST(Settings, TargetCommandsSetTitleThenTellThenSave) {
    for (const auto& [command, target] : {std::tuple{&Menu1000_Click, 1000},
                                          {MenuMedium_Click, 750},
                                          {MnuHalf_Click, 500},
                                          {MnuQuick_Click, 300}}) {
        SCOPED_TRACE(target);
        LoggedGame lg;
        lg.game.TargetScore = 1250;
        command(lg.game);
        const std::string digits = std::to_string(target);
        EXPECT_EQ(lg.game.TargetScore, target);
        EXPECT_EQ(lg.table.log, (std::vector<std::string>{"title Target Score " + digits + " | ",
                                                          "plain Trickhaven | "}));
        EXPECT_EQ(lg.Box(0).text, " You have changed target score to " + digits +
                                      ". You can come back and change at any time");
        EXPECT_EQ(lg.Saved(), "0,0,100,\"Player\",\"Lorinda\"," + digits + "\r\n");
    }
}

TEST(Settings, NamesAreAskedForTakenAsTypedAndSaved) {
    LoggedGame lg;
    lg.table.answerInput = [](const MessageRecord&) { return std::string(" Ann, the Great "); };
    MnuYours_Click(lg.game);
    EXPECT_EQ(lg.game.PlayerName, " Ann, the Great ");
    EXPECT_EQ(
        std::tuple(lg.table.Caption(TableLabel::LblPlayer), lg.table.Caption(TableLabel::LblPname)),
        std::tuple(" Ann, the Great ", " Ann, the Great "));
    const std::string typed = "caption  Ann, the Great  | ";
    EXPECT_EQ(lg.table.log, (std::vector<std::string>{"question New Name | ",
                                                      "input Player's Name | ", typed, typed}));
    EXPECT_EQ(lg.Box(0).text, "If you wish to enter or change the player's name click Yes");
    EXPECT_EQ(lg.Box(1).text, "Please enter player's name.");
    EXPECT_NE(lg.Saved().find("\" Ann, the "), std::string::npos);

    // Cancel gives the empty name; No changes nothing.
    lg.table.answerInput = nullptr;
    MnuTheirName_Click(lg.game);
    EXPECT_EQ(std::tuple(lg.game.OpponentName, lg.table.Caption(TableLabel::LblBName),
                         lg.table.Caption(TableLabel::LblBotsName)),
              std::tuple("", "", ""));
    EXPECT_EQ(lg.Box(2).text, "If you wish to enter or change your opponents's name click Yes");
    EXPECT_EQ(std::tuple(lg.Box(3).text, lg.Box(3).title),
              std::tuple("Please enter opponent's name.", "Opponents's Name"));
    EXPECT_NE(lg.Saved().find(",\"\","), std::string::npos);
    lg.table.answerQuestion = [](const MessageRecord&) { return false; };
    MnuYours_Click(lg.game);
    EXPECT_EQ(lg.table.Messages().size(), 5U);
    EXPECT_EQ(lg.game.PlayerName, " Ann, the Great ");
}

TEST(Statistics, ViewTellsTheCountsThenSavesAndDeleteErasesOnlyOnYes) {
    LoggedGame lg;
    lg.game.GameStats = {0, 7, 5};
    lg.table.answerDeluxe = [](const MessageRecord&) { return 1; };
    MnuDelete_Click(lg.game);
    EXPECT_EQ(lg.game.GameStats[1], 7);
    EXPECT_FALSE(std::filesystem::exists(lg.hg.folder / "Data.dat"));

    lg.table.answerDeluxe = nullptr;
    MnuuView_Click(lg.game);
    EXPECT_EQ(
        lg.Box(1).text,
        "Player you have played a total of 12 games, and won 7 against Lorinda winning 5 games");
    EXPECT_EQ(std::tuple(lg.Box(1).buttons[0], lg.Box(1).icon), std::tuple("Right", 3));
    EXPECT_EQ(lg.table.log.back(), "deluxe Current Statistics | ");
    EXPECT_EQ(lg.Saved(), "7,5,100,\"Player\",\"Lorinda\",1000\r\n");

    MnuDelete_Click(lg.game);
    EXPECT_EQ(lg.Box(2).text,
              "Player This will erase all statistice of games won and lost. Erase them?");
    EXPECT_EQ(lg.Box(2).buttons, (std::array<std::string, 3>{"Yes ", "No", ""}));
    EXPECT_EQ(std::tuple(lg.Box(2).icon, lg.Box(2).title), std::tuple(2, "Really Erase?"));
    EXPECT_EQ(lg.Saved(), "0,0,100,\"Player\",\"Lorinda\",1000\r\n");

    // The count of games never wraps.
    lg.game.GameStats = {0, 2147483647, 1};
    MnuuView_Click(lg.game);
    EXPECT_NE(lg.Box(3).text.find(" total of 2147483648 games"), std::string::npos);
}

// The ways out, played on the session: a Quit ends Run() with false. A
// question taken back leaves the cards as they were.
TEST(Exit, MenuAndCloseBoxAskAndLeaveOrCarryOn) {
    // In a game or not, the close box or the menu, the answers, and whether
    // the program ends.
    using Row = std::tuple<const char*, bool, bool, std::vector<int>, bool>;
    for (const auto& [what, gameOn, closeBox, answers, quits] :
         std::vector<Row>{{"menu, no game", false, false, {}, true},
                          {"menu in a game, No Continue", true, false, {0}, false},
                          {"menu in a game, Yes Exit", true, false, {1}, true},
                          {"close box, Carry On", false, true, {1}, false},
                          {"close box, Yes Exit", false, true, {0}, true},
                          {"close box in a game, then No Continue", true, true, {0, 0}, false},
                          {"close box in a game, Yes Exit twice", true, true, {0, 1}, true}}) {
        SCOPED_TRACE(what);
        HeadlessGame hg;
        std::size_t asked = 0;
        std::vector<CardPicture> asking;
        hg.table.answerDeluxe = [&, &answers = answers,
                                 closeBox = closeBox](const MessageRecord& m) {
            if (m.title != "Really Exit?") return 0;
            // The close box asks first; in a game the menu's question follows.
            const bool closing = closeBox && asked == 0;
            EXPECT_EQ(m.text, closing ? " Do you really wish to exit?"
                                      : "Player You are in the middle of a game. Do you really "
                                        "wish to Exit the game?");
            EXPECT_EQ(m.buttons[0] + "|" + m.buttons[1] + "|" + m.buttons[2],
                      closing ? "Yes Exit|Carry On|" : "No Continue|Yes Exit|");
            EXPECT_EQ(m.icon, 2);
            for (int card = 1; card <= CardCount && asked == 0; ++card) {
                asking.push_back(hg.table.Picture(card));
            }
            return answers.at(asked++);
        };
        if (gameOn) hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.platform.script.push_back(
            {closeBox ? TableEventKind::CloseBox : TableEventKind::MenuExit});
        const auto events = static_cast<long>(hg.platform.script.size());
        hg.platform.stopWhen = [&](const Game&) { return hg.platform.eventsServed >= events; };
        EXPECT_EQ(hg.Run(), !quits);
        EXPECT_EQ(asked, answers.size());
        EXPECT_EQ(FileText(hg.folder / "All.dat"),
                  quits ? "0,0,100,\"Player\",\"Lorinda\",1000\r\n" : "");
        EXPECT_FALSE(std::filesystem::exists(hg.folder / "Data.dat"));
        for (std::size_t card = 1; !quits && card <= asking.size(); ++card) {
            const CardPicture& now = hg.table.Picture(static_cast<int>(card));
            const CardPicture& then = asking[card - 1];
            EXPECT_EQ(std::tuple(now.visible, now.image, now.left),
                      std::tuple(then.visible, then.image, then.left));
        }
    }
}

}  // namespace
}  // namespace trickhaven
