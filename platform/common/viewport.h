// Where frames are shown in a window of any size: enlarged by a whole factor, in the middle, on
// black.
#pragma once

#include <algorithm>

namespace tarvik {

// A frame in logical pixels, as in shell/screen.h, and how many of the game's device pixels
// each takes across and down.
inline constexpr int LOGICAL_WIDTH = 320;
inline constexpr int LOGICAL_HEIGHT = 240;
inline constexpr int GAME_PIXELS = 2;

/// The largest whole number of device pixels for each logical one with which a frame fits.
constexpr int largest_factor(int width, int height) {
    return std::max(1, std::min(width / LOGICAL_WIDTH, height / LOGICAL_HEIGHT));
}

/// The factor for a window at its start on a display of so many dots per inch, 96 being usual.
/// Never more than the display has room for, nor less than what the game asks for.
constexpr int starting_factor(int dots_per_inch, int display_width, int display_height) {
    return std::max(GAME_PIXELS, std::min(GAME_PIXELS * dots_per_inch / 96,
                                          largest_factor(display_width, display_height)));
}

struct Viewport {
    int factor; ///< device pixels for each logical one
    int left;   ///< left edge in the window; negative where the window is too small
    int top;
    int right; ///< columns of the window to the right of the viewport
    int below; ///< rows of the window under the viewport

    /// Whether a place in the window is in the viewport.
    constexpr bool contains(int x, int y) const {
        return x >= left && x < left + LOGICAL_WIDTH * factor && y >= top &&
               y < top + LOGICAL_HEIGHT * factor;
    }

    // From a place in the window to the game's own pixel there.
    constexpr int game_x(int x) const {
        return (x - left) * GAME_PIXELS / factor;
    }
    constexpr int game_y(int y) const {
        return (y - top) * GAME_PIXELS / factor;
    }
};

constexpr Viewport viewport_in(int window_width, int window_height) {
    const int factor = largest_factor(window_width, window_height);
    const int black_columns = window_width - LOGICAL_WIDTH * factor;
    const int black_rows = window_height - LOGICAL_HEIGHT * factor;
    return {factor, black_columns / 2, black_rows / 2, black_columns - black_columns / 2,
            black_rows - black_rows / 2};
}

} // namespace tarvik
