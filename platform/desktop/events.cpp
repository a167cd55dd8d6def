// Keyboard, mouse moves and close events as messages; controllers have a file of their own.
#include "platform/desktop/events.h"

#include "platform/common/keys.h"
#include "platform/desktop/close_signals.h"
#include "platform/desktop/full_screen.h"
#include "platform/desktop/game_controllers.h"
#include "platform/desktop/presentation.h"
#include "platform/desktop/x11_errors.h"
#include "platform/desktop/x11_keyboard.h"

#include <SDL.h>
#include <SDL_syswm.h>

#include <array>

namespace tarvik {

namespace {

// Static, since it is read once a frame.
std::array<SDL_Event, 256> events;

// Whether the mouse is just leaving the window. SDL then reports a last move, to the edge; Windows
// reports none.
bool mouse_leaves = false;

bool is_held(int virtual_key) {
    return GetAsyncKeyState(virtual_key) < 0;
}

bool sdl_key_message(const SDL_KeyboardEvent& event, Message& message) {
    const auto character = static_cast<std::uint32_t>(event.keysym.sym);
    const int modifiers = event.keysym.mod;
    const bool down = event.state == SDL_PRESSED;
    return key_message({.place = event.keysym.scancode,
                        .character = (character & SDLK_SCANCODE_MASK) != 0 ? 0 : character,
                        .down = down,
                        .was_down = !down || event.repeat != 0,
                        .alt = (modifiers & KMOD_ALT) != 0,
                        .control = (modifiers & KMOD_CTRL) != 0,
                        .num_lock = (modifiers & KMOD_NUM) != 0},
                       message);
}

// When the focus leaves, SDL lets go of all keys itself and then says that the focus is lost. To
// Windows those keys are still down.
bool is_released_by_focus_loss(std::span<const SDL_Event> from_release_on) {
    for (const SDL_Event& event : from_release_on) {
        if (event.type != SDL_KEYUP) {
            return event.type == SDL_WINDOWEVENT &&
                   event.window.event == SDL_WINDOWEVENT_FOCUS_LOST;
        }
    }
    return false;
}

// Buttons and wheel are left out: the game does nothing with them, and each message costs it a
// frame.
void append_mouse_move(const SDL_MouseMotionEvent& event, MessageQueue& queue) {
    POINT pixel{};
    if (find_game_pixel({event.x, event.y}, pixel)) {
        queue.append_input({WM_MOUSEMOVE, 0, LPARAM{pixel.y} << 16 | pixel.x, event.timestamp});
    }
}

void translate(std::span<const SDL_Event> from_event_on, MessageQueue& queue) {
    const SDL_Event& event = from_event_on.front();
    Message message{};
    message.time = event.common.timestamp;
    bool wanted = false;
    switch (event.type) {
    case SDL_SYSWMEVENT: {
        // An X event, in front of the events that SDL makes of it.
        const XEvent& x_event = event.syswm.msg->msg.x11.event;
        mouse_leaves = x_event.type == LeaveNotify;
        if (x_event.type == DestroyNotify) {
            note_x11_window_lost(x_event.xdestroywindow.window);
            break;
        }
        KeyChange change{};
        wanted = read_x11_key_event(x_event, change) && key_message(change, message);
        break;
    }
    case SDL_MOUSEMOTION:
        if (!mouse_leaves) {
            append_mouse_move(event.motion, queue);
        }
        break;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        wanted = !is_released_by_focus_loss(from_event_on) && sdl_key_message(event.key, message);
        break;
    case SDL_WINDOWEVENT:
        // Window managers answer Alt+F4 with the close request that their close button makes too.
        // Windows tells them apart, and the game makes nothing of Alt+F4.
        wanted =
            event.window.event == SDL_WINDOWEVENT_CLOSE && !(is_held(VK_MENU) && is_held(VK_F4));
        message.message = WM_CLOSE;
        break;
    case SDL_QUIT: // the display is going away
        message.message = WM_CLOSE;
        wanted = true;
        break;
    default:
        note_controller_event(event);
        break;
    }
    if (wanted && !take_full_screen_key(message) && passes_controllers(message)) {
        queue.append_input(message);
    }
}

} // namespace

void collect_messages(MessageQueue& queue) {
    if (take_close_signal()) {
        queue.append({WM_CLOSE, 0, 0, SDL_GetTicks()});
    }
    SDL_PumpEvents();
    int count = 0;
    do {
        count = SDL_PeepEvents(events.data(), static_cast<int>(events.size()), SDL_GETEVENT,
                               SDL_FIRSTEVENT, SDL_LASTEVENT);
        const std::span<const SDL_Event> batch(events.data(),
                                               static_cast<std::size_t>(count > 0 ? count : 0));
        for (std::size_t i = 0; i < batch.size(); ++i) {
            translate(batch.subspan(i), queue);
        }
    } while (count == static_cast<int>(events.size()));
    append_controller_messages(queue);
    switch_full_screen_if_asked();
}

} // namespace tarvik
