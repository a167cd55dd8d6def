// The window that the game has opened.
#pragma once

#include "platform/common/viewport.h"
#include "platform/win32.h"

namespace tarvik {

/// Where frames are shown in the game's window now.
Viewport current_viewport(HWND window);

/// Lets the window take the whole display that it is on, or gives it back its place and size.
void toggle_full_screen(HWND window);

/// Moves a window that takes a whole display to the display's new size; leaves others alone.
void follow_display_size(HWND window);

/// Moves the window to a place on a display of so many dots per inch, and gives it the size that
/// suits that; a window that takes a whole display takes the new one.
void follow_display_density(HWND window, int dots_per_inch, POINT place);

} // namespace tarvik
