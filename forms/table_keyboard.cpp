#include "forms/table_keyboard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>

#include "forms/card_picture.h"

namespace trickhaven {

namespace {

// The ring stands this many pixels outside the card.
constexpr int kRingMargin = 3;

std::optional<TableKey> KeyOfTable(const QKeyEvent& key) {
    const Qt::KeyboardModifiers modifiers =
        key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (modifiers != Qt::NoModifier) return std::nullopt;
    switch (key.key()) {
        case Qt::Key_Left:
            return TableKey::Left;
        case Qt::Key_Right:
            return TableKey::Right;
        case Qt::Key_Home:
            return TableKey::Home;
        case Qt::Key_End:
            return TableKey::End;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return TableKey::Enter;
        case Qt::Key_Space:
            return TableKey::Space;
        case Qt::Key_Tab:
            return key.modifiers().testFlag(Qt::ShiftModifier) ? TableKey::BackTab : TableKey::Tab;
        case Qt::Key_Backtab:
            return TableKey::BackTab;
        case Qt::Key_K:
            return TableKey::Knock;
        case Qt::Key_Escape:
            return TableKey::Escape;
        default:
            return std::nullopt;
    }
}

}  // namespace

FocusRing::FocusRing(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void FocusRing::Surround(const QRect& target) {
    setGeometry(target.adjusted(-kRingMargin, -kRingMargin, kRingMargin, kRingMargin));
    raise();
    show();
}

void FocusRing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // Yellow on a black edge: it shows on the green cloth and on a card face.
    painter.setPen(QPen(Qt::black, 1));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(QPen(QColor(255, 255, 0), kRingMargin - 1));
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

TableKeyboard::TableKeyboard(QWidget& surface, QWidget& keyTaker,
                             const std::array<CardPicture*, CardCount + 1>& cards,
                             ControlByName control, Send send)
    : QObject(&surface),
      surface_(surface),
      keyTaker_(keyTaker),
      cards_(cards),
      control_(std::move(control)),
      send_(std::move(send)),
      ring_(new FocusRing(&surface)) {
    // Ahead of every widget: a mouse anywhere puts the ring away, and the
    // table's keys are taken before a button or the scaled view acts on
    // them by itself.
    qApp->installEventFilter(this);
    for (int card = 1; card <= CardCount; ++card) {
        cards_.at(static_cast<std::size_t>(card))->setFocusPolicy(Qt::NoFocus);
    }
    for (int stop = 1; stop < TableStopCount; ++stop) {
        StopWidget(static_cast<TableStop>(stop))->setFocusPolicy(Qt::StrongFocus);
    }
}

void TableKeyboard::SetGame(const Game* game) {
    game_ = game;
    HandChanged();
}

void TableKeyboard::HandChanged() {
    if (refreshPending_) return;
    refreshPending_ = true;
    QMetaObject::invokeMethod(this, &TableKeyboard::Refresh, Qt::QueuedConnection);
}

void TableKeyboard::CardHiding(int card) {
    if (surface_.focusWidget() == cards_.at(static_cast<std::size_t>(card))) Refresh();
}

void TableKeyboard::Raised() {
    if (ring_->isVisible()) ring_->raise();
}

QWidget* TableKeyboard::StopWidget(TableStop stop) const {
    if (stop == TableStop::Hand) {
        return focus_.hand.card == 0 ? nullptr
                                     : cards_.at(static_cast<std::size_t>(focus_.hand.card));
    }
    return control_(StopControlName(stop));
}

TableSight TableKeyboard::Sight() const {
    TableSight sight{};
    for (int card = 1; card <= CardCount; ++card) {
        const CardPicture& picture = *cards_.at(static_cast<std::size_t>(card));
        sight.at(static_cast<std::size_t>(card)) = {
            picture.Left(), picture.Top(), !picture.isHidden(), picture.Image() != CardBackImage};
    }
    return sight;
}

// Only the cards a click could play take the focus; the focus goes with the
// hand, to the neighbour the rules give, while it is in the hand.
void TableKeyboard::Refresh() {
    refreshPending_ = false;
    if (game_ == nullptr) return;
    const TableSight sight = Sight();
    const std::vector<int> chain = HandChain(*game_, sight);
    for (int card = 1; card <= CardCount; ++card) {
        const bool inChain = std::find(chain.begin(), chain.end(), card) != chain.end();
        cards_.at(static_cast<std::size_t>(card))
            ->setFocusPolicy(inChain ? Qt::StrongFocus : Qt::NoFocus);
    }
    TakeFocusFromWidget();
    FollowTable(focus_, *game_, sight);
    QWidget* focused = surface_.focusWidget();
    const bool inHand = focused == nullptr || qobject_cast<CardPicture*>(focused) != nullptr;
    if (focus_.stop == TableStop::Hand && inHand && focus_.hand.card != 0 &&
        focused != StopWidget(TableStop::Hand)) {
        StopWidget(TableStop::Hand)->setFocus(Qt::OtherFocusReason);
    }
    // A panel that came up has taken the focus.
    if (focus_.stop != TableStop::Hand && focused != StopWidget(focus_.stop)) {
        StopWidget(focus_.stop)->setFocus(Qt::OtherFocusReason);
    }
    PlaceRing();
}

// A click or a focus moved by Qt itself leaves the keyboard where the
// widget with the focus is.
void TableKeyboard::TakeFocusFromWidget() {
    QWidget* focused = surface_.focusWidget();
    if (focused == nullptr) return;
    if (auto* card = qobject_cast<CardPicture*>(focused)) {
        if (card->focusPolicy() == Qt::NoFocus) return;
        focus_.stop = TableStop::Hand;
        focus_.hand.card = card->Card();
        return;
    }
    for (int stop = 1; stop < TableStopCount; ++stop) {
        if (StopWidget(static_cast<TableStop>(stop)) == focused) {
            focus_.stop = static_cast<TableStop>(stop);
        }
    }
}

void TableKeyboard::GiveFocus() {
    if (QWidget* widget = StopWidget(focus_.stop)) widget->setFocus(Qt::TabFocusReason);
}

void TableKeyboard::PlaceRing() {
    QWidget* focused = surface_.focusWidget();
    const bool ringed = keyboardInUse_ && focused != nullptr && focused->isVisible() &&
                        focused->focusPolicy() != Qt::NoFocus &&
                        (qobject_cast<CardPicture*>(focused) != nullptr ||
                         focused == control_(StopControlName(TableStop::Knock)));
    if (!ringed) {
        ring_->hide();
        return;
    }
    ring_->Surround(
        focused->geometry().translated(focused->parentWidget()->mapTo(&surface_, QPoint(0, 0))));
}

void TableKeyboard::SetKeyboardInUse(bool inUse) {
    if (keyboardInUse_ == inUse) return;
    keyboardInUse_ = inUse;
    // The drawn buttons show their focus by the same rule.
    surface_.setProperty("keyboardInUse", inUse);
    for (QWidget* child : surface_.findChildren<QWidget*>()) {
        if (child->hasFocus()) child->update();
    }
    PlaceRing();
}

// The scaled view that holds the table, the cards and the stops' controls.
bool TableKeyboard::TakesKeys(QObject* watched) const {
    if (watched == &keyTaker_ || qobject_cast<CardPicture*>(watched) != nullptr) {
        return watched == &keyTaker_ || static_cast<QWidget*>(watched)->parentWidget() == &surface_;
    }
    for (int stop = 1; stop < TableStopCount; ++stop) {
        if (StopWidget(static_cast<TableStop>(stop)) == watched) return true;
    }
    return false;
}

bool TableKeyboard::KeyPressed(QKeyEvent& key) {
    const std::optional<TableKey> tableKey = KeyOfTable(key);
    if (!tableKey || game_ == nullptr) return false;
    SetKeyboardInUse(true);
    TakeFocusFromWidget();
    const std::optional<TableEvent> click = PressTableKey(focus_, *game_, Sight(), {*tableKey});
    GiveFocus();
    PlaceRing();
    if (click) send_(*click);
    return true;
}

bool TableKeyboard::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            SetKeyboardInUse(false);
            break;
        case QEvent::KeyPress:
            if (TakesKeys(watched) && KeyPressed(*static_cast<QKeyEvent*>(event))) return true;
            break;
        case QEvent::FocusIn:
            // The view takes the focus as the window comes back (after a
            // message, say): it goes on to where the keys stand.
            if (watched == &keyTaker_) {
                QMetaObject::invokeMethod(
                    this,
                    [this] {
                        Refresh();
                        // Taken and given again, so that a screen reader
                        // hears the focus come to it.
                        if (QWidget* widget = StopWidget(focus_.stop)) widget->clearFocus();
                        GiveFocus();
                    },
                    Qt::QueuedConnection);
            }
            if (TakesKeys(watched)) PlaceRing();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace trickhaven
