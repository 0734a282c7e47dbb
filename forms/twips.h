// The table's unit. Every position and size of the design is in twips from
// the top left of the control's container; the screen counts pixels. This is
// the one place where the two meet.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <cmath>

namespace trickhaven {

inline constexpr int TwipsPerPixel = 15;
// A point of a font is 20 twips, so a font size converts like a length.
inline constexpr int TwipsPerPoint = 20;

inline int TwipsToPixels(int twips) {
    return static_cast<int>(std::lround(static_cast<double>(twips) / TwipsPerPixel));
}

inline QPoint TwipsToPixels(int left, int top) {
    return {TwipsToPixels(left), TwipsToPixels(top)};
}

inline QRect TwipsToPixels(int left, int top, int width, int height) {
    return {TwipsToPixels(left), TwipsToPixels(top), TwipsToPixels(width), TwipsToPixels(height)};
}

inline int PixelsToTwips(int pixels) {
    return pixels * TwipsPerPixel;
}

// The pixel size of a font, so that the layout does not follow the screen's
// dots per inch: 14.25 pt is 19 pixels.
inline int PointsToPixels(double points) {
    return TwipsToPixels(static_cast<int>(std::lround(points * TwipsPerPoint)));
}

}  // namespace trickhaven
