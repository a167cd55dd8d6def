// When leaving the road costs the player the lap.
#pragma once

namespace tarvik {

/// Resets the car if it has too many `hits` for the difficulty (on the easier ones chance decides
/// while there are any), or if its lap has run for too long.
void apply_crash_rules();

} // namespace tarvik
