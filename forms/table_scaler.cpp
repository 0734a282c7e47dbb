#include "forms/table_scaler.h"

#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <algorithm>

namespace trickhaven {

TableScaler::TableScaler(QWidget* picture, QWidget* parent)
    : QGraphicsView(parent), pictureSize_(picture->size()) {
    picture->setFixedSize(pictureSize_);
    auto* scene = new QGraphicsScene(this);
    scene->addWidget(picture);
    scene->setSceneRect(QRectF(QPointF(0, 0), pictureSize_));
    setScene(scene);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setBackgroundBrush(picture->palette().color(QPalette::Window));
    // Card pictures are fetched at the scaled resolution; smoothing covers
    // the rest: the rounding to a quarter step, and a window smaller than
    // the table.
    setRenderHint(QPainter::SmoothPixmapTransform);
    setMinimumSize(pictureSize_ / 2);
}

QSize TableScaler::sizeHint() const {
    return pictureSize_;
}

void TableScaler::resizeEvent(QResizeEvent* event) {
    QGraphicsView::resizeEvent(event);
    const QSize room = viewport()->size();
    const qreal scale = std::min(static_cast<qreal>(room.width()) / pictureSize_.width(),
                                 static_cast<qreal>(room.height()) / pictureSize_.height());
    setTransform(QTransform::fromScale(scale, scale));
}

}  // namespace trickhaven
