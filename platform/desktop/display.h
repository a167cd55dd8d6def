// Connection to the display, made before the game starts.
#pragma once

namespace tarvik {

/// Connects to the display. Where there is none, one line on standard error says so and the program
/// ends with exit code 1. A program's main() calls this first and WinMain after it.
///
/// X11 is tried before Wayland, since only an X server tells which keys are held while another
/// window has the focus. The environment variable TARVIK_DISPLAY asks for one of them: `x11` or
/// `wayland`.
void open_display_or_exit();

/// Ends the program with one line that names the problem and its reason, and exit code 1.
[[noreturn]] void exit_with_error(const char* problem, const char* reason);

/// Whether the display is an X server's.
bool is_x11();

/// Lets go of the display once WinMain has returned.
void close_display();

/// Whether keys are read from the X server instead of from SDL.
bool has_x11_keyboard();

} // namespace tarvik
