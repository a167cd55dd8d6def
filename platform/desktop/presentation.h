// Showing frames in the window. Private to the layer.
#pragma once

#include "platform/win32.h"

namespace tarvik {

/// Shows the last frame once more, for a window that has been uncovered or resized.
void show_frame_again();

/// Finds the game's own pixel at a place in the window. False outside the viewport.
bool find_game_pixel(POINT place, POINT& pixel);

} // namespace tarvik
