// Size and place of the window while the game runs.
#include "platform/windows/game_window.h"

namespace tarvik {

namespace {

bool is_full_screen = false;
RECT place_before{}; // while the window takes the whole display

RECT display_of(HWND window) {
    MONITORINFO display{};
    display.cbSize = sizeof display;
    GetMonitorInfoA(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &display);
    return display.rcMonitor;
}

void move_to(HWND window, const RECT& place) {
    SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace

Viewport current_viewport(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return viewport_in(client.right, client.bottom);
}

void toggle_full_screen(HWND window) {
    // Before the move: reaching a display of another density calls follow_display_density from
    // inside it.
    is_full_screen = !is_full_screen;
    if (is_full_screen) {
        GetWindowRect(window, &place_before);
        move_to(window, display_of(window));
    } else {
        move_to(window, place_before);
    }
}

void follow_display_size(HWND window) {
    if (is_full_screen) {
        move_to(window, display_of(window));
    }
}

void follow_display_density(HWND window, int dots_per_inch, POINT place) {
    const RECT display = display_of(window);
    if (is_full_screen) {
        move_to(window, display);
        return;
    }
    const int factor =
        starting_factor(dots_per_inch, display.right - display.left, display.bottom - display.top);
    move_to(window, {place.x, place.y, place.x + LOGICAL_WIDTH * factor,
                     place.y + LOGICAL_HEIGHT * factor});
}

} // namespace tarvik
