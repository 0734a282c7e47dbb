#include "forms/table_status_bar.h"

#include <qdrawutil.h>

#include <QPainter>

#include "forms/card_art.h"
#include "forms/table_design.h"
#include "forms/twips.h"

namespace trickhaven {

namespace {

// The face of a status bar, whatever the desktop's theme.
constexpr QColor BarFace(212, 208, 200);

}  // namespace

void StatusPanel::SetText(const QString& text) {
    text_ = text;
    // A screen reader reads the commentary as it changes.
    setAccessibleName(text);
    update();
}

void StatusPanel::SetPicture(SharpPicture::Source picture) {
    picture_.Set(std::move(picture), devicePixelRatioF());
    update();
}

void StatusPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    qDrawShadePanel(&painter, rect(), palette(), true, 1);
    QRect inside = rect().adjusted(3, 1, -2, -1);
    if (!picture_.IsNull()) {
        const QSize size = picture_.Current().deviceIndependentSize().toSize();
        const QPoint corner(inside.left(), inside.top() + (inside.height() - size.height()) / 2);
        picture_.Paint(painter, QRect(corner, size));
        inside.setLeft(inside.left() + size.width() + 3);
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text_);
}

TableStatusBar::TableStatusBar(QWidget* parent) : QWidget(parent) {
    setObjectName("StatusBar1");
    setAccessibleName("Status bar");
    setGeometry(TwipsToPixels(StatusBarPlace.left, StatusBarPlace.top, StatusBarPlace.width,
                              StatusBarPlace.height));
    QPalette colours = palette();
    colours.setColor(QPalette::Window, BarFace);
    colours.setColor(QPalette::WindowText, Qt::black);
    setPalette(colours);
    setAutoFillBackground(true);

    QFont font(TableFontFamily);
    font.setPixelSize(PointsToPixels(StatusBarFont.points));
    font.setBold(StatusBarFont.bold);
    setFont(font);

    int left = 0;
    int number = 1;
    for (const StatusPanelDesign& design : StatusPanels()) {
        auto* panel = new StatusPanel(this);
        panel->setObjectName(QString("StatusBar1Panel%1").arg(number));
        panel->setGeometry(TwipsToPixels(left, 0, design.width, StatusBarPlace.height));
        panel->SetText(design.text);
        panel->setToolTip(design.toolTip);
        panels_.at(static_cast<std::size_t>(number - 1)) = panel;
        left += design.width;
        ++number;
    }
    Panel(1).SetPicture(&CardArt::TrumpPanelPicture);
}

StatusPanel& TableStatusBar::Panel(int panel) {
    return *panels_.at(static_cast<std::size_t>(panel - 1));
}

}  // namespace trickhaven
