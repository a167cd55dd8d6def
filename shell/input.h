// Keyboard, mouse and quit state that the window procedure keeps up to date and the race polls.
#pragma once

#include <cstdint>

namespace tarvik {

inline constexpr int KEY_TABLE_SIZE = 256;

/// 1 while the last message for a key was a key-down, else 0; indexed by Windows virtual-key code.
/// The race writes 0 to consume a press. Never cleared as a whole, not even when the focus goes.
extern std::int32_t key_down[KEY_TABLE_SIZE];

/// Client-area position of the last mouse move, device pixels: inside the window 0 to 639 and
/// 0 to 479. Outside it no moves arrive and the last position stays.
extern std::int32_t mouse_x;
extern std::int32_t mouse_y;

/// 0 while the game runs, 1 once it is to end; nothing sets it back. Set by the window procedure
/// (close, destroy) and by the race frame (Escape).
extern std::int32_t quit_requested;

/// Whether the race is to act on a key, as far as the messages handled so far tell.
inline bool is_down(int virtual_key) {
    return key_down[virtual_key] == 1;
}

/// 1 if the key is physically down at the moment of the call, whichever window has the focus and
/// whatever `key_down` says, else 0.
std::int32_t is_key_pressed(int virtual_key);

} // namespace tarvik
