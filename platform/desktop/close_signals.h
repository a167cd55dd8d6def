// Ctrl+C, SIGTERM and a terminal that hangs up, kept until the game can be asked to close.
#pragma once

namespace tarvik {

/// From here on these signals no longer end the program but are noted.
void watch_close_signals();

/// Whether a signal came since the last call.
bool take_close_signal();

} // namespace tarvik
