// StatusBar1: four sunken panels along the foot of the table, each with a
// text and, for the first, the trumps' picture before it.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <array>

namespace trickhaven {

class StatusPanel : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString text READ Text)
public:
    using QWidget::QWidget;

    void SetText(const QString& text);
    QString Text() const { return text_; }
    void SetPicture(const QPixmap& picture);
    const QPixmap& Picture() const { return picture_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
    QPixmap picture_;
};

class TableStatusBar : public QWidget {
    Q_OBJECT
public:
    explicit TableStatusBar(QWidget* parent);

    // Panels 1 to 4.
    StatusPanel& Panel(int panel);

private:
    std::array<StatusPanel*, 4> panels_{};
};

}  // namespace trickhaven
