// The canvas as the game's window, and the program's start.
#include "platform/web/input.h"
#include "platform/web/page.h"

#include <cstdio>

namespace {

constexpr int CANVAS_WIDTH = 640;
constexpr int CANVAS_HEIGHT = 480;

WNDPROC window_procedure = nullptr;

/// Stands for the program, its one window and whatever is drawn on.
char handle;

} // namespace

extern "C" {

HMODULE WINAPI GetModuleHandleA(LPCSTR) {
    return reinterpret_cast<HMODULE>(&handle);
}

ATOM WINAPI RegisterClassA(const WNDCLASSA* window_class) {
    window_procedure = window_class->lpfnWndProc;
    return 1;
}

BOOL WINAPI UnregisterClassA(LPCSTR, HINSTANCE) {
    return TRUE;
}

HWND WINAPI CreateWindowExA(DWORD, LPCSTR, LPCSTR, DWORD, int, int, int, int, HWND, HMENU,
                            HINSTANCE, LPVOID) {
    tarvik::start_listening();
    return reinterpret_cast<HWND>(&handle);
}

BOOL WINAPI ShowWindow(HWND, int) {
    return FALSE;
}

BOOL WINAPI DestroyWindow(HWND window) {
    tarvik::stop_listening();
    window_procedure(window, WM_DESTROY, 0, 0);
    return TRUE;
}

LRESULT WINAPI DispatchMessageA(const MSG* message) {
    return window_procedure(message->hwnd, message->message, message->wParam, message->lParam);
}

// Only key and mouse messages reach the canvas, and Windows itself does nothing with those.
LRESULT WINAPI DefWindowProcA(HWND, UINT, WPARAM, LPARAM) {
    return 0;
}

void WINAPI PostQuitMessage(int) {}

HDC WINAPI GetDC(HWND window) {
    return reinterpret_cast<HDC>(window);
}

int WINAPI ReleaseDC(HWND, HDC) {
    return 1;
}

/// To the game the canvas is the whole screen.
int WINAPI GetSystemMetrics(int index) {
    return index == SM_CXSCREEN ? CANVAS_WIDTH : CANVAS_HEIGHT;
}

LONG WINAPI ChangeDisplaySettingsA(DEVMODEA*, DWORD) {
    return 0;
}

int WINAPI ShowCursor(BOOL show) {
    page_show_pointer(show);
    return show != FALSE ? 0 : -1;
}

/// Into the browser's console: a message that the player has to answer would stop the page.
int WINAPI MessageBoxA(HWND, LPCSTR text, LPCSTR, UINT) {
    std::fprintf(stderr, "%s\n", text);
    return 1;
}
}

int main() {
    char no_command_line[] = "";
    return WinMain(GetModuleHandleA(nullptr), nullptr, no_command_line, SW_SHOW);
}
