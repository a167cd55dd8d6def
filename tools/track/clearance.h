// How far every cell of the road is from the grass.
#pragma once

#include "tools/track/track.h"

#include <cstdint>
#include <vector>

namespace tarvik {

/// Distances are exact up to this many cells; what is farther from the grass reads as this far.
inline constexpr int LARGEST_CLEARANCE = 255;

/// Per cell the square of the distance from its centre to the centre of the nearest grass cell; 0
/// for grass. A straight road of w cells has clearance (w + 1) / 2 in its middle, rounded down.
/// What lies outside the grid is grass.
std::vector<std::uint16_t> squared_clearance(TrackView track);

} // namespace tarvik
