// A simple driver for a ring road. It looks at the car and at nothing that the system's
// mathematical library computes for it, so it presses the same keys everywhere.
#pragma once

#include <cstdint>
#include <vector>

namespace tarvik::test {

/// Centre and middle radius of the ring road, cells; it leads through the start/finish box.
inline constexpr int RING_X = 2950;
inline constexpr int RING_Y = 2400;
inline constexpr int RING_RADIUS = 550;

/// A map with the ring road, 140 cells wide, on noisy grass.
std::vector<std::uint8_t> ring_map();

/// Posts the key messages that keep the car going clockwise round the ring, in the gear given.
/// Called once a frame.
void drive_ring(std::int32_t wanted_gear);

/// Forgets which keys it holds.
void restart_autopilot();

} // namespace tarvik::test
