#include "forms/table_widgets.h"

#include <qdrawutil.h>

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace trickhaven {

TableButton::TableButton(const QString& caption, QWidget* parent) : QPushButton(caption, parent) {
    setContentsMargins(2, 2, 2, 2);
}

bool TableButton::event(QEvent* event) {
    if (event->type() == QEvent::Shortcut) {
        animateClick();
        return true;
    }
    return QPushButton::event(event);
}

void TableButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPalette& colours = palette();
    const QBrush face = colours.button();
    qDrawWinButton(&painter, rect(), colours, isDown(), &face);
    // A pressed button's caption sinks by a pixel, as its bevel does.
    const int sink = isDown() ? 1 : 0;
    const QRect caption = contentsRect().translated(sink, sink);
    style()->drawItemText(&painter, caption, Qt::AlignCenter | Qt::TextShowMnemonic, colours,
                          isEnabled(), text(), QPalette::ButtonText);
    // The focus shows only to a player on the keyboard; the mouse sees the
    // button as designed. Drawn here, as the style would leave it out for a
    // focus given by the table's own keys.
    if (hasFocus() && window()->property("keyboardInUse").toBool()) {
        painter.setPen(QPen(colours.color(QPalette::ButtonText), 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(4, 4, -5, -5));
    }
}

namespace {

class FocusToKeys : public QObject {
public:
    explicit FocusToKeys(QWidget& window) : QObject(&window), window_(window) {}

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) Show(true);
        if (event->type() == QEvent::MouseButtonPress) Show(false);
        return false;
    }

private:
    void Show(bool shown) {
        if (window_.property("keyboardInUse").toBool() == shown) return;
        window_.setProperty("keyboardInUse", shown);
        if (QWidget* focused = window_.focusWidget()) focused->update();
    }

    QWidget& window_;
};

}  // namespace

void ShowFocusToKeys(QWidget& window) {
    auto* watch = new FocusToKeys(window);
    window.installEventFilter(watch);
    for (QWidget* child : window.findChildren<QWidget*>()) child->installEventFilter(watch);
}

void ClickableLabel::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton;
}

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event) {
    const bool click = pressed_ && event->button() == Qt::LeftButton &&
                       rect().contains(event->position().toPoint());
    pressed_ = false;
    if (click) {
        emit clicked();
    }
}

TablePanel::TablePanel(const QString& title, QWidget* parent) : QWidget(parent), title_(title) {
    setAutoFillBackground(true);
    // Inside the etched border.
    setContentsMargins(2, 2, 2, 2);
}

void TablePanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QFontMetrics metrics(font());
    const int borderTop = metrics.height() / 2;
    qDrawShadeRect(&painter, rect().adjusted(0, borderTop, 0, 0), palette(), true, 1);
    if (title_.isEmpty()) {
        return;
    }
    const QRect caption(7, 0, metrics.horizontalAdvance(title_) + 4, metrics.height());
    painter.fillRect(caption, palette().window());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(caption, Qt::AlignCenter, title_);
}

TableStroke::TableStroke(int penWidth, bool outline, QWidget* parent)
    : QWidget(parent), penWidth_(penWidth), outline_(outline) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void TableStroke::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ink = palette().color(QPalette::WindowText);
    if (outline_) {
        // The pen lies inside the shape's box, as the design measures it.
        const int half = penWidth_ / 2;
        QPen pen(ink, penWidth_);
        pen.setJoinStyle(Qt::MiterJoin);
        painter.setPen(pen);
        painter.drawRect(rect().adjusted(half, half, -(penWidth_ - half), -(penWidth_ - half)));
        return;
    }
    painter.fillRect(rect(), ink);
}

}  // namespace trickhaven
