// The game's window, its pixel format and its OpenGL context, from creation to teardown.
#pragma once

#include "platform/win32.h"

namespace tarvik {

/// The module the program entry was given; set before start-up.
extern HINSTANCE instance_handle;

/// Valid from create_game_window to destroy_game_window; null if the creation failed.
extern HWND window_handle;

/// The window's own device context, kept for its whole life; frames are swapped on it.
extern HDC device_context;

/// The OpenGL context, current on the one thread from creation to teardown.
extern HGLRC gl_context;

/// Opens the borderless window in the middle of the display, `screen_width` by `screen_height`, and
/// shows it once its OpenGL context is current. A window that cannot be created is reported in a
/// message box; start-up continues regardless.
void create_game_window();

/// Restores the display mode and the system pointer and takes the context and the window down.
void destroy_game_window();

} // namespace tarvik
