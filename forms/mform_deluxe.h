// MFormDeluxe: the game's own message box. A borderless blue form with a
// title band, the wrapped message, an icon and up to three drawn buttons;
// modal, with a ring, until one button is clicked.
#pragma once

#include <QDialog>
#include <QString>

namespace trickhaven {

class MFormDeluxe : public QDialog {
    Q_OBJECT
public:
    explicit MFormDeluxe(QWidget* parent = nullptr);

    // Lays the form out for a message without showing it: the steps of the
    // message up to the sound. Positions in twips are kept for inspection.
    void Prepare(const QString& message, const QString& button0, const QString& button1,
                 const QString& button2, int iconIndex, const QString& title);

    // Prepare, ring, show modally; the index of the clicked button.
    int Run(const QString& message, const QString& button0, const QString& button1,
            const QString& button2, int iconIndex, const QString& title);

    // The layout in twips, as the design describes it.
    int FormHeightTwips() const;
    int ButtonLeftTwips(int index) const;  // -1 when the button is hidden
    int ButtonTopTwips(int index) const;
    int IconTopTwips() const;
    QString TitleBandText() const;
    QString ButtonCaption(int index) const;
    // The index of the button last clicked (MessageChoice).
    int Choice() const;
};

}  // namespace trickhaven
