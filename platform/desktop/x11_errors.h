// Complaints of the X server, and what becomes of the program when it takes something away.
#pragma once

namespace tarvik {

/// From here on a refused request is ignored, and the loss of the connection or of the game's
/// window ends the program with one line on standard error and exit code 1. Xlib on its own would
/// end the program for each of these, with a page of text. To be called before any connection is
/// made.
void watch_x11_errors();

/// Ends the program if this window, which is no longer there, was the game's: while the game runs
/// only somebody else destroys it, and drivers come to grief when they draw into it.
void note_x11_window_lost(unsigned long window);

} // namespace tarvik
