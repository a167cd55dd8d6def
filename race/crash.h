// When an off-road car is put back to the start.
#pragma once

namespace tarvik {

/// Applies the rule of the difficulty to a car with `hits` corners off the track, 0 to 4, and the
/// limit on a lap's length: either may reset the car.
void apply_crash_rules(int hits);

} // namespace tarvik
