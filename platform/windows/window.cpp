// The game's window: larger than asked for on dense displays, full screen at a key, and the game
// told of neither.
#include "platform/windows/game_window.h"
#include "platform/windows/system_call.h"

namespace tarvik {

namespace {

WNDPROC game_procedure = nullptr;

bool is_full_screen_key(UINT message, WPARAM key) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_KEYUP:
        return key == VK_F11;
    case WM_SYSKEYDOWN: // with Alt
    case WM_SYSKEYUP:
        return key == VK_F11 || key == VK_RETURN;
    default:
        return false;
    }
}

bool is_first_press(UINT message, LPARAM key_flags) {
    constexpr LPARAM WAS_DOWN = LPARAM{1} << 30;
    return (message == WM_KEYDOWN || message == WM_SYSKEYDOWN) && (key_flags & WAS_DOWN) == 0;
}

// To the game, a place outside the viewport is outside the window.
LRESULT pass_mouse_move(HWND window, WPARAM buttons, LPARAM place) {
    const Viewport viewport = current_viewport(window);
    const int x = static_cast<short>(LOWORD(place));
    const int y = static_cast<short>(HIWORD(place));
    if (!viewport.contains(x, y)) {
        return 0;
    }
    return game_procedure(window, WM_MOUSEMOVE, buttons,
                          MAKELPARAM(viewport.game_x(x), viewport.game_y(y)));
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (is_full_screen_key(message, wparam)) {
        if (is_first_press(message, lparam)) {
            toggle_full_screen(window);
        }
        return 0;
    }
    switch (message) {
    case WM_MOUSEMOVE:
        return pass_mouse_move(window, wparam, lparam);
    case WM_DISPLAYCHANGE:
        follow_display_size(window);
        return 0;
    case WM_DPICHANGED: {
        const RECT& suggested = *reinterpret_cast<const RECT*>(lparam);
        follow_display_density(window, LOWORD(wparam), {suggested.left, suggested.top});
        return 0;
    }
    default:
        return game_procedure(window, message, wparam, lparam);
    }
}

int dots_per_inch() {
    const HDC display = GetDC(nullptr);
    const int dots = GetDeviceCaps(display, LOGPIXELSX);
    ReleaseDC(nullptr, display);
    return dots;
}

} // namespace

} // namespace tarvik

using namespace tarvik;

extern "C" {

ATOM WINAPI RegisterClassA(const WNDCLASSA* wanted) {
    WNDCLASSA window_class = *wanted;
    game_procedure = window_class.lpfnWndProc;
    window_class.lpfnWndProc = procedure;
    return system_call<decltype(RegisterClassA)>("user32", "RegisterClassA")(&window_class);
}

HWND WINAPI CreateWindowExA(DWORD extended_style, LPCSTR class_name, LPCSTR title, DWORD style,
                            int x, int y, int width, int height, HWND parent, HMENU menu,
                            HINSTANCE instance, LPVOID creation_data) {
    const int factor = starting_factor(dots_per_inch(), GetSystemMetrics(SM_CXSCREEN),
                                       GetSystemMetrics(SM_CYSCREEN));
    const int larger_width = width * factor / GAME_PIXELS;
    const int larger_height = height * factor / GAME_PIXELS;
    return system_call<decltype(CreateWindowExA)>("user32", "CreateWindowExA")(
        extended_style, class_name, title, style, x - (larger_width - width) / 2,
        y - (larger_height - height) / 2, larger_width, larger_height, parent, menu, instance,
        creation_data);
}
}
