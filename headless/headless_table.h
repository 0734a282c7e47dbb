// A table without a window: it records every picture, position, z-order,
// caption, panel text and message, and answers the boxes from a script.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "forms/table_view.h"
#include "game/game_state.h"

namespace trickhaven {

struct CardPicture {
    int image = 1;
    int left = 9000;
    int top = 2880;
    bool visible = true;
    long z = 0;
};

struct MessageRecord {
    std::string kind;  // "deluxe", "plain", "question", "input"
    std::string text;
    std::array<std::string, 3> buttons;
    int icon = 0;
    std::string title;
    int choice = 0;
};

class HeadlessTable : public TableView {
public:
    HeadlessTable();

    void SetCardImage(int card, int image) override;
    void MoveCard(int card, int left, int top) override;
    int CardLeft(int card) const override;
    int CardTop(int card) const override;
    void BringCardToFront(int card) override;
    void SetCardVisible(int card, bool visible) override;
    void SetControlVisible(TableControl control, bool visible) override;
    bool IsControlVisible(TableControl control) const override;
    void BringControlToFront(TableControl control) override;
    void SetCaption(TableLabel label, const std::string& text) override;
    std::string Caption(TableLabel label) const override;
    void SetPanelText(int panel, const std::string& text) override;
    void SetPanelPicture(int image) override;
    void SetTitle(const std::string& text) override;
    void CheckRobot(RobotKind robot) override;
    int ShowDeluxeMessage(const std::string& message, const std::string& button0,
                          const std::string& button1, const std::string& button2, int icon,
                          const std::string& title) override;
    void ShowPlainMessage(const std::string& message, const std::string& title) override;
    bool AskQuestion(const std::string& question, const std::string& title) override;
    std::string AskInput(const std::string& prompt, const std::string& title) override;

    const CardPicture& Picture(int card) const { return cards_.at(static_cast<std::size_t>(card)); }
    const std::string& PanelText(int panel) const {
        return panels_.at(static_cast<std::size_t>(panel));
    }
    int PanelPicture() const { return panelPicture_; }
    const std::string& Title() const { return title_; }
    // The entry of the robot's menu that bears the check mark.
    RobotKind CheckedRobot() const { return checkedRobot_; }
    // Every box shown, in order.
    const std::vector<MessageRecord>& Messages() const { return messages_; }
    // Every text written to a status panel, in order, as (panel, text).
    const std::vector<std::pair<int, std::string>>& PanelHistory() const { return panelHistory_; }

    // Answers of the boxes; by default the first button, Yes, and the empty
    // text. The deluxe answer sees the message as it stands.
    std::function<int(const MessageRecord&)> answerDeluxe;
    std::function<bool(const MessageRecord&)> answerQuestion;
    std::function<std::string(const MessageRecord&)> answerInput;
    // Told of every status text and every box (with its answer), whether the
    // history is kept or not.
    std::function<void(int, const std::string&)> onPanelText;
    std::function<void(const MessageRecord&)> onMessage;
    // Off for long runs, where the records would only grow.
    bool keepHistory = true;

    // Every change of the table, in order, as a line "<ms> <what> <args>":
    // "move 17 5000 4000", "image 17 49", "card 17 hidden", "show FramDeclare",
    // "caption LblStock Stock 22", "panel 2 <text>", "message <title>",
    // "sound knock.wav". The time is the clock's, so the gaps between lines
    // are the waits of the game.
    std::vector<std::string> timeline;
    std::function<std::int32_t()> clock;
    void Note(const std::string& what);

private:
    void Record(const MessageRecord& record);

    std::array<CardPicture, 49> cards_{};
    std::map<TableControl, bool> visible_;
    std::map<TableLabel, std::string> captions_;
    std::array<std::string, 5> panels_{};
    int panelPicture_ = 0;
    std::string title_;
    RobotKind checkedRobot_ = RobotKind::Classic;
    std::vector<MessageRecord> messages_;
    std::vector<std::pair<int, std::string>> panelHistory_;
    long zCounter_ = 0;
};

}  // namespace trickhaven
