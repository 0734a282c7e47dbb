#include "forms/pinochle_table.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QActionGroup>
#include <QCloseEvent>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QShortcutEvent>
#include <QVBoxLayout>
#include <memory>

#include "forms/caption_fit.h"
#include "forms/card_picture.h"
#include "forms/menu_access.h"
#include "forms/table_build.h"
#include "forms/table_design.h"
#include "forms/table_keyboard.h"
#include "forms/table_scaler.h"
#include "forms/table_status_bar.h"
#include "forms/table_widgets.h"
#include "forms/twips.h"
#include "game/card_table.h"
#include "game/table_review.h"
#include "game/table_talk.h"

namespace trickhaven {

namespace {

QString FromGame(const std::string& text) {
    return QString::fromStdString(text);
}

// Each score figure with the name label of its side and the caption of its
// row, so that a screen reader can say whose score it is and which.
struct ScoreFigure {
    const char* figure;
    const char* side;
    const char* row;
};
constexpr std::array<ScoreFigure, 10> kScoreFigures{{
    {"LblLastTrickP", "LblPname1", "Label2"},
    {"LblTotTricksP", "LblPname1", "Label5"},
    {"LblLastMeldP", "LblPname1", "LastMeld"},
    {"LblTotalMeldsP", "LblPname1", "Label8"},
    {"LblTotalScoreP", "LblPname1", "LblTotal"},
    {"LblLastTrickC", "LblBName", "Label13"},
    {"LblTotTricskC", "LblBName", "Label10"},
    {"LbllLastMeldC", "LblBName", "Label11"},
    {"LblTotMeldsC", "LblBName", "Label6"},
    {"LblTotScoreC", "LblBName", "Label3"},
}};

// "Last Trick:-" is said "last trick", "TOTAL SCORE" "total score".
QString RowWords(const QLabel& row) {
    QString words = row.text();
    if (words.endsWith(":-")) words.chop(2);
    return words.trimmed().toLower();
}

// The card pile where every card lies before the first deal.
constexpr int DesignCardLeft = 9000;
constexpr int DesignCardTop = 2880;

}  // namespace

PinochleTable::PinochleTable(QWidget* parent)
    : QMainWindow(parent), surface_(new QWidget), deluxe_(this), notice_(new SpokenNotice(this)) {
    InstallTableAccessibility();
    // Whether a card plays changes with the turn, which the window is not
    // told of: the cards are looked at whenever the game stops to wait, so
    // that a screen reader reading a card finds its standing of now.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &PinochleTable::TellCardStandings);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &PinochleTable::Speak);
    setObjectName("PinochleTable");
    setWindowIcon(CardArt::ProgramIcon());
    surface_->setObjectName("TableSurface");
    QPalette colours = surface_->palette();
    colours.setColor(QPalette::Window, DesignColour(TableBackground));
    surface_->setPalette(colours);
    surface_->setAutoFillBackground(true);
    surface_->setFont(DesignFont(TableFont));
    // The table above the status bar; the bar runs along the window's foot
    // at any size, while the table scales as one picture.
    surface_->resize(TwipsToPixels(TableClientWidth), TwipsToPixels(StatusBarPlace.top));

    BuildControls();
    BuildCards();
    BuildMenu();
    NameScoreFigures();
    auto* client = new QWidget(this);
    client->setObjectName("TableClient");
    auto* layout = new QVBoxLayout(client);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* scaler = new TableScaler(surface_, client);
    // The view holds the focus for a moment as the window comes up, before
    // it passes to a card or a button.
    scaler->setAccessibleName("Card table");
    layout->addWidget(scaler, 1);
    keyboard_ = new TableKeyboard(
        *surface_, *scaler, cards_, [this](const char* name) { return Control(name); },
        [this](const TableEvent& event) { Send(event); });
    statusBar_ = new TableStatusBar(client);
    layout->addWidget(statusBar_);
    setCentralWidget(client);

    // The table takes no input while the game's own message box is up.
    deluxe_.setWindowModality(Qt::ApplicationModal);
    resize(TwipsToPixels(TableClientWidth),
           TwipsToPixels(TableClientHeight) + menuBar()->sizeHint().height());
}

void PinochleTable::SetEventHandler(TableEventHandler handler) {
    handler_ = std::move(handler);
}

void PinochleTable::SetGame(const Game& g) {
    game_ = &g;
    keyboard_->SetGame(&g);
    SetCardReading([&g](int card) { return ReadCard(g, card); });
}

void PinochleTable::SetMessageRing(std::function<void()> ring) {
    deluxe_.onRing = std::move(ring);
}

void PinochleTable::SetCardReading(std::function<CardStanding(int card)> reading) {
    auto shared = std::make_shared<std::function<CardStanding(int)>>(std::move(reading));
    for (int card = 1; card <= CardCount; ++card) {
        Card(card).standing = [shared, card] { return (*shared)(card); };
    }
    TellCardStandings();
}

void PinochleTable::SetTalk(TableTalk& talk) {
    talk_ = &talk;
}

void PinochleTable::SetReview(TableReview& review) {
    review_ = &review;
    keyboard_->SetReview([this](ReviewKind kind, const TableSight& sight) {
        if (game_ == nullptr) return;
        notice_->Say(FromGame(
            review_->Tell(kind, *game_, sight, talk_ != nullptr ? talk_->LastSpoken() : "")));
    });
}

void PinochleTable::Speak() {
    if (talk_ == nullptr || game_ == nullptr) return;
    const std::string spoken = talk_->TakeSpoken(*game_);
    if (!spoken.empty()) {
        notice_->Say(FromGame(spoken));
    }
}

// A screen reader reads a message as it takes the focus: its title, its
// text and the focused button. What happened before it is told first, so
// that the box does not cut it short.
void PinochleTable::TellBeforeMessage() {
    if (talk_ == nullptr) return;
    talk_->MessageOpens();
    Speak();
}

void PinochleTable::TellCardStandings() {
    for (int card = 1; card <= CardCount; ++card) {
        const CardStanding now = Card(card).Standing();
        CardStanding& was = standings_.at(static_cast<std::size_t>(card));
        if (now.playersCard == was.playersCard && now.CannotPlay() == was.CannotPlay()) continue;
        if (now.playersCard != was.playersCard && QAccessible::isActive()) {
            // A screen reader keeps the role of a card it has read; a card
            // that comes into the hand or leaves it is made anew for it.
            QAccessibleEvent gone(&Card(card), QAccessible::ObjectDestroyed);
            QAccessible::updateAccessibility(&gone);
            QAccessible::deleteAccessibleInterface(
                QAccessible::uniqueId(QAccessible::queryAccessibleInterface(&Card(card))));
            QAccessibleEvent made(&Card(card), QAccessible::ObjectCreated);
            QAccessible::updateAccessibility(&made);
        }
        // Orca reads no change of a description: the focused card's new
        // standing is told with the rest when the game waits for the card.
        if (talk_ != nullptr && game_ != nullptr && Card(card).hasFocus() && now.awaited &&
            now.playersCard && now.CannotPlay() != was.CannotPlay()) {
            talk_->FocusedCardStanding(trickhaven::Card(*game_, card).Name, now.playable);
        }
        was = now;
        QAccessibleEvent changed(&Card(card), QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&changed);
    }
}

void PinochleTable::NameScoreFigures() {
    for (const ScoreFigure& names : kScoreFigures) {
        const auto* side = qobject_cast<QLabel*>(Control(names.side));
        const auto* row = qobject_cast<QLabel*>(Control(names.row));
        auto* figure = qobject_cast<QLabel*>(Control(names.figure));
        figure->setAccessibleName(
            QString("%1, %2, %3").arg(side->text(), RowWords(*row), figure->text()));
    }
}

void PinochleTable::ShowCentred() {
    const QRect area = screen()->availableGeometry();
    move(area.center() - QPoint(width() / 2, height() / 2));
    show();
}

void PinochleTable::BuildControls() {
    for (const ControlDesign& design : TableControls()) {
        QWidget* container = *design.container ? Control(design.container) : surface_;
        QWidget* widget = BuildControl(design, container);
        controls_[design.name] = widget;
        if (design.widthFollowsText) {
            widthFollowsText_.insert(widget);
        }
        if (!design.click) {
            continue;
        }
        const TableEvent click = *design.click;
        if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
            connect(button, &QAbstractButton::clicked, this, [this, click] { Send(click); });
        } else if (auto* label = qobject_cast<ClickableLabel*>(widget)) {
            connect(label, &ClickableLabel::clicked, this, [this, click] { Send(click); });
        }
    }
    for (const StrokeDesign& design : TableStrokes()) {
        controls_[design.name] =
            BuildStroke(design, *design.container ? Control(design.container) : surface_);
    }
    // With every neighbour in place, each caption knows its room.
    for (const ControlDesign& design : TableControls()) {
        if (!design.widthFollowsText && design.kind != ControlKind::Panel) {
            FitCaption(*Control(design.name));
        }
    }
}

void PinochleTable::BuildCards() {
    for (int card = 1; card <= CardCount; ++card) {
        auto* picture = new CardPicture(card, art_, surface_);
        picture->setObjectName(QString("PicCard%1").arg(card));
        picture->SetImage(CardBackImage);
        picture->MoveTo(DesignCardLeft, DesignCardTop);
        connect(picture, &CardPicture::clicked, this, [this](int clicked) {
            Send({TableEventKind::CardClick, clicked});
        });
        cards_.at(static_cast<std::size_t>(card)) = picture;
    }
}

void PinochleTable::BuildMenu() {
    menuBar()->installEventFilter(this);
    InstallMenuAccessibility();
    QMenu* dropDown = nullptr;
    QActionGroup* marked = nullptr;
    for (const MenuDesign& design : TableMenu()) {
        const QString caption = QString::fromUtf8(design.caption);
        if (design.command == MenuCommand::DropDown) {
            dropDown = menuBar()->addMenu(caption);
            dropDown->setObjectName(design.name);
            marked = nullptr;
            continue;
        }
        QAction* action = nullptr;
        if (design.checkable) {
            // Checkable before a screen reader first reads it. The first
            // entry bears the mark until the game says otherwise.
            action = new QAction(caption, dropDown);
            action->setCheckable(true);
            action->setChecked(marked == nullptr);
            if (marked == nullptr) marked = new QActionGroup(dropDown);
            marked->addAction(action);
            dropDown->addAction(action);
        } else {
            action = design.topLevel ? menuBar()->addAction(caption) : dropDown->addAction(caption);
        }
        action->setObjectName(design.name);
        action->setShortcut(QKeySequence(QString::fromUtf8(design.shortcut)));
        switch (design.command) {
            case MenuCommand::Help:
                connect(action, &QAction::triggered, this, &PinochleTable::helpRequested);
                break;
            case MenuCommand::About:
                connect(action, &QAction::triggered, this, &PinochleTable::aboutRequested);
                break;
            case MenuCommand::Event:
            case MenuCommand::DropDown:
                connect(action, &QAction::triggered, this,
                        [this, kind = design.event] { Send({kind}); });
                break;
        }
    }
}

void PinochleTable::Send(TableEvent event) {
    if (handler_) {
        handler_(event);
    }
}

QWidget* PinochleTable::Control(const char* name) const {
    return controls_.at(name);
}

CardPicture& PinochleTable::Card(int card) const {
    return *cards_.at(static_cast<std::size_t>(card));
}

void PinochleTable::closeEvent(QCloseEvent* event) {
    event->ignore();
    Send({TableEventKind::CloseBox});
}

bool PinochleTable::eventFilter(QObject* watched, QEvent* event) {
    if (watched != menuBar() || event->type() != QEvent::Shortcut) {
        return QMainWindow::eventFilter(watched, event);
    }
    const auto* shortcut = static_cast<QShortcutEvent*>(event);
    if (!shortcut->isAmbiguous()) {
        return false;
    }
    // The shared letter's turn came to the menu bar: it goes to the button.
    for (auto* button : surface_->findChildren<TableButton*>()) {
        if (button->isVisible() && QKeySequence::mnemonic(button->text()) == shortcut->key()) {
            button->animateClick();
        }
    }
    return true;
}

void PinochleTable::SetCardImage(int card, int image) {
    Card(card).SetImage(image);
    TellCardStandings();
    keyboard_->HandChanged();
}

void PinochleTable::MoveCard(int card, int left, int top) {
    Card(card).MoveTo(left, top);
    keyboard_->HandChanged();
}

int PinochleTable::CardLeft(int card) const {
    return Card(card).Left();
}

int PinochleTable::CardTop(int card) const {
    return Card(card).Top();
}

void PinochleTable::BringCardToFront(int card) {
    Card(card).raise();
    keyboard_->Raised();
}

void PinochleTable::SetCardVisible(int card, bool visible) {
    if (!visible) keyboard_->CardHiding(card);
    Card(card).setVisible(visible);
    keyboard_->HandChanged();
}

void PinochleTable::SetControlVisible(TableControl control, bool visible) {
    Control(ControlName(control))->setVisible(visible);
    keyboard_->HandChanged();
}

bool PinochleTable::IsControlVisible(TableControl control) const {
    // The control's own setting, whether or not the window is on screen yet.
    return !Control(ControlName(control))->isHidden();
}

void PinochleTable::BringControlToFront(TableControl control) {
    Control(ControlName(control))->raise();
    keyboard_->Raised();
}

void PinochleTable::SetCaption(TableLabel label, const std::string& text) {
    QWidget* widget = Control(LabelName(label));
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        button->setText(FromGame(text));
        FitCaption(*button);
        return;
    }
    auto* caption = qobject_cast<QLabel*>(widget);
    caption->setText(FromGame(text));
    if (widthFollowsText_.contains(caption)) {
        FitWidthToText(*caption);
    } else {
        FitCaption(*caption);
    }
    NameScoreFigures();
}

std::string PinochleTable::Caption(TableLabel label) const {
    QWidget* widget = Control(LabelName(label));
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        return button->text().toStdString();
    }
    return qobject_cast<QLabel*>(widget)->text().toStdString();
}

void PinochleTable::SetPanelText(int panel, const std::string& text) {
    statusBar_->Panel(panel).SetText(FromGame(text));
    // The trumps and the running commentary are what a player reads there.
    if (talk_ && (panel == 1 || panel == 2)) {
        talk_->Commentary(text);
    }
}

void PinochleTable::SetPanelPicture(int image) {
    statusBar_->Panel(1).SetPicture(
        [this, image](qreal ratio) { return art_.Image(image, ratio); });
}

void PinochleTable::CheckRobot(RobotKind robot) {
    findChild<QAction*>(robot == RobotKind::Expert ? "MnuExpert" : "MnuClassic")->setChecked(true);
}

void PinochleTable::SetTitle(const std::string& text) {
    setWindowTitle(FromGame(text));
}

int PinochleTable::ShowDeluxeMessage(const std::string& message, const std::string& button0,
                                     const std::string& button1, const std::string& button2,
                                     int icon, const std::string& title) {
    TellBeforeMessage();
    return deluxe_.Run(FromGame(message), FromGame(button0), FromGame(button1), FromGame(button2),
                       icon, FromGame(title));
}

void PinochleTable::ShowPlainMessage(const std::string& message, const std::string& title) {
    TellBeforeMessage();
    QMessageBox::information(this, FromGame(title), FromGame(message), QMessageBox::Ok);
}

bool PinochleTable::AskQuestion(const std::string& question, const std::string& title) {
    TellBeforeMessage();
    return QMessageBox::question(this, FromGame(title), FromGame(question),
                                 QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

std::string PinochleTable::AskInput(const std::string& prompt, const std::string& title) {
    TellBeforeMessage();
    bool accepted = false;
    const QString text = QInputDialog::getText(this, FromGame(title), FromGame(prompt),
                                               QLineEdit::Normal, QString(), &accepted);
    return accepted ? text.toStdString() : std::string();
}

}  // namespace trickhaven
