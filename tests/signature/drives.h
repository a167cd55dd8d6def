// Drives that between them go through all of the game.
#pragma once

#include "tests/signature/run.h"

namespace tarvik::test {

struct Drive {
    const char* name;
    void (*drive)(Run& run, const Drive& plan);
    long frames;
    std::uint32_t seed;
};

/// Those that make the signature, in the order in which they do.
extern const Drive SIGNATURE_DRIVES[3];

/// For minutes or hours of play: round the ring, anyhow, far off the road and the grid, laps as
/// short as can be, and laps until they are given up; with a new difficulty each time, and a switch
/// of tracks now and then.
void drive_at_random(Run& run, const Drive& plan);

} // namespace tarvik::test
