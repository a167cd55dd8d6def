// A ring road and a simple driver for it. The driver looks at the car and at nothing that the
// system's mathematical library computes for it, so it presses the same keys everywhere.
#pragma once

#include <cstdint>

namespace tarvik::test {

/// Puts two maps with the ring road and a few pictures under the game; called once, before
/// start-up.
void install_ring_data();

/// Puts everything that a drive depends on to its start, after whatever ran before.
void restart_on_ring(std::uint32_t seed);

/// Posts the key messages that keep the car going clockwise round the ring, in the gear given.
/// Called once a frame.
void drive_ring(std::int32_t wanted_gear);

/// Makes the driver forget which keys it holds.
void take_wheel();

} // namespace tarvik::test
