#include "headless/headless_table.h"

namespace trickhaven {

HeadlessTable::HeadlessTable() {
    visible_ = {{TableControl::FramDeclare, false},  {TableControl::FramMarriage, false},
                {TableControl::FramMeldHelp, false}, {TableControl::LblKnock, false},
                {TableControl::LblStock, true},      {TableControl::CmdSort, false}};
    captions_ = {{TableLabel::LblBotsName, "Opponent"}, {TableLabel::LblPlayer, "Player"},
                 {TableLabel::LblPname, "Player"},      {TableLabel::LblBName, "Opponent"},
                 {TableLabel::LblStock, "Stock"},       {TableLabel::CmdSort, "Sort Same"}};
    for (const TableLabel figure :
         {TableLabel::LblLastTrickP, TableLabel::LblTotTricksP, TableLabel::LblLastMeldP,
          TableLabel::LblTotalMeldsP, TableLabel::LblTotalScoreP, TableLabel::LblLastTrickC,
          TableLabel::LblTotTricskC, TableLabel::LbllLastMeldC, TableLabel::LblTotMeldsC,
          TableLabel::LblTotScoreC}) {
        captions_[figure] = "0";
    }
    panels_ = {"", "Trump", "General Information", "Tricks", "Rounds"};
}

void HeadlessTable::SetCardImage(int card, int image) {
    cards_.at(static_cast<std::size_t>(card)).image = image;
    Note("image " + std::to_string(card) + " " + std::to_string(image));
}

void HeadlessTable::MoveCard(int card, int left, int top) {
    CardPicture& picture = cards_.at(static_cast<std::size_t>(card));
    picture.left = left;
    picture.top = top;
    Note("move " + std::to_string(card) + " " + std::to_string(left) + " " + std::to_string(top));
}

int HeadlessTable::CardLeft(int card) const {
    return Picture(card).left;
}
int HeadlessTable::CardTop(int card) const {
    return Picture(card).top;
}

void HeadlessTable::BringCardToFront(int card) {
    cards_.at(static_cast<std::size_t>(card)).z = ++zCounter_;
}

void HeadlessTable::SetCardVisible(int card, bool visible) {
    cards_.at(static_cast<std::size_t>(card)).visible = visible;
    Note("card " + std::to_string(card) + (visible ? " shown" : " hidden"));
}

void HeadlessTable::SetControlVisible(TableControl control, bool visible) {
    visible_[control] = visible;
    Note((visible ? "show " : "hide ") + std::string(ControlName(control)));
}

bool HeadlessTable::IsControlVisible(TableControl control) const {
    return visible_.at(control);
}

void HeadlessTable::BringControlToFront(TableControl /*control*/) {}

void HeadlessTable::SetCaption(TableLabel label, const std::string& text) {
    captions_[label] = text;
    Note("caption " + std::string(LabelName(label)) + " " + text);
}

std::string HeadlessTable::Caption(TableLabel label) const {
    return captions_.at(label);
}

void HeadlessTable::SetPanelText(int panel, const std::string& text) {
    panels_.at(static_cast<std::size_t>(panel)) = text;
    if (onPanelText) onPanelText(panel, text);
    if (keepHistory) panelHistory_.emplace_back(panel, text);
    Note("panel " + std::to_string(panel) + " " + text);
}

void HeadlessTable::SetPanelPicture(int image) {
    panelPicture_ = image;
}

void HeadlessTable::SetTitle(const std::string& text) {
    title_ = text;
}

void HeadlessTable::CheckRobot(RobotKind robot) {
    checkedRobot_ = robot;
}

int HeadlessTable::ShowDeluxeMessage(const std::string& message, const std::string& button0,
                                     const std::string& button1, const std::string& button2,
                                     int icon, const std::string& title) {
    MessageRecord record{"deluxe", message, {button0, button1, button2}, icon, title, 0};
    record.choice = answerDeluxe ? answerDeluxe(record) : 0;
    Record(record);
    return record.choice;
}

void HeadlessTable::ShowPlainMessage(const std::string& message, const std::string& title) {
    Record(MessageRecord{"plain", message, {"OK", "", ""}, 0, title, 0});
}

bool HeadlessTable::AskQuestion(const std::string& question, const std::string& title) {
    MessageRecord record{"question", question, {"Yes", "No", ""}, 0, title, 0};
    const bool yes = answerQuestion ? answerQuestion(record) : true;
    record.choice = yes ? 0 : 1;
    Record(record);
    return yes;
}

std::string HeadlessTable::AskInput(const std::string& prompt, const std::string& title) {
    MessageRecord record{"input", prompt, {"OK", "Cancel", ""}, 0, title, 0};
    std::string text = answerInput ? answerInput(record) : std::string();
    Record(record);
    return text;
}

void HeadlessTable::Note(const std::string& what) {
    if (keepHistory) timeline.push_back(std::to_string(clock ? clock() : 0) + " " + what);
}

void HeadlessTable::Record(const MessageRecord& record) {
    Note("message " + record.title);
    if (onMessage) onMessage(record);
    if (keepHistory) messages_.push_back(record);
}

}  // namespace trickhaven
