// The table of keys and the rules that turn a key change into a message.
#include "platform/common/keys.h"

#include <algorithm>
#include <iterator>

namespace tarvik {

namespace {

constexpr Key KEYS[] = {
    {0x04, 0x41, 0x00, "AC01", "KeyA"},
    {0x05, 0x42, 0x00, "AB05", "KeyB"},
    {0x06, 0x43, 0x00, "AB03", "KeyC"},
    {0x07, 0x44, 0x00, "AC03", "KeyD"},
    {0x08, 0x45, 0x00, "AD03", "KeyE"},
    {0x09, 0x46, 0x00, "AC04", "KeyF"},
    {0x0A, 0x47, 0x00, "AC05", "KeyG"},
    {0x0B, 0x48, 0x00, "AC06", "KeyH"},
    {0x0C, 0x49, 0x00, "AD08", "KeyI"},
    {0x0D, 0x4A, 0x00, "AC07", "KeyJ"},
    {0x0E, 0x4B, 0x00, "AC08", "KeyK"},
    {0x0F, 0x4C, 0x00, "AC09", "KeyL"},
    {0x10, 0x4D, 0x00, "AB07", "KeyM"},
    {0x11, 0x4E, 0x00, "AB06", "KeyN"},
    {0x12, 0x4F, 0x00, "AD09", "KeyO"},
    {0x13, 0x50, 0x00, "AD10", "KeyP"},
    {0x14, 0x51, 0x00, "AD01", "KeyQ"},
    {0x15, 0x52, 0x00, "AD04", "KeyR"},
    {0x16, 0x53, 0x00, "AC02", "KeyS"},
    {0x17, 0x54, 0x00, "AD05", "KeyT"},
    {0x18, 0x55, 0x00, "AD07", "KeyU"},
    {0x19, 0x56, 0x00, "AB04", "KeyV"},
    {0x1A, 0x57, 0x00, "AD02", "KeyW"},
    {0x1B, 0x58, 0x00, "AB02", "KeyX"},
    {0x1C, 0x59, 0x00, "AD06", "KeyY"},
    {0x1D, 0x5A, 0x00, "AB01", "KeyZ"},
    {0x1E, 0x31, 0x00, "AE01", "Digit1"},
    {0x1F, 0x32, 0x00, "AE02", "Digit2"},
    {0x20, 0x33, 0x00, "AE03", "Digit3"},
    {0x21, 0x34, 0x00, "AE04", "Digit4"},
    {0x22, 0x35, 0x00, "AE05", "Digit5"},
    {0x23, 0x36, 0x00, "AE06", "Digit6"},
    {0x24, 0x37, 0x00, "AE07", "Digit7"},
    {0x25, 0x38, 0x00, "AE08", "Digit8"},
    {0x26, 0x39, 0x00, "AE09", "Digit9"},
    {0x27, 0x30, 0x00, "AE10", "Digit0"},
    {0x28, 0x0D, 0x00, "RTRN", "Enter"},
    {0x29, 0x1B, 0x00, "ESC", "Escape"},
    {0x2A, 0x08, 0x00, "BKSP", "Backspace"},
    {0x2B, 0x09, 0x00, "TAB", "Tab"},
    {0x2C, 0x20, 0x00, "SPCE", "Space"},
    {0x2D, 0xBD, 0x00, "AE11", "Minus"},
    {0x2E, 0xBB, 0x00, "AE12", "Equal"},
    {0x2F, 0xDB, 0x00, "AD11", "BracketLeft"},
    {0x30, 0xDD, 0x00, "AD12", "BracketRight"},
    {0x31, 0xDC, 0x00, "BKSL", "Backslash"},
    {0x32, 0xDC, 0x00, "BKSL", "Backslash"},
    {0x33, 0xBA, 0x00, "AC10", "Semicolon"},
    {0x34, 0xDE, 0x00, "AC11", "Quote"},
    {0x35, 0xC0, 0x00, "TLDE", "Backquote"},
    {0x36, 0xBC, 0x00, "AB08", "Comma"},
    {0x37, 0xBE, 0x00, "AB09", "Period"},
    {0x38, 0xBF, 0x00, "AB10", "Slash"},
    {0x39, 0x14, 0x00, "CAPS", "CapsLock"},
    {0x3A, 0x70, 0x00, "FK01", "F1"},
    {0x3B, 0x71, 0x00, "FK02", "F2"},
    {0x3C, 0x72, 0x00, "FK03", "F3"},
    {0x3D, 0x73, 0x00, "FK04", "F4"},
    {0x3E, 0x74, 0x00, "FK05", "F5"},
    {0x3F, 0x75, 0x00, "FK06", "F6"},
    {0x40, 0x76, 0x00, "FK07", "F7"},
    {0x41, 0x77, 0x00, "FK08", "F8"},
    {0x42, 0x78, 0x00, "FK09", "F9"},
    {0x43, 0x79, 0x00, "FK10", "F10"},
    {0x44, 0x7A, 0x00, "FK11", "F11"},
    {0x45, 0x7B, 0x00, "FK12", "F12"},
    {0x46, 0x2C, 0x00, "PRSC", "PrintScreen"},
    {0x47, 0x91, 0x00, "SCLK", "ScrollLock"},
    {0x48, 0x13, 0x00, "PAUS", "Pause"},
    {0x49, 0x2D, 0x00, "INS", "Insert"},
    {0x4A, 0x24, 0x00, "HOME", "Home"},
    {0x4B, 0x21, 0x00, "PGUP", "PageUp"},
    {0x4C, 0x2E, 0x00, "DELE", "Delete"},
    {0x4D, 0x23, 0x00, "END", "End"},
    {0x4E, 0x22, 0x00, "PGDN", "PageDown"},
    {0x4F, 0x27, 0x00, "RGHT", "ArrowRight"},
    {0x50, 0x25, 0x00, "LEFT", "ArrowLeft"},
    {0x51, 0x28, 0x00, "DOWN", "ArrowDown"},
    {0x52, 0x26, 0x00, "UP", "ArrowUp"},
    {0x53, 0x90, 0x00, "NMLK", "NumLock"},
    {0x54, 0x6F, 0x00, "KPDV", "NumpadDivide"},
    {0x55, 0x6A, 0x00, "KPMU", "NumpadMultiply"},
    {0x56, 0x6D, 0x00, "KPSU", "NumpadSubtract"},
    {0x57, 0x6B, 0x00, "KPAD", "NumpadAdd"},
    {0x58, 0x0D, 0x00, "KPEN", "NumpadEnter"},
    {0x59, 0x61, 0x23, "KP1", "Numpad1"},
    {0x5A, 0x62, 0x28, "KP2", "Numpad2"},
    {0x5B, 0x63, 0x22, "KP3", "Numpad3"},
    {0x5C, 0x64, 0x25, "KP4", "Numpad4"},
    {0x5D, 0x65, 0x0C, "KP5", "Numpad5"},
    {0x5E, 0x66, 0x27, "KP6", "Numpad6"},
    {0x5F, 0x67, 0x24, "KP7", "Numpad7"},
    {0x60, 0x68, 0x26, "KP8", "Numpad8"},
    {0x61, 0x69, 0x21, "KP9", "Numpad9"},
    {0x62, 0x60, 0x2D, "KP0", "Numpad0"},
    {0x63, 0x6E, 0x2E, "KPDL", "NumpadDecimal"},
    {0x64, 0xE2, 0x00, "LSGT", "IntlBackslash"},
    {0x65, 0x5D, 0x00, "COMP", "ContextMenu"},
    {0x68, 0x7C, 0x00, "FK13", "F13"},
    {0x69, 0x7D, 0x00, "FK14", "F14"},
    {0x6A, 0x7E, 0x00, "FK15", "F15"},
    {0x6B, 0x7F, 0x00, "FK16", "F16"},
    {0x6C, 0x80, 0x00, "FK17", "F17"},
    {0x6D, 0x81, 0x00, "FK18", "F18"},
    {0x6E, 0x82, 0x00, "FK19", "F19"},
    {0x6F, 0x83, 0x00, "FK20", "F20"},
    {0x70, 0x84, 0x00, "FK21", "F21"},
    {0x71, 0x85, 0x00, "FK22", "F22"},
    {0x72, 0x86, 0x00, "FK23", "F23"},
    {0x73, 0x87, 0x00, "FK24", "F24"},
    {0xE0, 0x11, 0x00, "LCTL", "ControlLeft"},
    {0xE1, 0x10, 0x00, "LFSH", "ShiftLeft"},
    {0xE2, 0x12, 0x00, "LALT", "AltLeft"},
    {0xE3, 0x5B, 0x00, "LWIN", "MetaLeft"},
    {0xE4, 0x11, 0x00, "RCTL", "ControlRight"},
    {0xE5, 0x10, 0x00, "RTSH", "ShiftRight"},
    {0xE6, 0x12, 0x00, "RALT", "AltRight"},
    {0xE7, 0x5C, 0x00, "RWIN", "MetaRight"},
};

bool is_letter(int virtual_key) {
    return virtual_key >= 'A' && virtual_key <= 'Z';
}

bool is_digit(int virtual_key) {
    return virtual_key >= '0' && virtual_key <= '9';
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
    if (key == std::end(KEYS)) {
        return 0;
    }
    if (key->keypad_motion != 0) {
        return num_lock ? key->virtual_key : key->keypad_motion;
    }
    if (is_digit(key->virtual_key)) {
        return key->virtual_key;
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
    if (is_letter(key->virtual_key) && character != 0 && character < 0x80) {
        return 0;
    }
    return key->virtual_key;
}

bool key_message(const KeyChange& change, Message& message) {
    const int virtual_key = virtual_key_of(change.place, change.character, change.num_lock);
    if (virtual_key == 0) {
        return false;
    }
    // Ctrl with Alt is AltGr, which types characters, so that is no system keystroke.
    const bool system =
        virtual_key == VK_F10 || virtual_key == VK_MENU || (change.alt && !change.control);
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
