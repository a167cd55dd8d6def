// Window messages into input state.
#include "shell/window_procedure.h"

#include "shell/input.h"

namespace tarvik {

namespace {

void set_key(WPARAM virtual_key, std::int32_t down) {
    if (virtual_key < KEY_TABLE_SIZE) {
        key_down[virtual_key] = down;
    }
}

} // namespace

LRESULT CALLBACK window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
    case WM_DESTROY:
    case WM_CLOSE: // the window itself goes at shutdown
        PostQuitMessage(0);
        quit_requested = 1;
        return 0;
    case WM_KEYDOWN:
        set_key(wparam, 1);
        return 0;
    case WM_KEYUP:
        set_key(wparam, 0);
        return 0;
    case WM_MOUSEMOVE:
        mouse_x = LOWORD(lparam);
        mouse_y = HIWORD(lparam);
        return 0;
    case WM_SYSCOMMAND: // Alt+F4 and the screen saver included
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
        return 0;
    default:
        return DefWindowProcA(window, message, wparam, lparam);
    }
}

} // namespace tarvik
