// The fast way round: out, in, out.
#pragma once

#include "tools/demo/course.h"

namespace tarvik::demo {

/// The line that a taut, springy rod would take on the road: straight where it can, close to the
/// inside of wide bends, and from the outside over the inside to the outside in tight ones.
/// `middle` is the middle of the road. The line keeps `margin` cells from the grass, or half-way
/// between the edges where the road is too narrow for that.
Course racing_line(const Course& middle, double margin);

} // namespace tarvik::demo
