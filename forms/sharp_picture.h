// A picture that stays sharp wherever it is painted. It is fetched again at
// the resolution it is painted at, so a move to a screen of another pixel
// ratio, or a window scaled up or down, gets pixels of its own rather than
// stretched ones; while that resolution holds, the picture is kept.
#pragma once

#include <QPainter>
#include <QPixmap>
#include <functional>

namespace trickhaven {

// Device pixels per logical pixel of a painter: the screen's ratio times the
// scaling of the table, rounded up to a quarter so that a window dragged to
// a new size does not fetch a picture at every step; never less than one.
qreal PaintRatio(const QPainter& painter);

class SharpPicture {
public:
    // Gives the picture at a ratio; asked again only when the ratio changes.
    using Source = std::function<QPixmap(qreal ratio)>;

    // Takes a new source and fetches from it at once at the given ratio.
    void Set(Source source, qreal ratio);
    bool IsNull() const { return !source_; }
    // The picture as last fetched.
    const QPixmap& Current() const { return pixmap_; }

    // Draws into the logical rectangle, at the painter's resolution.
    void Paint(QPainter& painter, const QRectF& target);

private:
    Source source_;
    QPixmap pixmap_;
};

}  // namespace trickhaven
