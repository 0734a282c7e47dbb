// Layouts of the cards a seat cannot see, drawn at random but consistent
// with all it has seen: the other hand is its known cards and a draw of the
// unseen ones, the stock is the rest in a random order.
#pragma once

#include <cstdint>

#include "expert/hand_state.h"
#include "expert/seat_view.h"

namespace trickhaven::expert {

// A small seeded generator (splitmix64): the same seed, the same layouts.
class LayoutRandom {
public:
    explicit LayoutRandom(std::uint64_t seed) : state_(seed) {}
    std::uint64_t Next();
    // Uniform in 0..bound-1.
    int Below(int bound);

private:
    std::uint64_t state_;
};

// The cards this seat cannot place: in the other hand or in the stock.
CardSet UnseenCards(const SeatView& view);

// A seed made of what the seat sees, so that the same view always gives the
// same decision, however the unseen cards lie.
std::uint64_t ViewSeed(const SeatView& view);

HandState SampleLayout(const SeatView& view, LayoutRandom& random);

}  // namespace trickhaven::expert
