// Drives that between them go through all of the game.
#pragma once

#include <cstdint>

namespace tarvik::test {

struct Drive {
    const char* name;
    void (*steer)(long frame); // called before each frame, the first being 1
    long frames;
    std::uint32_t seed; // of the game's random numbers
    std::uint32_t luck; // of the driver's
};

/// Those that make the signature, in the order in which they do.
extern const Drive SIGNATURE_DRIVES[3];

/// State of the random numbers that the drives draw from; the same on every machine.
extern std::uint32_t luck;

/// For minutes or hours of play: round the ring, anyhow, far off the road and the grid, laps as
/// short as can be, and laps until they are given up; with a new difficulty each time, and a switch
/// of tracks now and then.
void steer_at_random(long frame);

} // namespace tarvik::test
