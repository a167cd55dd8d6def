// Where a car can be without leaving the road.
#pragma once

#include "tools/track/regions.h"
#include "tools/track/track.h"

namespace tarvik {

inline constexpr int CAR_CORNERS = 4;
/// On Advanced a car is never put back while this many corners are on the road.
inline constexpr int CORNERS_THAT_SUFFICE = 2;

/// Per cell the largest number of corners (0 to CAR_CORNERS) that a car with its position in the
/// cell can have on the road, whatever its heading.
CellMask corners_on_road(TrackView track);

/// A rectangle of cells, all edges included.
struct Rectangle {
    int left = 0;
    int top = 0;
    int right = -1;
    int bottom = -1;
};

/// Marks the cells within half a frame's drive of those where at least `corners` corners fit, the
/// cells of `closed` left out. A car is only tested where it stands at the end of a frame, so two
/// places belong together when a car can leap from one to the other.
CellMask car_space(const CellMask& corners, int side, int fewest_corners, Rectangle closed);

} // namespace tarvik
