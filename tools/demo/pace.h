// How fast each place of a course can be taken, braking included.
#pragma once

#include "tools/demo/course.h"

#include <vector>

namespace tarvik::demo {

/// A speed for each place of the course, cells per frame: no more than its bend allows, and slow
/// enough that the brakes reach the speed of every later place. `share` is the part of all frames
/// in a bend, 0 to 1, in which the driver is ready to steer: a small one takes bends slowly.
std::vector<double> plan_pace(const Course& course, double share);

} // namespace tarvik::demo
