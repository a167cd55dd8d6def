// The ways a lap can take.
#pragma once

#include "race/laps.h"
#include "tools/track/regions.h"
#include "tools/track/track.h"

#include <optional>
#include <vector>

namespace tarvik {

inline constexpr double TOP_SPEED = 3.3034; ///< cells a frame, the most the highest gear can reach

/// A shorter way back to the start is no lap: so far a car can get before a lap counts.
inline constexpr double SHORTEST_LAP = MIN_LAP_FRAMES * TOP_SPEED;

/// Two ways from above the start/finish box back to the start, on both sides of something.
struct TwoWays {
    double shorter_length = 0; ///< cells
    double longer_length = 0;
    Cell parting; ///< where the shorter one leaves the longer one
    Cell middle;  ///< half-way along what it has for itself
};

/// Whether a car that stays in `space`, in which the box or more is closed, has to choose between
/// two ways. Obstacles that change next to nothing about the way do not count. If the shorter way
/// is no lap, the box can be passed by, and there may be nothing to say about `parting`.
std::optional<TwoWays> two_ways(const CellMask& space, int side);

/// The shortest way in `space` from above the box back to the start; empty if there is none.
struct Way {
    std::vector<Cell> cells;
    double length = 0; ///< cells
};
Way shortest_way(const CellMask& space, int side);

} // namespace tarvik
