// The five previous laps, driving along.
#pragma once

namespace tarvik {

/// Makes the lap just recorded the newest ghost and forgets the oldest.
void shift_ghosts();

/// Draws each ghost where it was at the frame of the lap that is now being driven.
void draw_ghosts();

} // namespace tarvik
