// Keyboard, mouse and quit state that the window procedure keeps up to date and the race polls.
#pragma once

#include <cstdint>

namespace tarvik {

inline constexpr int KEY_TABLE_SIZE = 256;

/// By Windows virtual-key code: 1 from a key-down message to the next key-up one, else 0. The race
/// writes 0 to consume a press. Never cleared as a whole, not even when the focus is lost.
extern std::int32_t key_down[KEY_TABLE_SIZE];

/// The window's device pixel where the mouse was last seen; outside the window it is not followed.
extern std::int32_t mouse_x;
extern std::int32_t mouse_y;

/// 0 while the game runs, 1 once it is to end; nothing sets it back. Closing the window sets it,
/// and so does Escape.
extern std::int32_t quit_requested;

/// Whether the race should act on a key, going by the messages handled so far.
inline bool is_down(int virtual_key) {
    return key_down[virtual_key] == 1;
}

/// 1 if the player holds the key right now, whichever window has the focus and whatever `key_down`
/// says, else 0.
std::int32_t is_key_pressed(int virtual_key);

} // namespace tarvik
