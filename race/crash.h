// When leaving the road costs the player the lap.
#pragma once

namespace tarvik {

/// Resets the car if its `hits` are too many for the difficulty, or in the end too often any, and
/// if its lap has run for too long.
void apply_crash_rules();

} // namespace tarvik
