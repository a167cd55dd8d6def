// The middle of the road of the track that is loaded.
#pragma once

#include "tools/demo/course.h"

#include <vector>

namespace tarvik::demo {

/// A closed chain of points along the middle of the road in `track_grid`, from the start/finish box
/// in the starting direction and round; empty if no road leads round.
std::vector<Point> middle_of_road();

} // namespace tarvik::demo
