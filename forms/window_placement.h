// The forms that open beside the table open centred on the screen, and a
// second request brings the one already open to the front.
#pragma once

#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace trickhaven {

inline void CentreOnScreen(QWidget& window) {
    window.setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, window.size(),
                                           window.screen()->availableGeometry()));
}

inline void BringUp(QWidget& window) {
    if (window.isVisible()) {
        window.raise();
    } else {
        window.show();
    }
    window.activateWindow();
}

}  // namespace trickhaven
