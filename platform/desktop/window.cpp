// The window and its class.
#include "platform/common/viewport.h"
#include "platform/desktop/display.h"
#include "platform/desktop/game_window.h"
#include "platform/desktop/presentation.h"
#include "platform/desktop/x11_desktop.h"

#include <SDL.h>

namespace tarvik {

namespace {

HWND window_handle = nullptr;
WNDPROC window_procedure = nullptr; // the game's one class has it

// How many times larger than asked for the window comes up, where pixels are small. A Wayland
// compositor makes it larger itself.
int enlargement(const SDL_Rect& display) {
    constexpr int USUAL_DOTS_PER_INCH = 96;
    const int whole = is_x11() ? x11_dots_per_inch() / USUAL_DOTS_PER_INCH : 1;
    return starting_factor(whole * USUAL_DOTS_PER_INCH, display.w, display.h) / GAME_PIXELS;
}

} // namespace

HWND game_window() {
    return window_handle;
}

LRESULT call_window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const bool exists = window != nullptr && window == window_handle;
    return exists ? window_procedure(window, message, wparam, lparam) : 0;
}

} // namespace tarvik

using namespace tarvik;

extern "C" {

HMODULE WINAPI GetModuleHandleA(LPCSTR) {
    static char module;
    return reinterpret_cast<HMODULE>(&module);
}

ATOM WINAPI RegisterClassA(const WNDCLASSA* window_class) {
    window_procedure = window_class->lpfnWndProc;
    return 1;
}

BOOL WINAPI UnregisterClassA(LPCSTR, HINSTANCE) {
    return TRUE;
}

// Position and size are those of the frame: a popup window has no border. As on Windows,
// positions count from the corner of the primary display. A window that is made larger keeps its
// middle.
HWND WINAPI CreateWindowExA(DWORD, LPCSTR, LPCSTR title, DWORD, int x, int y, int width, int height,
                            HWND, HMENU, HINSTANCE, LPVOID) {
    SDL_Rect primary{};
    SDL_GetDisplayBounds(0, &primary);
    const int factor = enlargement(primary);
    const int left = primary.x + x - width * (factor - 1) / 2;
    const int top = primary.y + y - height * (factor - 1) / 2;
    constexpr Uint32 FLAGS = SDL_WINDOW_BORDERLESS | SDL_WINDOW_HIDDEN | SDL_WINDOW_ALLOW_HIGHDPI;
    SDL_Window* window = SDL_CreateWindow(title, left, top, width * factor, height * factor, FLAGS);
    window_handle = reinterpret_cast<HWND>(window);
    return window_handle;
}

BOOL WINAPI ShowWindow(HWND window, int show_command) {
    if (window == nullptr || window != window_handle) {
        return FALSE;
    }
    SDL_Window* shown = sdl_window(window);
    const bool was_visible = (SDL_GetWindowFlags(shown) & SDL_WINDOW_SHOWN) != 0;
    if (show_command == SW_SHOW) {
        SDL_ShowWindow(shown);
        SDL_RaiseWindow(shown);
        show_frame_again(); // until then an X11 window shows what was on the screen before
    } else {
        SDL_HideWindow(shown);
    }
    return was_visible ? TRUE : FALSE;
}

BOOL WINAPI DestroyWindow(HWND window) {
    if (window == nullptr || window != window_handle) {
        return FALSE;
    }
    call_window_procedure(window, WM_DESTROY, 0, 0);
    window_handle = nullptr;
    SDL_DestroyWindow(sdl_window(window));
    return TRUE;
}

} // extern "C"
