// Forms measure in twips, 15 to the pixel; this is the one place that
// converts between the two.
#pragma once

namespace trickhaven {

inline constexpr int kTwipsPerPixel = 15;

// Rounds to the nearest pixel, halves away from zero.
constexpr int TwipsToPixels(double twips) {
    const double pixels = twips / kTwipsPerPixel;
    return static_cast<int>(pixels < 0 ? pixels - 0.5 : pixels + 0.5);
}

constexpr int PixelsToTwips(int pixels) { return pixels * kTwipsPerPixel; }

}  // namespace trickhaven
