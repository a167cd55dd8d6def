// Which virtual-key code a key has, and the message that its press or release makes.
//
// A key is known by its place on the keyboard, given as the number the USB keyboard page has for
// it (usage 0x04 is the A key of a US keyboard), and by the character that the player's layout
// puts on it.
#pragma once

#include "platform/common/message_queue.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace tarvik {

/// Codes that only the platform layers know by name.
inline constexpr int VK_RETURN = 0x0D;
inline constexpr int VK_MENU = 0x12; // Alt
inline constexpr int VK_F4 = 0x73;
inline constexpr int VK_F11 = 0x7A;

/// A key that means something to the game or to its window, wherever the layout has its letters.
struct Key {
    std::uint8_t place;       ///< USB keyboard usage
    std::uint8_t virtual_key; ///< code of the place; for letters that of a US layout
    const char* xkb_name;     ///< name of the place in the X keyboard extension, up to 4 characters
    const char* web_code;     ///< name of the place in a browser, KeyboardEvent's `code`
};

std::span<const Key> all_keys();

/// The place that a browser gives a name to, 0 for a key that only types a character or nothing.
int place_of_web_code(std::string_view code);

/// A press or release, with what the layout and the held keys make of it.
struct KeyChange {
    int place = 0;               ///< USB keyboard usage; 0 will do for a key not in the table
    std::uint32_t character = 0; ///< Unicode character without modifiers; 0 when there is none
    bool down = false;
    bool was_down = false; ///< a press by auto-repeat, or a release
    bool alt = false;      ///< Alt is held (AltGr is not Alt)
    bool control = false;
    bool num_lock = false;
};

/// The virtual-key code of the key at a place, 0 when it has none that matters. Letters go by the
/// character; digits, brackets and all else by the place.
int virtual_key_of(int place, std::uint32_t character, bool num_lock);

/// Fills in the message of a key change (its time excepted). False for a key without a code.
bool key_message(const KeyChange& change, Message& message);

} // namespace tarvik
