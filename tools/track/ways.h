// The ways a lap can take.
#pragma once

#include "tools/track/regions.h"
#include "tools/track/track.h"

#include <optional>
#include <vector>

namespace tarvik {

/// Two ways from above the start/finish box back to the start, on both sides of something.
struct TwoWays {
    std::vector<Cell> shorter;
    double shorter_length = 0; ///< cells
    double longer_length = 0;
    Cell parting; ///< where the shorter one leaves the longer one
    Cell middle;  ///< half-way along what it has for itself
};

/// Whether a car that stays in `space`, in which the box or more is closed, has to choose between
/// two ways. Obstacles that change next to nothing about the way do not count.
std::optional<TwoWays> two_ways(const CellMask& space, int side);

/// The shortest way in `space` from above the box back to the start; empty if there is none.
struct Way {
    std::vector<Cell> cells;
    double length = 0; ///< cells
};
Way shortest_way(const CellMask& space, int side);

} // namespace tarvik
