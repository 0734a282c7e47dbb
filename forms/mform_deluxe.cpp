#include "forms/mform_deluxe.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "forms/caption_fit.h"
#include "forms/card_art.h"
#include "forms/twips.h"

namespace trickhaven {

namespace {

const QColor kFormBlue(0, 0, 255);
const QColor kTitleBack(0, 0, 64);
const QColor kLight(240, 240, 240);
const QColor kShadow(128, 128, 128);

constexpr double kFormWidth = 4500;
constexpr double kDesignHeight = 2595;
constexpr double kMessageWidth = 3375;
// The form is this much taller than its message: title above, buttons below.
constexpr double kFormAboveMessage = 1140;
constexpr double kButtonGap = 90;

// Halving the form's width gives half twips; a control stands on whole ones.
int Pixels(double twips) {
    return TwipsToPixels(static_cast<int>(std::lround(twips)));
}

QRect TwipsRect(double left, double top, double width, double height) {
    return {Pixels(left), Pixels(top), Pixels(width), Pixels(height)};
}

QFont TimesNewRoman(double points) {
    QFont font(QStringLiteral("Times New Roman"));
    font.setPixelSize(PointsToPixels(points));
    font.setBold(true);
    return font;
}

void Colour(QWidget* widget, const QColor& text, const QColor& back) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Window, back);
    widget->setPalette(palette);
    widget->setAutoFillBackground(back.isValid());
}

QLabel* PlainLabel(QWidget* parent, const QString& name) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

}  // namespace

// Pic1(i): a blue panel that keeps the lines drawn on it, with its caption
// label inside.
class MFormDeluxe::ButtonPanel : public QWidget {
public:
    // The keys move the focus among the buttons; a click does not.
    explicit ButtonPanel(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::TabFocus); }

    Drawing drawing;
    bool focusShown = false;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        Paint(painter, drawing);
        if (focusShown) {
            painter.setPen(QPen(QColor(192, 255, 255), 1, Qt::DotLine));
            painter.drawRect(rect().adjusted(3, 3, -4, -4));
        }
    }
};

// For assistive technology the box is a dialog named by its title that
// holds its message and its shown buttons; the title band and the icon
// say nothing more.
class DeluxeAccessible : public QAccessibleWidget {
public:
    explicit DeluxeAccessible(MFormDeluxe* form) : QAccessibleWidget(form, QAccessible::Dialog) {}

    // Qt's accessibility asks this of every object: the box, or one of its
    // buttons, gets its own reading.
    static QAccessibleInterface* Make(const QString& key, QObject* object);

    int childCount() const override { return static_cast<int>(Children().size()); }
    QAccessibleInterface* child(int index) const override {
        const std::vector<QWidget*> children = Children();
        if (index < 0 || index >= static_cast<int>(children.size())) return nullptr;
        return QAccessible::queryAccessibleInterface(children[static_cast<std::size_t>(index)]);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const std::vector<QWidget*> children = Children();
        const auto found = std::find(children.begin(), children.end(), child->object());
        return found == children.end() ? -1 : static_cast<int>(found - children.begin());
    }

private:
    std::vector<QWidget*> Children() const {
        const auto* form = static_cast<const MFormDeluxe*>(widget());
        std::vector<QWidget*> children{form->label2_};
        for (QWidget* button : form->pic1_) {
            if (!button->isHidden()) children.push_back(button);
        }
        return children;
    }
};

// Each drawn button is a push button named by its caption, with nothing
// inside it to be read twice; pressing it clicks it.
class DeluxeButtonAccessible : public QAccessibleWidget {
public:
    DeluxeButtonAccessible(MFormDeluxe* form, int index)
        : QAccessibleWidget(form->pic1_.at(static_cast<std::size_t>(index)),
                            QAccessible::PushButton),
          form_(form),
          index_(index) {}

    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
        return form_->ButtonCaption(index_).remove(QLatin1Char('&'));
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.defaultButton = index_ == 0;
        return state;
    }
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        if (action == pressAction()) form_->Click(index_);
    }

private:
    MFormDeluxe* form_;
    int index_;
};

QAccessibleInterface* DeluxeAccessible::Make(const QString&, QObject* object) {
    if (auto* form = qobject_cast<MFormDeluxe*>(object)) return new DeluxeAccessible(form);
    auto* form =
        object->parent() != nullptr ? qobject_cast<MFormDeluxe*>(object->parent()) : nullptr;
    if (form == nullptr) return nullptr;
    const auto found = std::find(form->pic1_.begin(), form->pic1_.end(), object);
    if (found == form->pic1_.end()) return nullptr;
    return new DeluxeButtonAccessible(form, static_cast<int>(found - form->pic1_.begin()));
}

MFormDeluxe::MFormDeluxe(QWidget* parent) : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint) {
    static const bool accessible = [] {
        QAccessible::installFactory(DeluxeAccessible::Make);
        return true;
    }();
    (void)accessible;
    setModal(true);
    Colour(this, Qt::black, kFormBlue);
    resize(Pixels(kFormWidth), Pixels(kDesignHeight));

    label3_ = PlainLabel(this, QStringLiteral("Label3"));
    label3_->setGeometry(TwipsRect(30, 90, 4305, 285));
    label3_->setFrameStyle(QFrame::Box | QFrame::Plain);
    label3_->setLineWidth(1);
    Colour(label3_, Qt::white, kTitleBack);
    QFont titleFont = TimesNewRoman(9.75);
    titleFont.setItalic(true);
    titleFont.setUnderline(true);
    label3_->setFont(titleFont);

    label2_ = PlainLabel(this, QStringLiteral("Label2"));
    label2_->setGeometry(TwipsRect(90, 450, kMessageWidth, 285));
    label2_->setWordWrap(true);
    label2_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Colour(label2_, QColor(128, 255, 255), kFormBlue);
    label2_->setFont(TimesNewRoman(12));

    picture1_ = PlainLabel(this, QStringLiteral("Picture1"));
    picture1_->setFrameStyle(QFrame::Box | QFrame::Plain);
    picture1_->setLineWidth(1);
    picture1_->setAlignment(Qt::AlignCenter);
    Colour(picture1_, Qt::black, QColor(255, 255, 128));
    picture1_->setGeometry(TwipsRect(3900, iconTop_, 510, 510));

    for (int i = 0; i < 3; ++i) {
        pic1_[i] = new ButtonPanel(this);
        pic1_[i]->setObjectName(QStringLiteral("Pic1_%1").arg(i));
        Colour(pic1_[i], Qt::black, kFormBlue);
        pic1_[i]->resize(Pixels(1275), Pixels(300));
        PlaceButton(i);
        label1_[i] = PlainLabel(pic1_[i], QStringLiteral("Label1_%1").arg(i));
        label1_[i]->setAlignment(Qt::AlignCenter);
        Colour(label1_[i], QColor(192, 255, 255), QColor());
        label1_[i]->setFont(TimesNewRoman(12));
        label1_[i]->installEventFilter(this);
    }
}

MFormDeluxe::~MFormDeluxe() = default;

void MFormDeluxe::Prepare(const QString& message, const QString& button0, const QString& button1,
                          const QString& button2, int iconIndex, const QString& title) {
    for (int i = 0; i < 3; ++i) {
        DrawRaised(i);
    }
    drawing_.clear();
    update();
    keyFocus_ = {};
    keyboardUsed_ = false;
    ShowKeyFocus();

    label2_->setText(message);
    const QRect wrapped = label2_->fontMetrics().boundingRect(
        QRect(0, 0, Pixels(kMessageWidth), QWIDGETSIZE_MAX), Qt::TextWordWrap, message);
    label2_->resize(label2_->width(), wrapped.height());

    // Centred for the size the form had before this message, not the new one.
    const QRect screenArea = screen()->geometry();
    const double left = PixelsToTwips(screenArea.width()) / 2.0 - PixelsToTwips(width()) / 2.0;
    const double top = PixelsToTwips(screenArea.height()) / 2.0 - PixelsToTwips(height()) / 2.0;
    setGeometry(
        TwipsRect(left, top, kFormWidth, PixelsToTwips(label2_->height()) + kFormAboveMessage)
            .translated(screenArea.topLeft()));
    const double w = PixelsToTwips(width());
    const double h = PixelsToTwips(height());

    label3_->setGeometry(TwipsRect(45, 60, w - 90, 300));
    label3_->setText(QStringLiteral("   ") + title);
    // The box draws no frame; its title names it for assistive technology.
    setWindowTitle(title.trimmed());
    FitCaption(*label3_);

    label1_[0]->setText(button0);
    label1_[1]->setText(button1);
    label1_[2]->setText(button2);
    for (QLabel* caption : label1_) {
        FitCaption(*caption);
    }

    const double buttonWidth = PixelsToTwips(pic1_[0]->width());
    for (int i = 0; i < 3; ++i) {
        buttonTop_[i] = h - PixelsToTwips(pic1_[0]->height()) - kButtonGap;
    }

    iconTop_ = h / 2 - PixelsToTwips(picture1_->height()) / 2.0;
    picture1_->move(picture1_->x(), Pixels(iconTop_));
    picture1_->setPixmap(CardArt::MessageIcon(iconIndex, devicePixelRatioF()));

    pic1_[1]->hide();
    pic1_[2]->hide();
    buttonLeft_[0] = w / 2 - buttonWidth / 2;

    if (!button1.isEmpty()) {
        pic1_[1]->show();
    }
    if (!button2.isEmpty()) {
        pic1_[2]->show();
    }

    if (!button1.isEmpty() && !button2.isEmpty()) {
        buttonLeft_[0] = w / 2 - buttonWidth - buttonWidth / 2 - 45;
        buttonLeft_[1] = w / 2 - buttonWidth / 2;
        buttonLeft_[2] = buttonWidth / 2 + w / 2 + 45;
    }
    if (!button1.isEmpty() && button2.isEmpty()) {
        buttonLeft_[0] = w / 2 - buttonWidth - 23;
        buttonLeft_[1] = w / 2 + 23;
    }
    for (int i = 0; i < 3; ++i) {
        PlaceButton(i);
    }

    const QPoint corner(Pixels(15), Pixels(15));
    const QPoint far(Pixels(w - 30), Pixels(h - 30));
    AddBox(drawing_, corner, far, kLight);
    drawing_.push_back({QLine(corner.x(), far.y(), far.x(), far.y()), kShadow});
    drawing_.push_back({QLine(far.x(), far.y(), far.x(), Pixels(30)), kShadow});
}

int MFormDeluxe::Run(const QString& message, const QString& button0, const QString& button1,
                     const QString& button2, int iconIndex, const QString& title) {
    Prepare(message, button0, button1, button2, iconIndex, title);
    if (onRing) {
        onRing();
    }
    exec();
    return choice_;
}

int MFormDeluxe::FormHeightTwips() const {
    return PixelsToTwips(height());
}

int MFormDeluxe::ButtonLeftTwips(int index) const {
    return pic1_[index]->isHidden() ? -1 : qRound(buttonLeft_[index]);
}

int MFormDeluxe::ButtonTopTwips(int index) const {
    return qRound(buttonTop_[index]);
}

int MFormDeluxe::IconTopTwips() const {
    return qRound(iconTop_);
}

QString MFormDeluxe::TitleBandText() const {
    return label3_->text();
}

QString MFormDeluxe::ButtonCaption(int index) const {
    return label1_[index]->text();
}

int MFormDeluxe::Choice() const {
    return choice_;
}

void MFormDeluxe::AddBox(Drawing& drawing, QPoint from, QPoint to, const QColor& colour) {
    drawing.push_back({QLine(from.x(), from.y(), to.x(), from.y()), colour});
    drawing.push_back({QLine(to.x(), from.y(), to.x(), to.y()), colour});
    drawing.push_back({QLine(to.x(), to.y(), from.x(), to.y()), colour});
    drawing.push_back({QLine(from.x(), to.y(), from.x(), from.y()), colour});
}

void MFormDeluxe::Paint(QPainter& painter, const Drawing& drawing) {
    for (const Stroke& stroke : drawing) {
        painter.setPen(stroke.colour);
        painter.drawLine(stroke.line);
    }
}

// The raised and the pressed look cover the same edges, so each replaces
// whatever was drawn on the button before.
void MFormDeluxe::DrawRaised(int index) {
    ButtonPanel* panel = pic1_[index];
    const int sw = panel->width();
    const int sh = panel->height();
    label1_[index]->setGeometry(1, 1, sw - 2, sh - 2);
    panel->drawing.clear();
    AddBox(panel->drawing, {0, 0}, {sw - 1, sh - 1}, kLight);
    panel->drawing.push_back({QLine(0, sh - 1, sw - 1, sh - 1), kShadow});
    panel->drawing.push_back({QLine(sw - 1, sh - 1, sw - 1, 0), kShadow});
    panel->update();
}

void MFormDeluxe::DrawPressed(int index) {
    ButtonPanel* panel = pic1_[index];
    const int sw = panel->width();
    const int sh = panel->height();
    label1_[index]->setGeometry(2, 2, sw - 3, sh - 3);
    panel->drawing.clear();
    AddBox(panel->drawing, {0, 0}, {sw - 1, sh - 1}, kShadow);
    panel->drawing.push_back({QLine(0, sh - 1, sw - 1, sh - 1), kLight});
    panel->drawing.push_back({QLine(sw - 1, sh - 1, sw - 1, 0), kLight});
    panel->update();
}

void MFormDeluxe::PlaceButton(int index) {
    pic1_[index]->move(Pixels(buttonLeft_[index]), Pixels(buttonTop_[index]));
}

void MFormDeluxe::Click(int index) {
    hide();
    choice_ = index;
}

// A press on a caption, with any mouse button, presses the button; the click
// is a release on the caption that was pressed. Released elsewhere, the
// button stays pressed and nothing is chosen.
bool MFormDeluxe::eventFilter(QObject* watched, QEvent* event) {
    auto* const found = std::find(label1_.begin(), label1_.end(), watched);
    if (found == label1_.end()) {
        return QDialog::eventFilter(watched, event);
    }
    const int index = static_cast<int>(found - label1_.begin());
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            keyboardUsed_ = false;
            ShowKeyFocus();
            pressed_[index] = true;
            DrawPressed(index);
            return true;
        case QEvent::MouseButtonRelease: {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            const bool onCaption = (*found)->rect().contains(mouse->position().toPoint());
            const bool click = pressed_[index] && onCaption;
            pressed_[index] = false;
            if (click) {
                Click(index);
            }
            return true;
        }
        default:
            return QDialog::eventFilter(watched, event);
    }
}

// A key answers as the click on its button does; the box cannot be closed
// any other way.
void MFormDeluxe::keyPressEvent(QKeyEvent* event) {
    event->accept();
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::AltModifier && event->key() >= Qt::Key_A && event->key() <= Qt::Key_Z) {
        PressKey({TableKey::AltLetter, static_cast<char>('a' + (event->key() - Qt::Key_A))});
        return;
    }
    if (modifiers != Qt::NoModifier) return;
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            PressKey({TableKey::Enter});
            break;
        case Qt::Key_Space:
            PressKey({TableKey::Space});
            break;
        case Qt::Key_Escape:
            PressKey({TableKey::Escape});
            break;
        default:
            break;
    }
}

bool MFormDeluxe::focusNextPrevChild(bool next) {
    PressKey({next ? TableKey::Tab : TableKey::BackTab});
    return true;
}

void MFormDeluxe::PressKey(KeyPress key) {
    keyboardUsed_ = true;
    std::array<std::string, 3> captions;
    for (std::size_t i = 0; i < captions.size(); ++i) {
        captions[i] = label1_[i]->text().toStdString();
    }
    const std::optional<int> button = PressMessageKey(keyFocus_, captions, key);
    ShowKeyFocus();
    if (button) Click(*button);
}

bool MFormDeluxe::KeyFocusShown() const {
    return pic1_[keyFocus_.button]->focusShown;
}

void MFormDeluxe::ShowKeyFocus() {
    pic1_[keyFocus_.button]->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 3; ++i) {
        const bool shown = keyboardUsed_ && i == keyFocus_.button;
        if (pic1_[i]->focusShown != shown) {
            pic1_[i]->focusShown = shown;
            pic1_[i]->update();
        }
    }
}

void MFormDeluxe::closeEvent(QCloseEvent* event) {
    event->ignore();
}

// The box takes the keyboard as it opens. A window manager may give the
// focus elsewhere (to the table, as the box before this one closed, or
// while keys were pressed there), and the table takes no key while the box
// is up: any other window of the game that gets the focus hands it back.
void MFormDeluxe::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    keepsKeyboard_ =
        connect(qApp, &QGuiApplication::focusWindowChanged, this, [this](QWindow* focused) {
            if (focused != nullptr && focused != windowHandle()) {
                TakeKeyboard();
            }
        });
    TakeKeyboard();
}

void MFormDeluxe::hideEvent(QHideEvent* event) {
    disconnect(keepsKeyboard_);
    QDialog::hideEvent(event);
}

void MFormDeluxe::TakeKeyboard() {
    raise();
    activateWindow();
}

void MFormDeluxe::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    Paint(painter, drawing_);
}

}  // namespace trickhaven
