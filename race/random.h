// The game's own pseudo-random numbers, the same on every system.
#pragma once

#include <cstdint>

namespace tarvik {

inline constexpr std::int32_t RAND_RANGE = 32768;

/// Starts the sequence anew from a seed.
void srand(std::uint32_t seed);

/// The next number, 0 to RAND_RANGE - 1.
std::int32_t rand();

} // namespace tarvik
