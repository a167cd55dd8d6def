// The way that keeps farthest from the grass.
#pragma once

#include "tools/track/track.h"

#include <cstdint>
#include <functional>

namespace tarvik {

struct WidestPath {
    bool found = false;
    std::uint16_t squared_clearance = 0; ///< at the narrowest place of the widest way
    Cell narrowest;
};

/// Of all ways between two cells of the road finds one whose narrowest place is as wide as
/// possible. `squared_clearance` is 0 where there is no way.
WidestPath widest_path(int side, Cell from, Cell to,
                       const std::function<std::uint16_t(int x, int y)>& squared_clearance);

} // namespace tarvik
