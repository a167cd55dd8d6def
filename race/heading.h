// From headings to directions on the track.
#pragma once

#include <cmath>

namespace tarvik {

/// Degrees to radians, 3.141592653 / 180. Those digits decide where a car goes: with a better pi,
/// the same keys would lead to another place.
inline constexpr double DEG_TO_RAD = 0.017453292516666667;

/// A displacement on the track, cells.
struct Step {
    float x;
    float y;
};

/// The displacement of `length` cells along a heading in degrees, computed in double precision and
/// kept in single.
inline Step step_along(float degrees, double length) {
    const double radians = static_cast<double>(degrees) * DEG_TO_RAD;
    return {static_cast<float>(length * std::sin(radians)),
            static_cast<float>(length * std::cos(radians))};
}

} // namespace tarvik
