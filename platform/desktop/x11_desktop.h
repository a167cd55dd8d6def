// What the X server's desktop tells about itself.
#pragma once

namespace tarvik {

/// The density for which the desktop draws its texts, in dots per inch; 96 where it says nothing.
int x11_dots_per_inch();

/// Whether a window manager is there and gives windows the whole display if they ask for it.
bool x11_window_manager_grants_full_screen();

} // namespace tarvik
