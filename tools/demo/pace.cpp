// Limits from the bends, then braking distances backwards from each limit.
#include "tools/demo/pace.h"

#include "race/car_controls.h"
#include "race/heading.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tarvik::demo {

namespace {

constexpr double NO_LIMIT = 4.0; // above the top speed
constexpr double SLOWEST = 0.5;  // no bend needs less; the car never slides below it

/// A car that steers in `share` of all frames turns by share * (STEER_DEGREES + speed) degrees a
/// frame, and has to turn by bend * speed.
double bend_limit(double bend, double share) {
    const double per_degree = share * DEG_TO_RAD;
    if (bend <= per_degree) {
        return NO_LIMIT;
    }
    return std::clamp(static_cast<double>(STEER_DEGREES) * per_degree / (bend - per_degree),
                      SLOWEST, NO_LIMIT);
}

/// Speed lost per cell of way with the brake held. A frame divides the speed by 1 + b and covers
/// as many cells as the speed, so that the loss per cell is b whatever the speed.
double braking_per_cell(double speed) {
    constexpr double CAUTION = 0.8; // the brake shares the keyboard with the wheel
    if (speed < 1.0) {
        return CAUTION * 0.04;
    }
    if (speed < 2.0) {
        return CAUTION * 0.02;
    }
    return CAUTION * (speed < 3.0 ? 0.01 : 0.005);
}

} // namespace

std::vector<double> plan_pace(const Course& course, double share) {
    const std::size_t size = course.size();
    std::vector<double> pace(size);
    for (std::size_t i = 0; i < size; ++i) {
        pace[i] = bend_limit(std::abs(course.at(i).bend), share);
    }
    // Twice round, so that the braking for the first bend reaches back over the start.
    for (std::size_t n = 2 * size; n-- > 0;) {
        const double next = pace[(n + 1) % size];
        pace[n % size] = std::min(pace[n % size], next + braking_per_cell(next) * PLACE_SPACING);
    }
    return pace;
}

} // namespace tarvik::demo
