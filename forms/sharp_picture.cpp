#include "forms/sharp_picture.h"

#include <algorithm>
#include <cmath>

namespace trickhaven {

namespace {

constexpr qreal RatioSteps = 4;
// Painting cannot draw into a picture of fewer pixels than logical ones; a
// smaller window shrinks the pictures of ratio one smoothly instead.
constexpr qreal SmallestRatio = 1;
constexpr qreal LargestRatio = 8;

}  // namespace

qreal PaintRatio(const QPainter& painter) {
    const QTransform toDevice = painter.deviceTransform();
    const qreal across = std::hypot(toDevice.m11(), toDevice.m12());
    const qreal down = std::hypot(toDevice.m21(), toDevice.m22());
    // A hair below a step still counts as that step.
    const qreal stepped = std::ceil(std::max(across, down) * RatioSteps - 1e-6) / RatioSteps;
    return std::clamp(stepped, SmallestRatio, LargestRatio);
}

void SharpPicture::Set(Source source, qreal ratio) {
    source_ = std::move(source);
    pixmap_ = source_ ? source_(ratio) : QPixmap();
}

void SharpPicture::Paint(QPainter& painter, const QRectF& target) {
    if (!source_) {
        return;
    }
    const qreal ratio = PaintRatio(painter);
    if (pixmap_.devicePixelRatio() != ratio) {
        pixmap_ = source_(ratio);
    }
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(target, pixmap_, QRectF(pixmap_.rect()));
    painter.restore();
}

}  // namespace trickhaven
