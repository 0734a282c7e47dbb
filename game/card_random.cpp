#include "game/card_random.h"

#include <cmath>

namespace trickhaven {

namespace {

std::uint64_t SplitMix(std::uint64_t& state) {
    state += 0x9E3779B97F4A7C15ULL;
    std::uint64_t z = state;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31U);
}

}  // namespace

void CardRandom::Reseed(std::int32_t clock) {
    state ^= static_cast<std::uint64_t>(static_cast<std::uint32_t>(clock)) * 0xD1B54A32D192ED03ULL;
    SplitMix(state);
}

double CardRandom::Draw() {
    constexpr double kTwoToMinus53 = 1.0 / 9007199254740992.0;
    return static_cast<double>(SplitMix(state) >> 11U) * kTwoToMinus53;
}

int RoundHalfEven(double value) {
    const double floor = std::floor(value);
    const double rest = value - floor;
    auto result = static_cast<int>(floor);
    if (rest > 0.5 || (rest == 0.5 && result % 2 != 0)) {
        ++result;
    }
    return result;
}

}  // namespace trickhaven
