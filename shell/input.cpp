// The input state and the direct look at the keyboard.
#include "shell/input.h"

#include "platform/win32.h"

namespace tarvik {

std::int32_t key_down[KEY_TABLE_SIZE];
std::int32_t mouse_x = 0;
std::int32_t mouse_y = 0;
std::int32_t quit_requested = 0;

std::int32_t is_key_pressed(int virtual_key) {
    // Only the top bit says "down now"; the lowest one, "pressed since the last call", is noise.
    const auto state = static_cast<std::uint16_t>(GetAsyncKeyState(virtual_key));
    return (state & 0x8000U) != 0 ? 1 : 0;
}

} // namespace tarvik
