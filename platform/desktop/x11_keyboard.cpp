// Key state and key events by way of the X keyboard extension.
#include "platform/desktop/x11_keyboard.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/keysym.h>

#include <array>
#include <cstring>

namespace tarvik {

namespace {

constexpr unsigned int KEY_CODE_COUNT = 256;

// A connection of its own, so that a key can be asked for while no window exists.
Display* connection = nullptr;

// The place of each X key code as a USB keyboard usage, 0 for those that only have a character.
std::array<std::uint8_t, KEY_CODE_COUNT> place_of_code{};

// The keys that the window has seen go down and not up: one bit for each X key code.
std::array<char, KEY_CODE_COUNT / 8> seen_down{};

template <class Bits>
bool is_set(const Bits& bits, unsigned int code) {
    return ((static_cast<unsigned int>(bits[code / 8]) >> (code % 8)) & 1U) != 0;
}

void set(std::array<char, KEY_CODE_COUNT / 8>& bits, unsigned int code, bool value) {
    const unsigned int mask = 1U << (code % 8);
    const auto byte = static_cast<unsigned char>(bits[code / 8]);
    bits[code / 8] = static_cast<char>(value ? byte | mask : byte & ~mask);
}

// Key codes are numbered differently from server to server; the names of the keys are not.
void find_places(const XkbDescRec& keyboard) {
    for (unsigned int code = keyboard.min_key_code; code <= keyboard.max_key_code; ++code) {
        const char* name = keyboard.names->keys[code].name;
        for (const Key& key : all_keys()) {
            if (std::strncmp(name, key.xkb_name, XkbKeyNameLength) == 0) {
                place_of_code[code] = key.place;
                break;
            }
        }
    }
}

// The layout can change while the game runs; the server tells every connection.
void note_layout_changes() {
    while (XEventsQueued(connection, QueuedAlready) > 0) {
        XEvent event;
        XNextEvent(connection, &event);
        if (event.type == MappingNotify) {
            XRefreshKeyboardMapping(&event.xmapping);
        }
    }
}

// The character that one of the player's layouts (`group`) puts on a key, without Shift.
std::uint32_t character_of(unsigned int code, int group) {
    KeySym symbol = NoSymbol;
    unsigned int used = 0;
    const unsigned int state = XkbBuildCoreState(0U, static_cast<unsigned int>(group));
    if (XkbLookupKeySym(connection, static_cast<KeyCode>(code), state, &used, &symbol) == False) {
        return 0;
    }
    // In Latin-1 a symbol equals its character. The others only have to differ from those.
    return static_cast<std::uint32_t>(symbol);
}

} // namespace

bool open_x11_keyboard() {
    if (connection == nullptr) {
        connection = XkbOpenDisplay(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
        if (connection == nullptr) {
            return false;
        }
    }
    XkbDescPtr keyboard = XkbGetMap(connection, 0, XkbUseCoreKbd);
    if (keyboard == nullptr) {
        return false;
    }
    const bool named = XkbGetNames(connection, XkbKeyNamesMask, keyboard) == Success;
    if (named) {
        find_places(*keyboard);
    }
    XkbFreeKeyboard(keyboard, 0, True);
    return named;
}

bool x11_key_is_held(int virtual_key) {
    char held[KEY_CODE_COUNT / 8] = {};
    XQueryKeymap(connection, held);
    note_layout_changes();
    XkbStateRec state{};
    bool state_known = false;
    for (unsigned int code = 0; code < KEY_CODE_COUNT; ++code) {
        if (!is_set(held, code)) {
            continue;
        }
        if (!state_known) {
            XkbGetState(connection, XkbUseCoreKbd, &state);
            state_known = true;
        }
        if (virtual_key_of(place_of_code[code], character_of(code, state.group),
                           (state.mods & Mod2Mask) != 0) == virtual_key) {
            return true;
        }
    }
    return false;
}

bool read_x11_key_event(const XEvent& event, KeyChange& change) {
    if (event.type == KeymapNotify) {
        // Comes after every gain of focus: keys released elsewhere are released here too.
        std::memcpy(seen_down.data(), event.xkeymap.key_vector, seen_down.size());
        return false;
    }
    if (event.type != KeyPress && event.type != KeyRelease) {
        return false;
    }
    note_layout_changes();
    const XKeyEvent& key = event.xkey;
    const unsigned int code = key.keycode % KEY_CODE_COUNT;
    const bool down = event.type == KeyPress;
    change.place = place_of_code[code];
    change.character = character_of(code, XkbGroupForCoreState(key.state));
    change.down = down;
    change.was_down = !down || is_set(seen_down, code);
    change.alt = (key.state & Mod1Mask) != 0;
    change.control = (key.state & ControlMask) != 0;
    change.num_lock = (key.state & Mod2Mask) != 0;
    set(seen_down, code, down);
    return true;
}

} // namespace tarvik
