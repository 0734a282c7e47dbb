// The kinds of control that the table's design uses and Qt has no exact
// match for: the coloured button, the clickable label, the frame with its
// caption in the top border, and the lines and outlines drawn on a panel.
// Each draws itself alike under every style, in its palette's colours.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>

namespace trickhaven {

// A raised button in the colour of its palette's Button role; the "&" of its
// caption underlines the mnemonic letter. Alt with that letter clicks it even
// where a menu title has the same letter: the open panel comes first.
class TableButton : public QPushButton {
    Q_OBJECT
public:
    // The bevel takes two pixels of each edge; the caption has the rest.
    TableButton(const QString& caption, QWidget* parent);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

// The buttons of a form of its own (a help page, the About box) show
// their focus once a key is pressed in it, and no more after a click, as
// the table's do.
void ShowFocusToKeys(QWidget& window);

// A label that is clicked with the left button, like the knock.
class ClickableLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

signals:
    void clicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool pressed_ = false;
};

// A frame: its Window colour filled, an etched border, and the caption
// standing in the top border in the WindowText colour and the frame's font.
class TablePanel : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString title READ Title)
public:
    TablePanel(const QString& title, QWidget* parent);
    QString Title() const { return title_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString title_;
};

// A line or a rectangle outline in the WindowText colour. It lies below the
// other controls of its container and lets clicks through.
class TableStroke : public QWidget {
    Q_OBJECT
public:
    TableStroke(int penWidth, bool outline, QWidget* parent);
    int PenWidth() const { return penWidth_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int penWidth_;
    bool outline_;
};

}  // namespace trickhaven
