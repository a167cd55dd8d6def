// The window on the whole display, with a window manager's help and without.
#include "platform/desktop/full_screen.h"

#include "platform/common/keys.h"
#include "platform/desktop/display.h"
#include "platform/desktop/game_window.h"
#include "platform/desktop/x11_desktop.h"

#include <SDL.h>

#include <optional>

namespace tarvik {

namespace {

bool is_asked_for = false;

// While the window takes the display without a window manager's help.
std::optional<SDL_Rect> place_before;

void move_to(SDL_Window* window, const SDL_Rect& place) {
    SDL_SetWindowSize(window, place.w, place.h);
    SDL_SetWindowPosition(window, place.x, place.y);
}

void cover_display(SDL_Window* window) {
    SDL_Rect place{};
    SDL_GetWindowPosition(window, &place.x, &place.y);
    SDL_GetWindowSize(window, &place.w, &place.h);
    SDL_Rect display{};
    SDL_GetDisplayBounds(SDL_GetWindowDisplayIndex(window), &display);
    place_before = place;
    move_to(window, display);
}

void switch_full_screen(SDL_Window* window) {
    const bool is_granted = (SDL_GetWindowFlags(window) & SDL_WINDOW_FULLSCREEN) != 0;
    if (is_granted) {
        SDL_SetWindowFullscreen(window, 0);
    } else if (place_before) {
        move_to(window, *place_before);
        place_before.reset();
    } else if (!is_x11() || x11_window_manager_grants_full_screen()) {
        SDL_SetWindowFullscreen(window, SDL_WINDOW_FULLSCREEN_DESKTOP);
    } else {
        cover_display(window);
    }
}

} // namespace

bool take_full_screen_key(const Message& message) {
    const bool is_f11 = message.wparam == VK_F11;
    // Enter is taken with and without Alt: its release may come after Alt's, and the game makes
    // nothing of it.
    if (!is_f11 && message.wparam != VK_RETURN) {
        return false;
    }
    const bool is_press = (message.lparam & KEY_WAS_DOWN) == 0;
    is_asked_for = is_asked_for != (is_press && (is_f11 || message.message == WM_SYSKEYDOWN));
    return true;
}

void switch_full_screen_if_asked() {
    if (is_asked_for && game_window() != nullptr) {
        switch_full_screen(sdl_window(game_window()));
    }
    is_asked_for = false;
}

} // namespace tarvik
