// StatusBar1: four sunken panels along the foot of the table, each with a
// text and, for the first, the trumps' picture before it.
#pragma once

#include <QWidget>
#include <array>

#include "forms/sharp_picture.h"

namespace trickhaven {

class StatusPanel : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString text READ Text)
public:
    using QWidget::QWidget;

    void SetText(const QString& text);
    QString Text() const { return text_; }
    void SetPicture(SharpPicture::Source picture);
    // The picture as last painted, at the resolution it was painted at.
    const QPixmap& Picture() const { return picture_.Current(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
    SharpPicture picture_;
};

class TableStatusBar : public QWidget {
    Q_OBJECT
public:
    explicit TableStatusBar(QWidget* parent);

    // Panels 1 to 4.
    StatusPanel& Panel(int panel);

protected:
    // The panels share the bar's width in the design's proportions.
    void resizeEvent(QResizeEvent* event) override;

private:
    std::array<StatusPanel*, 4> panels_{};
};

}  // namespace trickhaven
