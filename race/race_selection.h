// Choosing the track and the difficulty.
#pragma once

namespace tarvik {

/// Brackets switch tracks, digits choose the difficulty, F1 and F2 hold the game for a moment. Keys
/// do not exclude each other: whatever is down takes effect, in this order.
void handle_race_keys();

} // namespace tarvik
