// What the game does with each message for its window.
#pragma once

#include "platform/win32.h"

namespace tarvik {

/// The window class's procedure: keeps the input state of shell/input.h, swallows system commands
/// and mouse buttons, and hands every other message to DefWindowProcA.
LRESULT CALLBACK window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

} // namespace tarvik
