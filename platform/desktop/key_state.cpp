// Whether the player holds a key, asked of the system itself.
#include "platform/desktop/key_state.h"

#include "platform/common/keys.h"
#include "platform/desktop/display.h"
#include "platform/desktop/game_controllers.h"
#include "platform/desktop/x11_keyboard.h"
#include "platform/win32.h"

#include <SDL.h>

namespace {

// Wayland reports only those keys that go down while the window has the focus.
bool sdl_key_is_held(int virtual_key) {
    int places = 0;
    const Uint8* held = SDL_GetKeyboardState(&places);
    const bool num_lock = (SDL_GetModState() & KMOD_NUM) != 0;
    for (int place = 0; place < places; ++place) {
        if (held[place] == 0) {
            continue;
        }
        const SDL_Keycode code = SDL_GetKeyFromScancode(static_cast<SDL_Scancode>(place));
        const auto character = static_cast<std::uint32_t>(code);
        if (tarvik::virtual_key_of(place, (character & SDLK_SCANCODE_MASK) != 0 ? 0 : character,
                                   num_lock) == virtual_key) {
            return true;
        }
    }
    return false;
}

} // namespace

namespace tarvik {

bool keyboard_holds(int virtual_key) {
    return has_x11_keyboard() ? x11_key_is_held(virtual_key) : sdl_key_is_held(virtual_key);
}

} // namespace tarvik

extern "C" SHORT WINAPI GetAsyncKeyState(int virtual_key) {
    const bool held = tarvik::keyboard_holds(virtual_key) || tarvik::controller_holds(virtual_key);
    return static_cast<SHORT>(held ? -0x8000 : 0);
}
