// The two interfaces of virtual-keyboard-unstable-v1, by which a program acts as a keyboard.
#include "tests/wayland/virtual_keyboard.h"

#include <cstring>
#include <utility>

#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client.h>

namespace tarvik {

namespace {

const wl_interface* no_types[4] = {};

enum KeyboardRequest : std::uint32_t { KEYMAP, KEY, MODIFIERS, DESTROY };
const wl_message KEYBOARD_REQUESTS[] = {{"keymap", "uhu", no_types},
                                        {"key", "uuu", no_types},
                                        {"modifiers", "uuuu", no_types},
                                        {"destroy", "", no_types}};
const wl_interface KEYBOARD = {"zwp_virtual_keyboard_v1", 1, 4, KEYBOARD_REQUESTS, 0, nullptr};

constexpr std::uint32_t CREATE_KEYBOARD = 0;
const wl_interface* create_types[] = {&wl_seat_interface, &KEYBOARD};
const wl_message MANAGER_REQUESTS[] = {{"create_virtual_keyboard", "on", create_types}};
const wl_interface MANAGER = {
    "zwp_virtual_keyboard_manager_v1", 1, 1, MANAGER_REQUESTS, 0, nullptr};

constexpr char KEYMAP_TEXT[] = R"keymap(xkb_keymap {
    xkb_keycodes { include "evdev+aliases(qwerty)" };
    xkb_types { include "complete" };
    xkb_compat { include "complete" };
    xkb_symbols { include "pc+us+inet(evdev)" };
};)keymap";

struct Globals {
    wl_proxy* seat = nullptr;
    wl_proxy* manager = nullptr;
};

void note_global(void* data, wl_registry* registry, std::uint32_t name, const char* interface,
                 std::uint32_t) {
    auto* const globals = static_cast<Globals*>(data);
    for (const auto& [wanted, place] :
         {std::pair{&wl_seat_interface, &globals->seat}, std::pair{&MANAGER, &globals->manager}}) {
        if (std::strcmp(interface, wanted->name) == 0) {
            *place = static_cast<wl_proxy*>(wl_registry_bind(registry, name, wanted, 1));
        }
    }
}

constexpr wl_registry_listener LISTENER = {note_global, [](void*, wl_registry*, std::uint32_t) {}};

} // namespace

VirtualKeyboard::VirtualKeyboard(const std::string& socket)
    : display_(wl_display_connect(socket.c_str())) {
    Globals globals;
    wl_registry_add_listener(wl_display_get_registry(display_), &LISTENER, &globals);
    wl_display_roundtrip(display_);
    keyboard_ = wl_proxy_marshal_flags(globals.manager, CREATE_KEYBOARD, &KEYBOARD, 1, 0,
                                       globals.seat, nullptr);
    send_keymap();
}

VirtualKeyboard::~VirtualKeyboard() {
    wl_display_disconnect(display_);
}

void VirtualKeyboard::send_keymap() {
    const int file = memfd_create("keymap", 0);
    if (write(file, KEYMAP_TEXT, sizeof KEYMAP_TEXT) > 0) {
        wl_proxy_marshal_flags(keyboard_, KEYMAP, nullptr, 1, 0, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1,
                               file, static_cast<std::uint32_t>(sizeof KEYMAP_TEXT));
    }
    wl_display_roundtrip(display_);
    close(file);
}

void VirtualKeyboard::send_key(std::uint32_t key, std::uint32_t state) {
    wl_proxy_marshal_flags(keyboard_, KEY, nullptr, 1, 0, ++time_, key, state);
    wl_display_roundtrip(display_);
}

void VirtualKeyboard::press(std::uint32_t key) {
    send_key(key, WL_KEYBOARD_KEY_STATE_PRESSED);
}

void VirtualKeyboard::release(std::uint32_t key) {
    send_key(key, WL_KEYBOARD_KEY_STATE_RELEASED);
}

void VirtualKeyboard::tap(std::uint32_t key) {
    press(key);
    release(key);
}

} // namespace tarvik
