// The table of keys and the rules that turn a key change into a message.
#include "platform/common/keys.h"

#include <algorithm>
#include <iterator>

namespace tarvik {

namespace {

// Where A and Z are matters only where the player's layout writes no Latin letters.
constexpr Key KEYS[] = {
    {0x04, 'A', "AC01", "KeyA"},
    {0x1D, 'Z', "AB01", "KeyZ"},
    {0x1E, '1', "AE01", "Digit1"},
    {0x1F, '2', "AE02", "Digit2"},
    {0x20, '3', "AE03", "Digit3"},
    {0x28, VK_RETURN, "RTRN", "Enter"},
    {0x29, VK_ESCAPE, "ESC", "Escape"},
    {0x2F, VK_OEM_4, "AD11", "BracketLeft"},
    {0x30, VK_OEM_6, "AD12", "BracketRight"},
    {0x3A, VK_F1, "FK01", "F1"},
    {0x3B, VK_F2, "FK02", "F2"},
    {0x3D, VK_F4, "FK04", "F4"},
    {0x44, VK_F11, "FK11", "F11"},
    {0x4F, VK_RIGHT, "RGHT", "ArrowRight"},
    {0x50, VK_LEFT, "LEFT", "ArrowLeft"},
    {0x51, VK_DOWN, "DOWN", "ArrowDown"},
    {0x52, VK_UP, "UP", "ArrowUp"},
    {0x58, VK_RETURN, "KPEN", "NumpadEnter"},
    {0x5A, VK_DOWN, "KP2", "Numpad2"},
    {0x5C, VK_LEFT, "KP4", "Numpad4"},
    {0x5E, VK_RIGHT, "KP6", "Numpad6"},
    {0x60, VK_UP, "KP8", "Numpad8"},
    {0xE2, VK_MENU, "LALT", "AltLeft"},
    {0xE6, VK_MENU, "RALT", "AltRight"},
};

bool is_between(int value, int first, int last) {
    return value >= first && value <= last;
}

bool types_a_digit(int place, bool num_lock) {
    constexpr int KEYPAD_1 = 0x59;
    constexpr int KEYPAD_0 = 0x62;
    return num_lock && is_between(place, KEYPAD_1, KEYPAD_0);
}

} // namespace

std::span<const Key> all_keys() {
    return KEYS;
}

int place_of_web_code(std::string_view code) {
    const auto* const key = std::find_if(std::begin(KEYS), std::end(KEYS),
                                         [code](const Key& k) { return code == k.web_code; });
    return key == std::end(KEYS) ? 0 : key->place;
}

int virtual_key_of(int place, std::uint32_t character, bool num_lock) {
    const auto* const key = std::find_if(std::begin(KEYS), std::end(KEYS),
                                         [place](const Key& k) { return place == k.place; });
    const int us_key =
        key == std::end(KEYS) || types_a_digit(place, num_lock) ? 0 : key->virtual_key;
    if (is_between(us_key, '0', '9')) {
        return us_key;
    }
    if (character >= 'a' && character <= 'z') {
        return static_cast<int>(character - 'a' + 'A');
    }
    if (character >= 'A' && character <= 'Z') {
        return static_cast<int>(character);
    }
    // Where the layout writes no Latin letters (Greek, Cyrillic, ...), the letter keys keep their
    // US places, as they do on Windows. A Latin layout that has another sign here has moved the
    // letter elsewhere.
    const bool is_moved = is_between(us_key, 'A', 'Z') && character != 0 && character < 0x80;
    return is_moved ? 0 : us_key;
}

bool key_message(const KeyChange& change, Message& message) {
    const int virtual_key = virtual_key_of(change.place, change.character, change.num_lock);
    if (virtual_key == 0) {
        return false;
    }
    // Ctrl with Alt is AltGr, which types characters, so that is no system keystroke.
    const bool system = virtual_key == VK_MENU || (change.alt && !change.control);
    message.wparam = static_cast<WPARAM>(virtual_key);
    message.lparam = 1 | (change.alt ? KEY_ALT_HELD : 0) | (change.was_down ? KEY_WAS_DOWN : 0);
    if (change.down) {
        message.message = system ? WM_SYSKEYDOWN : WM_KEYDOWN;
    } else {
        message.message = system ? WM_SYSKEYUP : WM_KEYUP;
        message.lparam |= KEY_RELEASED;
    }
    return true;
}

} // namespace tarvik
