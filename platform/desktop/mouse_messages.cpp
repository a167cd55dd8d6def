// Mouse moves, buttons and the wheel.
#include "platform/desktop/mouse_messages.h"

#include "platform/desktop/picture.h"

#include <SDL.h>

#include <array>
#include <utility>

namespace tarvik {

namespace {

constexpr int WHEEL_STEP = 120;

LPARAM packed(int low, int high) {
    return static_cast<LPARAM>((static_cast<std::uint32_t>(high) & 0xFFFFU) << 16U |
                               (static_cast<std::uint32_t>(low) & 0xFFFFU));
}

// The low word of a mouse message's wparam: held buttons and modifiers.
WPARAM held_with_mouse(Uint32 buttons) {
    constexpr std::array<std::pair<Uint32, WPARAM>, 5> BUTTONS = {{{SDL_BUTTON_LMASK, 0x01},
                                                                   {SDL_BUTTON_RMASK, 0x02},
                                                                   {SDL_BUTTON_MMASK, 0x10},
                                                                   {SDL_BUTTON_X1MASK, 0x20},
                                                                   {SDL_BUTTON_X2MASK, 0x40}}};
    WPARAM held = 0;
    for (const auto& [mask, bit] : BUTTONS) {
        held |= (buttons & mask) != 0 ? bit : 0;
    }
    const int modifiers = SDL_GetModState();
    held |= (modifiers & KMOD_SHIFT) != 0 ? 0x04U : 0U;
    held |= (modifiers & KMOD_CTRL) != 0 ? 0x08U : 0U;
    return held;
}

void move_message(const SDL_MouseMotionEvent& event, MessageQueue& queue) {
    POINT pixel{};
    if (find_game_pixel({event.x, event.y}, pixel)) {
        queue.append_input({WM_MOUSEMOVE, held_with_mouse(event.state), packed(pixel.x, pixel.y),
                            event.timestamp});
    }
}

void button_message(const SDL_MouseButtonEvent& event, MessageQueue& queue) {
    Message message{};
    const bool down = event.state == SDL_PRESSED;
    WPARAM extra_button = 0;
    switch (event.button) {
    case SDL_BUTTON_LEFT:
        message.message = down ? WM_LBUTTONDOWN : WM_LBUTTONUP;
        break;
    case SDL_BUTTON_RIGHT:
        message.message = down ? WM_RBUTTONDOWN : WM_RBUTTONUP;
        break;
    case SDL_BUTTON_MIDDLE:
        message.message = down ? WM_MBUTTONDOWN : WM_MBUTTONUP;
        break;
    case SDL_BUTTON_X1:
    case SDL_BUTTON_X2:
        message.message = down ? WM_XBUTTONDOWN : WM_XBUTTONUP;
        extra_button = event.button == SDL_BUTTON_X1 ? 1 : 2;
        break;
    default:
        return;
    }
    message.wparam = held_with_mouse(SDL_GetMouseState(nullptr, nullptr)) | extra_button << 16U;
    message.time = event.timestamp;
    POINT pixel{};
    if (find_game_pixel({event.x, event.y}, pixel)) {
        message.lparam = packed(pixel.x, pixel.y);
        queue.append_input(message);
    }
}

void wheel_messages(const SDL_MouseWheelEvent& event, MessageQueue& queue) {
    int x = 0;
    int y = 0;
    const WPARAM held = held_with_mouse(SDL_GetMouseState(&x, &y));
    int left = 0;
    int top = 0;
    SDL_GetWindowPosition(SDL_GetWindowFromID(event.windowID), &left, &top);
    const LPARAM place = packed(left + x, top + y); // on the screen, unlike all other positions
    const auto turned = [held](int steps) {
        return held | static_cast<WPARAM>(packed(0, steps * WHEEL_STEP));
    };
    if (event.y != 0) {
        queue.append_input({WM_MOUSEWHEEL, turned(event.y), place, event.timestamp});
    }
    if (event.x != 0) {
        queue.append_input({WM_MOUSEHWHEEL, turned(event.x), place, event.timestamp});
    }
}

} // namespace

void append_mouse_messages(const SDL_Event& event, MessageQueue& queue) {
    switch (event.type) {
    case SDL_MOUSEMOTION:
        move_message(event.motion, queue);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        button_message(event.button, queue);
        break;
    case SDL_MOUSEWHEEL:
        wheel_messages(event.wheel, queue);
        break;
    default:
        break;
    }
}

} // namespace tarvik
