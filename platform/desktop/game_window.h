// The one window. Private to the layer; the game knows it by its HWND.
#pragma once

#include "platform/win32.h"

struct SDL_Window;

namespace tarvik {

/// The window, null before it is created and after it is destroyed.
HWND game_window();

/// The SDL window behind a window or device context handle; both are the same pointer.
inline SDL_Window* sdl_window(void* handle) {
    return static_cast<SDL_Window*>(handle);
}

/// Calls the procedure of the window's class; 0 for a window that does not exist.
LRESULT call_window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

} // namespace tarvik
