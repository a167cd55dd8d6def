// What the game asks of the screen apart from its window: size, mode, pointer, message box.
#include "platform/win32.h"

#include <SDL.h>

#include <cstdio>

namespace {

// Windows counts how often the pointer was hidden and shown; it is visible from 0 on.
int show_count = 0;

} // namespace

extern "C" {

int WINAPI GetSystemMetrics(int index) {
    SDL_Rect primary{};
    SDL_GetDisplayBounds(0, &primary);
    switch (index) {
    case SM_CXSCREEN:
        return primary.w;
    case SM_CYSCREEN:
        return primary.h;
    default:
        return 0;
    }
}

// The game never leaves the desktop's display mode, so there is none to return from.
LONG WINAPI ChangeDisplaySettingsA(DEVMODEA*, DWORD) {
    constexpr LONG SUCCESSFUL = 0;
    return SUCCESSFUL;
}

int WINAPI ShowCursor(BOOL show) {
    show_count += show != FALSE ? 1 : -1;
    SDL_ShowCursor(show_count >= 0 ? SDL_ENABLE : SDL_DISABLE);
    return show_count;
}

int WINAPI MessageBoxA(HWND, LPCSTR text, LPCSTR caption, UINT) {
    if (SDL_ShowSimpleMessageBox(0, caption, text, nullptr) != 0) {
        std::fprintf(stderr, "%s: %s\n", caption, text);
    }
    constexpr int OK_BUTTON = 1;
    return OK_BUTTON;
}

} // extern "C"
