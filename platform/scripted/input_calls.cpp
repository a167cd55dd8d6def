// Messages as they are posted, keys as they are held, and waits that take no time.
#include "platform/driver.h"
#include "platform/scripted/recording.h"
#include "platform/scripted/scripted.h"

#include <array>
#include <cstddef>

namespace tarvik {

namespace {

void (*frame_hook)() = nullptr;
struct KeyState {
    bool held = false;
    bool pressed = false; // since it was last asked for
};
std::array<KeyState, 256> keys{};

// The queue keeps its memory, so that a frame allocates none.
std::vector<MSG> queue;
std::size_t next_message = 0;

} // namespace

void set_frame_hook(void (*hook)()) {
    frame_hook = hook;
}

void post_message(UINT message, WPARAM wparam, LPARAM lparam) {
    MSG posted{};
    posted.hwnd = scripted::WINDOW;
    posted.message = message;
    posted.wParam = wparam;
    posted.lParam = lparam;
    queue.push_back(posted);
}

namespace scripted {

std::uint64_t slept_ms = 0;

void hold_key(int virtual_key, bool down) {
    KeyState& key = keys.at(static_cast<std::size_t>(virtual_key));
    key.pressed |= down && !key.held;
    key.held = down;
}

} // namespace scripted

} // namespace tarvik

using namespace tarvik;
using namespace tarvik::scripted;

extern "C" {

BOOL WINAPI PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
    record("PeekMessageA %s %u %u %u", name_of(window), first, last, remove);
    if (frame_hook != nullptr) {
        frame_hook();
    }
    if (next_message == queue.size()) {
        return FALSE;
    }
    *message = queue[next_message];
    ++next_message;
    if (next_message == queue.size()) {
        queue.clear();
        next_message = 0;
    }
    return TRUE;
}

LRESULT WINAPI DispatchMessageA(const MSG* message) {
    record("DispatchMessageA 0x%X", message->message);
    if (window_procedure == nullptr) {
        return 0;
    }
    return window_procedure(message->hwnd, message->message, message->wParam, message->lParam);
}

LRESULT WINAPI DefWindowProcA(HWND window, UINT message, WPARAM wparam, LPARAM) {
    record("DefWindowProcA %s 0x%X 0x%X", name_of(window), message, static_cast<UINT>(wparam));
    return 0;
}

void WINAPI PostQuitMessage(int exit_code) {
    record("PostQuitMessage %d", exit_code);
}

SHORT WINAPI GetAsyncKeyState(int virtual_key) {
    record("GetAsyncKeyState 0x%X", static_cast<UINT>(virtual_key));
    KeyState& key = keys.at(static_cast<std::size_t>(virtual_key));
    const int state = (key.held ? -0x8000 : 0) | (key.pressed ? 1 : 0);
    key.pressed = false;
    return static_cast<SHORT>(state);
}

void WINAPI Sleep(DWORD milliseconds) {
    record("Sleep %u", static_cast<UINT>(milliseconds));
    slept_ms += milliseconds;
}
}
