// PinochleTable: the main window and the table view of the game. It is built
// from the design tables, shows what the logic asks of it, and hands every
// click, menu command and close request to the logic through one handler.
#pragma once

#include <QMainWindow>
#include <array>
#include <functional>
#include <map>
#include <set>
#include <string>

#include "forms/card_art.h"
#include "forms/mform_deluxe.h"
#include "forms/table_access.h"
#include "forms/table_view.h"
#include "game/game_state.h"

namespace trickhaven {

class CardPicture;
class TableKeyboard;
class TableStatusBar;
class TableTalk;

using TableEventHandler = std::function<void(const TableEvent&)>;

class PinochleTable : public QMainWindow, public TableView {
    Q_OBJECT
public:
    explicit PinochleTable(QWidget* parent = nullptr);

    void SetEventHandler(TableEventHandler handler);
    // The game whose hand the keys walk and a screen reader reads.
    void SetGame(const Game& g);
    const TableKeyboard& Keyboard() const { return *keyboard_; }
    // Rings as the game's message box opens.
    void SetMessageRing(std::function<void()> ring);
    // Where each card stands for the player, asked of the game whenever a
    // screen reader reads the card.
    void SetCardReading(std::function<CardStanding(int card)> reading);
    // Feeds the talk with the commentary and the messages, and speaks what
    // it gathers once the running steps reach their next wait.
    void SetTalk(TableTalk& talk);
    // Shows the window in the middle of its screen.
    void ShowCentred();
    // The table itself: the widget of fixed size that holds every card and
    // control, shown scaled to the window as one picture.
    QWidget* Surface() const { return surface_; }

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

signals:
    // The rules pages and the About box touch nothing of the game, so their
    // menu entries stay within the forms.
    void helpRequested();
    void aboutRequested();

protected:
    // The close box only asks: the logic decides, and the program ends when
    // the session does.
    void closeEvent(QCloseEvent* event) override;
    // A menu title never takes a letter that a shown button also claims.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildControls();
    void BuildCards();
    void BuildMenu();
    void Send(TableEvent event);
    void NameScoreFigures();
    void Speak();
    void TellBeforeMessage();
    void TellCardStandings();
    QWidget* Control(const char* name) const;
    CardPicture& Card(int card) const;

    QWidget* surface_;
    TableStatusBar* statusBar_ = nullptr;
    std::array<CardPicture*, 49> cards_{};
    std::map<std::string, QWidget*> controls_;
    std::set<const QWidget*> widthFollowsText_;
    CardArt art_;
    MFormDeluxe deluxe_;
    TableEventHandler handler_;
    SpokenNotice* notice_;
    std::array<CardStanding, 49> standings_{};
    TableTalk* talk_ = nullptr;
    TableKeyboard* keyboard_ = nullptr;
};

}  // namespace trickhaven
