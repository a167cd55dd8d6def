// Keyboard, mouse and controllers as messages, and the state of the keys.
#include "platform/web/input.h"

#include "platform/common/keys.h"
#include "platform/common/message_queue.h"
#include "platform/web/controllers.h"
#include "platform/web/page.h"

#include <emscripten/html5.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>

namespace tarvik {

namespace {

MessageQueue queue;

/// The keys that are down, by virtual-key code, whichever part of the page has the focus.
std::array<bool, 256> held{};

DWORD now() {
    return static_cast<DWORD>(emscripten_get_now());
}

/// Keys whose meaning for the browser (scrolling, help, search) the player of this game does not
/// want; the browser keeps all others, and these together with Ctrl, Alt or Meta.
bool is_key_of_game(WPARAM virtual_key) {
    constexpr WPARAM KEYS[] = {VK_LEFT,  VK_UP,    VK_RIGHT, VK_DOWN, VK_ESCAPE, VK_F1, VK_F2,
                               VK_OEM_4, VK_OEM_6, 'A',      'Z',     '1',       '2',   '3'};
    return std::find(std::begin(KEYS), std::end(KEYS), virtual_key) != std::end(KEYS);
}

/// The character of an event's `key`, 0 where that is a name such as "ArrowUp". One beyond ASCII
/// only has to be different from the game's.
std::uint32_t character_of(const char* key) {
    const auto first = static_cast<std::uint8_t>(key[0]);
    return std::strlen(key) == 1 ? first : first >= 0x80 ? 0xFFFFU : 0U;
}

EM_BOOL on_key(int type, const EmscriptenKeyboardEvent* event, void*) {
    KeyChange change{};
    change.place = place_of_web_code(event->code);
    change.character = character_of(event->key);
    change.down = type == EMSCRIPTEN_EVENT_KEYDOWN;
    change.was_down = !change.down || event->repeat;
    change.alt = event->altKey;
    change.control = event->ctrlKey;
    change.num_lock = change.character != 0; // on the keypad: it types digits

    Message message{};
    message.time = now();
    if (!key_message(change, message)) {
        return EM_FALSE;
    }
    held[message.wparam] = change.down;
    if (page_has_focus() == 0) {
        return EM_FALSE;
    }
    if (controller_keys.passes(message)) {
        queue.append_input(message);
    }
    return is_key_of_game(message.wparam) && !event->ctrlKey && !event->altKey && !event->metaKey;
}

/// The browser does not say what happens to keys while another window has the keyboard: they count
/// as released. The game's own table stays as it is, for no message says that they were.
EM_BOOL on_blur(int, const EmscriptenFocusEvent*, void*) {
    held.fill(false);
    return EM_FALSE;
}

/// The canvas may be enlarged; the game counts the pixels of its own frame.
EM_BOOL on_mouse_move(int, const EmscriptenMouseEvent* event, void*) {
    double width = 0;
    double height = 0;
    emscripten_get_element_css_size(CANVAS, &width, &height);
    const auto x = static_cast<int>(event->targetX * GetSystemMetrics(SM_CXSCREEN) / width);
    const auto y = static_cast<int>(event->targetY * GetSystemMetrics(SM_CYSCREEN) / height);
    queue.append_input({WM_MOUSEMOVE, 0, static_cast<LPARAM>(y << 16 | x), now()});
    return EM_FALSE;
}

bool keyboard_holds(int virtual_key) {
    return held.at(static_cast<std::size_t>(virtual_key));
}

} // namespace

void start_listening() {
    emscripten_set_keydown_callback(EMSCRIPTEN_EVENT_TARGET_WINDOW, nullptr, EM_FALSE, on_key);
    emscripten_set_keyup_callback(EMSCRIPTEN_EVENT_TARGET_WINDOW, nullptr, EM_FALSE, on_key);
    emscripten_set_blur_callback(EMSCRIPTEN_EVENT_TARGET_WINDOW, nullptr, EM_FALSE, on_blur);
    emscripten_set_mousemove_callback(CANVAS, nullptr, EM_FALSE, on_mouse_move);
}

void stop_listening() {
    emscripten_html5_remove_all_event_listeners();
}

} // namespace tarvik

using namespace tarvik;

extern "C" {

BOOL WINAPI PeekMessageA(LPMSG message, HWND window, UINT, UINT, UINT) {
    look_at_controllers();
    controller_keys.append_messages(queue, now(), keyboard_holds);
    Message next{};
    if (!queue.take(next)) {
        return FALSE;
    }
    *message = {window, next.message, next.wparam, next.lparam, next.time, {}};
    return TRUE;
}

SHORT WINAPI GetAsyncKeyState(int virtual_key) {
    const bool down = keyboard_holds(virtual_key) || controller_keys.holds(virtual_key);
    return static_cast<SHORT>(down ? -0x8000 : 0);
}
}
