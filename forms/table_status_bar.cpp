#include "forms/table_status_bar.h"

#include <qdrawutil.h>

#include <QPainter>
#include <cmath>

#include "forms/caption_fit.h"
#include "forms/card_art.h"
#include "forms/table_design.h"
#include "forms/twips.h"

namespace trickhaven {

namespace {

// The face of a status bar, whatever the desktop's theme.
constexpr QColor BarFace(212, 208, 200);
// From the panel's left edge to its picture, and from the picture to the text.
constexpr int PanelInset = 3;

}  // namespace

void StatusPanel::SetText(const QString& text) {
    text_ = text;
    // A screen reader reads the commentary as it changes.
    setAccessibleName(text);
    update();
}

void StatusPanel::SetPicture(SharpPicture::Source picture) {
    picture_.Set(std::move(picture), devicePixelRatioF());
    // The text stands after the picture.
    const int pictureWidth = picture_.Current().deviceIndependentSize().toSize().width();
    setContentsMargins(PanelInset + pictureWidth + PanelInset, 1, 2, 1);
    update();
}

void StatusPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    qDrawShadePanel(&painter, rect(), palette(), true, 1);
    const QRect inside = contentsRect();
    if (!picture_.IsNull()) {
        const QSize size = picture_.Current().deviceIndependentSize().toSize();
        const QPoint corner(PanelInset, inside.top() + (inside.height() - size.height()) / 2);
        picture_.Paint(painter, QRect(corner, size));
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text_);
}

TableStatusBar::TableStatusBar(QWidget* parent) : QWidget(parent) {
    setObjectName("StatusBar1");
    setAccessibleName("Status bar");
    setFixedHeight(TwipsToPixels(StatusBarPlace.height));
    resize(TwipsToPixels(StatusBarPlace.width), height());
    QPalette colours = palette();
    colours.setColor(QPalette::Window, BarFace);
    colours.setColor(QPalette::WindowText, Qt::black);
    setPalette(colours);
    setAutoFillBackground(true);

    QFont font(TableFontFamily);
    font.setPixelSize(PointsToPixels(StatusBarFont.points));
    font.setBold(StatusBarFont.bold);
    setFont(font);

    int number = 1;
    for (const StatusPanelDesign& design : StatusPanels()) {
        auto* panel = new StatusPanel(this);
        panel->setContentsMargins(PanelInset, 1, 2, 1);
        panel->setObjectName(QString("StatusBar1Panel%1").arg(number));
        panel->SetText(design.text);
        panel->setToolTip(design.toolTip);
        panels_.at(static_cast<std::size_t>(number - 1)) = panel;
        ++number;
    }
    Panel(1).SetPicture(&CardArt::TrumpPanelPicture);
}

void TableStatusBar::resizeEvent(QResizeEvent*) {
    // At the design's width each panel stands where the design puts it; the
    // last one reaches the bar's end.
    int panelsWidth = 0;
    for (const StatusPanelDesign& design : StatusPanels()) {
        panelsWidth += design.width;
    }
    const double stretch = static_cast<double>(PixelsToTwips(width())) / panelsWidth;
    int left = 0;
    std::size_t index = 0;
    for (const StatusPanelDesign& design : StatusPanels()) {
        const int from = TwipsToPixels(static_cast<int>(std::lround(left * stretch)));
        const int to =
            TwipsToPixels(static_cast<int>(std::lround((left + design.width) * stretch)));
        panels_.at(index++)->setGeometry(from, 0, to - from, height());
        left += design.width;
    }
    // In a window narrower than the design the font steps down until every
    // panel's widest text shows whole again.
    QFont shrunk = font();
    shrunk.setPixelSize(PointsToPixels(StatusBarFont.points));
    const auto allFit = [&] {
        std::size_t panel = 0;
        for (const StatusPanelDesign& design : StatusPanels()) {
            if (!CaptionFitsBox(design.widest, shrunk, panels_.at(panel++)->contentsRect().size(),
                                false)) {
                return false;
            }
        }
        return true;
    };
    while (!allFit() && shrunk.pixelSize() > 6) {
        shrunk.setPixelSize(shrunk.pixelSize() - 1);
    }
    setFont(shrunk);
}

StatusPanel& TableStatusBar::Panel(int panel) {
    return *panels_.at(static_cast<std::size_t>(panel - 1));
}

}  // namespace trickhaven
