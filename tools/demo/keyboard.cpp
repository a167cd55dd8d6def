// One message a frame.
#include "tools/demo/keyboard.h"

#include "platform/driver.h"
#include "race/car_controls.h"
#include "race/race_state.h"
#include "shell/input.h"

namespace tarvik::demo {

namespace {

/// A message that has not shown its effect after so many frames never will: the player or the
/// system has changed the key meanwhile.
constexpr int PATIENCE = 30;

bool is_gear_key(int virtual_key) {
    return virtual_key == KEY_GEAR_UP || virtual_key == KEY_GEAR_DOWN;
}

void post_key(int virtual_key, bool down) {
    post_message(down ? WM_KEYDOWN : WM_KEYUP, static_cast<WPARAM>(virtual_key), 0);
}

} // namespace

bool Keyboard::is_waiting() {
    if (posted_key == 0) {
        return false;
    }
    const bool consumed = is_gear_key(posted_key) && posted_down; // the game clears it at once
    const bool arrived =
        consumed ? gear[PLAYER_SLOT] != gear_before : is_down(posted_key) == posted_down;
    ++frames_waited;
    if (!arrived && frames_waited < PATIENCE) {
        return true;
    }
    posted_key = 0;
    return false;
}

void Keyboard::post(int virtual_key, bool down) {
    post_key(virtual_key, down);
    posted_key = virtual_key;
    posted_down = down;
    frames_waited = 0;
    gear_before = gear[PLAYER_SLOT];
}

/// Whether a message was necessary.
bool Keyboard::hold(int virtual_key, bool down) {
    if (is_down(virtual_key) == down) {
        return false;
    }
    post(virtual_key, down);
    return true;
}

void Keyboard::act(const Wish& wish) {
    if (is_waiting()) {
        return;
    }
    // A key goes up before its counterpart goes down.
    const bool left = wish.steer > 0;
    const bool right = wish.steer < 0;
    if ((!left && hold(VK_LEFT, false)) || (!right && hold(VK_RIGHT, false)) ||
        hold(VK_LEFT, left) || hold(VK_RIGHT, right)) {
        return;
    }
    if ((!wish.throttle && hold(VK_UP, false)) || (!wish.brake && hold(VK_DOWN, false)) ||
        hold(VK_DOWN, wish.brake) || hold(VK_UP, wish.throttle)) {
        return;
    }
    if (gear_key_held != 0) {
        post(gear_key_held, false);
        gear_key_held = 0;
    } else if (wish.shift != 0) {
        gear_key_held = wish.shift > 0 ? KEY_GEAR_UP : KEY_GEAR_DOWN;
        post(gear_key_held, true);
    }
}

void tap(int virtual_key) {
    post_key(virtual_key, true);
    post_key(virtual_key, false);
}

} // namespace tarvik::demo
