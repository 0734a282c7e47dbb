// The generator behind every random pick. A reseed mixes the clock with the
// generator's own state, so reseeding twice within one millisecond (or on a
// clock that stands still) still gives fresh draws.
#pragma once

#include <cstdint>

namespace trickhaven {

struct CardRandom {
    std::uint64_t state = 0x9E3779B97F4A7C15ULL;

    void Reseed(std::int32_t clock);
    double Draw();  // uniform in [0, 1)
};

// Rounds to the nearest integer, a half going to the even neighbour.
int RoundHalfEven(double value);

}  // namespace trickhaven
