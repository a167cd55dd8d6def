// The message loop's calls, and the two by which a program drives the game.
#include "platform/desktop/events.h"
#include "platform/desktop/game_window.h"
#include "platform/driver.h"

#include <SDL_timer.h>

namespace tarvik {

namespace {

MessageQueue queue;
void (*frame_hook)() = nullptr;

} // namespace

void set_frame_hook(void (*hook)()) {
    frame_hook = hook;
}

void post_message(UINT message, WPARAM wparam, LPARAM lparam) {
    queue.append({message, wparam, lparam, SDL_GetTicks()});
}

} // namespace tarvik

using namespace tarvik;

extern "C" {

// All messages are for the one window, so the window and range arguments are ignored.
BOOL WINAPI PeekMessageA(LPMSG message, HWND, UINT, UINT, UINT) {
    if (frame_hook != nullptr) {
        frame_hook();
    }
    collect_messages(queue);
    Message next{};
    if (!queue.take(next)) {
        return FALSE;
    }
    *message = {game_window(), next.message, next.wparam, next.lparam, next.time, {}};
    return TRUE;
}

LRESULT WINAPI DispatchMessageA(const MSG* message) {
    return call_window_procedure(message->hwnd, message->message, message->wParam, message->lParam);
}

// The game itself sees to all messages that would have an effect.
LRESULT WINAPI DefWindowProcA(HWND, UINT, WPARAM, LPARAM) {
    return 0;
}

// The game learns of its end from its own flag and never looks for the quit message.
void WINAPI PostQuitMessage(int) {}

} // extern "C"
