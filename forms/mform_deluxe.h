// MFormDeluxe: the game's own message box. A borderless blue form with a
// title band, the wrapped message, an icon and up to three drawn buttons;
// modal, with a ring, until one button is clicked or a key answers for it.
#pragma once

#include <QColor>
#include <QDialog>
#include <QLine>
#include <QString>
#include <array>
#include <functional>
#include <vector>

#include "game/table_keys.h"

class QLabel;
class QPainter;

namespace trickhaven {

class MFormDeluxe : public QDialog {
    Q_OBJECT
    friend class DeluxeAccessible;
    friend class DeluxeButtonAccessible;

public:
    explicit MFormDeluxe(QWidget* parent = nullptr);
    ~MFormDeluxe() override;

    // Lays the form out for a message without showing it: the steps of the
    // message up to the sound. Positions in twips are kept for inspection.
    void Prepare(const QString& message, const QString& button0, const QString& button1,
                 const QString& button2, int iconIndex, const QString& title);

    // Prepare, ring, show modally; the index of the clicked button.
    int Run(const QString& message, const QString& button0, const QString& button1,
            const QString& button2, int iconIndex, const QString& title);

    // The layout in twips, as the design describes it; a half twip rounds up.
    int FormHeightTwips() const;
    int ButtonLeftTwips(int index) const;  // -1 when the button is hidden
    int ButtonTopTwips(int index) const;
    int IconTopTwips() const;
    QString TitleBandText() const;
    QString ButtonCaption(int index) const;
    // The index of the button last clicked (MessageChoice).
    int Choice() const;

    // The button that the keys would click now: Enter, Space.
    int KeyFocus() const { return keyFocus_.button; }
    // Whether that button shows its focus: only once a key was pressed.
    bool KeyFocusShown() const;

    // Called just before the form shows: the caller rings "ringout.wav".
    std::function<void()> onRing;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class ButtonPanel;
    // Lines drawn on the form or a button, kept until they are cleared.
    struct Stroke {
        QLine line;
        QColor colour;
    };
    using Drawing = std::vector<Stroke>;
    static void AddBox(Drawing& drawing, QPoint from, QPoint to, const QColor& colour);
    static void Paint(QPainter& painter, const Drawing& drawing);

    void DrawRaised(int index);
    void DrawPressed(int index);
    void PlaceButton(int index);
    void Click(int index);
    void PressKey(KeyPress key);
    void ShowKeyFocus();
    void TakeKeyboard();

    QLabel* label3_;
    QLabel* label2_;
    QLabel* picture1_;
    std::array<ButtonPanel*, 3> pic1_;
    std::array<QLabel*, 3> label1_;
    std::array<bool, 3> pressed_{};
    std::array<double, 3> buttonLeft_{45, 1440, 2880};
    std::array<double, 3> buttonTop_{1170, 1170, 1200};
    double iconTop_ = 150;
    Drawing drawing_;
    int choice_ = 0;
    MessageFocus keyFocus_;
    bool keyboardUsed_ = false;
    QMetaObject::Connection keepsKeyboard_;
};

}  // namespace trickhaven
