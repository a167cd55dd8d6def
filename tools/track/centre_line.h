// The middle of the road, once around.
#pragma once

#include "tools/track/track.h"

#include <vector>

namespace tarvik {

inline constexpr double CENTRE_SPACING = 4.0; ///< cells from one point to the next, about

struct CentrePoint {
    double x = 0; ///< position in cells, as car positions are
    double y = 0;
};

/// A closed line through the middle of the road in driving direction: from the middle of the
/// start/finish box upwards, around, past the start and back; the last point is joined to the
/// first. Empty if no road leads from above the box back to the start.
std::vector<CentrePoint> centre_line(TrackView track);

} // namespace tarvik
