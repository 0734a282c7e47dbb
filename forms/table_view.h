// What the game logic sees of the table: the operations it may ask of the
// window, and the events the window hands back. Nothing here knows Qt; the
// Qt table and the headless table of the tests both implement it.
#pragma once

#include <cstdint>
#include <string>

namespace trickhaven {

// The two robots of the robot's menu (game/game_state.h names them).
enum class RobotKind : std::uint8_t;

// Images of ImageList1: 1..48 the card faces, 49 the back, 50..53 the suit
// icons in suit order.
inline constexpr int CardBackImage = 49;
inline constexpr int FirstSuitIconImage = 50;

// Controls that the logic shows, hides or brings to the front.
enum class TableControl {
    FramDeclare,
    FramMarriage,
    FramMeldHelp,
    LblKnock,
    LblStock,
    CmdSort,
};

// Controls whose caption the logic writes (and, for CmdSort, reads).
enum class TableLabel {
    LblBotsName,
    LblPlayer,  // LblPlayer(0)
    LblPname,   // LblPname(1)
    LblBName,
    LblStock,
    CmdSort,
    LblLastTrickP,
    LblTotTricksP,
    LblLastMeldP,
    LblTotalMeldsP,
    LblTotalScoreP,
    LblLastTrickC,
    LblTotTricskC,
    LbllLastMeldC,
    LblTotMeldsC,
    LblTotScoreC,
};

// The object name of the control behind a view enum, in the window and in
// the headless table's record of play.
inline const char* ControlName(TableControl control) {
    switch (control) {
        case TableControl::FramDeclare:
            return "FramDeclare";
        case TableControl::FramMarriage:
            return "FramMarriage";
        case TableControl::FramMeldHelp:
            return "FramMeldHelp";
        case TableControl::LblKnock:
            return "LblKnock";
        case TableControl::LblStock:
            return "LblStock";
        case TableControl::CmdSort:
            return "CmdSort";
    }
    return "";
}

inline const char* LabelName(TableLabel label) {
    switch (label) {
        case TableLabel::LblBotsName:
            return "LblBotsName";
        case TableLabel::LblPlayer:
            return "LblPlayer0";
        case TableLabel::LblPname:
            return "LblPname1";
        case TableLabel::LblBName:
            return "LblBName";
        case TableLabel::LblStock:
            return "LblStock";
        case TableLabel::CmdSort:
            return "CmdSort";
        case TableLabel::LblLastTrickP:
            return "LblLastTrickP";
        case TableLabel::LblTotTricksP:
            return "LblTotTricksP";
        case TableLabel::LblLastMeldP:
            return "LblLastMeldP";
        case TableLabel::LblTotalMeldsP:
            return "LblTotalMeldsP";
        case TableLabel::LblTotalScoreP:
            return "LblTotalScoreP";
        case TableLabel::LblLastTrickC:
            return "LblLastTrickC";
        case TableLabel::LblTotTricskC:
            return "LblTotTricskC";
        case TableLabel::LbllLastMeldC:
            return "LbllLastMeldC";
        case TableLabel::LblTotMeldsC:
            return "LblTotMeldsC";
        case TableLabel::LblTotScoreC:
            return "LblTotScoreC";
    }
    return "";
}

// Everything the table hands to the logic: clicks on its controls, the menu
// commands and the close box. The help pages and the About box touch nothing
// of the game and stay within the forms.
enum class TableEventKind {
    CardClick,  // index: the card, 1..48, either mouse button
    KnockClick,
    SortClick,
    DoublePinochleClick,  // CmdDBezique
    PinochleClick,        // CmdBezique
    RunClick,             // CmdSequence
    FoursClick,           // index: CmdFours index, 0 Kings, 1 Queens, 2 Jacks, 3 Aces
    DixClick,             // cmdDec7Trumps
    MakeMarriageClick,    // CmdMakeMarriage(4)
    MarriageClick,        // index: the suit, 1..4
    CancelClick,          // CmdCancel
    ReminderOkClick,      // Command1 of the meld reminder
    MenuNewGame,
    MenuExit,
    MenuYourName,
    MenuOpponentName,
    MenuViewStatistics,
    MenuDeleteStatistics,
    MenuTarget1000,
    MenuTarget750,
    MenuTarget500,
    MenuTarget300,
    MenuReminder,
    MenuFast,
    MenuMedium,
    MenuSlow,
    MenuClassic,  // the robot's menu, which comes after the design's
    MenuExpert,
    CloseBox,
};

struct TableEvent {
    TableEventKind kind;
    int index = 0;
};

// The table view. Positions are twips from the top left of the table.
class TableView {
public:
    virtual ~TableView() = default;

    // The 48 card pictures, PicCard(1) to PicCard(48).
    virtual void SetCardImage(int card, int image) = 0;
    virtual void MoveCard(int card, int left, int top) = 0;
    virtual int CardLeft(int card) const = 0;
    virtual int CardTop(int card) const = 0;
    virtual void BringCardToFront(int card) = 0;
    virtual void SetCardVisible(int card, bool visible) = 0;

    virtual void SetControlVisible(TableControl control, bool visible) = 0;
    virtual bool IsControlVisible(TableControl control) const = 0;
    virtual void BringControlToFront(TableControl control) = 0;

    virtual void SetCaption(TableLabel label, const std::string& text) = 0;
    virtual std::string Caption(TableLabel label) const = 0;

    // StatusBar1, panels 1 to 4; the picture of panel 1 is image 50..53.
    virtual void SetPanelText(int panel, const std::string& text) = 0;
    virtual void SetPanelPicture(int image) = 0;

    virtual void SetTitle(const std::string& text) = 0;

    // The check mark of the robot's menu, on the robot chosen.
    virtual void CheckRobot(RobotKind robot) = 0;

    // The deluxe message box: blocks until a button is clicked and returns
    // its index, 0..2. Empty captions for buttons 1 and 2 leave them out.
    virtual int ShowDeluxeMessage(const std::string& message, const std::string& button0,
                                  const std::string& button1, const std::string& button2, int icon,
                                  const std::string& title) = 0;
    // The plain message box with an OK button.
    virtual void ShowPlainMessage(const std::string& message, const std::string& title) = 0;
    // A question with Yes and No; true for Yes.
    virtual bool AskQuestion(const std::string& question, const std::string& title) = 0;
    // An input box that starts empty; the empty text on Cancel.
    virtual std::string AskInput(const std::string& prompt, const std::string& title) = 0;
};

}  // namespace trickhaven
