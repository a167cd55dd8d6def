// Connection to the display, made before the game starts.
#pragma once

namespace tarvik {

/// Connects to the display and makes sure that it can show OpenGL pictures. Where it cannot, one
/// line on standard error says what is missing and the program ends with exit code 1. Whoever has
/// a main() calls this first and starts WinMain after it.
void open_display_or_exit();

/// Lets go of the display once WinMain has returned.
void close_display();

/// Whether keys are read from the X server instead of from SDL.
bool has_x11_keyboard();

} // namespace tarvik
