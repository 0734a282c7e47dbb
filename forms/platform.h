// The little the logic needs of the machine besides the table view: a
// millisecond clock, the serving of pending events, sounds and a random draw.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace trickhaven {

class Platform {
public:
    virtual ~Platform() = default;

    // Milliseconds from a fixed moment; monotonic.
    virtual std::int32_t TickCount() = 0;

    // Serves pending events once. With nothing pending it blocks until the
    // next event or, when one is given, until the tick count reaches the
    // deadline; it never spins.
    virtual void ServeEvents(std::optional<std::int32_t> deadline) = 0;

    // Starts a sound file of the program's folder by name ("riffle.wav") and
    // returns at once. A missing file is silent.
    virtual void PlaySound(const std::string& file) = 0;

    // A uniform draw in [0, 1).
    virtual double Random() = 0;
    // Reseeds the generator from the clock.
    virtual void Reseed() = 0;
};

}  // namespace trickhaven
