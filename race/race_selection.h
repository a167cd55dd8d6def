// Choosing the track and the difficulty.
#pragma once

namespace tarvik {

/// Brackets switch tracks, the digits 1 to 3 set the difficulty, F1 and F2 hold the game for a
/// moment. Every key that is down acts, so several may in one frame.
void handle_race_keys();

} // namespace tarvik
