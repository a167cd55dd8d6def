// The table of meanings, and how values of buttons and axes become presses and releases.
#include "platform/common/controller_keys.h"

#include <iterator>

namespace tarvik {

namespace {

/// Axes are numbered after the buttons.
constexpr int FIRST_AXIS = 17;

struct Meaning {
    int input;
    float direction; ///< -1 for the negative half of an axis
    int virtual_key;
    bool is_tap; ///< every press counts once, however long it lasts
};

// Gears and tracks are taps: a gear's key is consumed anyway, and a held bracket would load its
// track in every frame.
constexpr Meaning MEANINGS[] = {
    {7, 1, VK_UP, false},             // right trigger
    {0, 1, VK_UP, false},             // bottom face button
    {6, 1, VK_DOWN, false},           // left trigger
    {1, 1, VK_DOWN, false},           // right face button
    {FIRST_AXIS, -1, VK_LEFT, false}, // left stick
    {FIRST_AXIS, 1, VK_RIGHT, false}, //
    {14, 1, VK_LEFT, false},          // directional pad
    {15, 1, VK_RIGHT, false},         //
    {9, 1, VK_ESCAPE, false},         // Start
    {5, 1, 'A', true},                // right shoulder: a gear up
    {4, 1, 'Z', true},                // left shoulder: a gear down
    {8, 1, VK_OEM_4, true},           // Back: track 1
    {2, 1, VK_OEM_6, true},           // left face button: track 2
};
static_assert(std::size(MEANINGS) <= ControllerKeys::MOST_MEANINGS);

// Far enough apart that neither a worn stick nor a trembling thumb presses again and again.
constexpr float PRESSED_ABOVE = 0.5F;
constexpr float RELEASED_BELOW = 0.3F;

std::size_t key_of(const Meaning& meaning) {
    return static_cast<std::size_t>(meaning.virtual_key);
}

Message key_down_message(int virtual_key, DWORD time) {
    return {WM_KEYDOWN, static_cast<WPARAM>(virtual_key), 1, time};
}

Message key_up_message(int virtual_key, DWORD time) {
    return {WM_KEYUP, static_cast<WPARAM>(virtual_key), 1 | KEY_WAS_DOWN | KEY_RELEASED, time};
}

} // namespace

void ControllerKeys::set_button(int controller, int button, float value) {
    if (button < FIRST_AXIS) {
        set(controller, button, value);
    }
}

void ControllerKeys::set_axis(int controller, int axis, float value) {
    set(controller, FIRST_AXIS + axis, value);
}

void ControllerKeys::set(int controller, int input, float value) {
    for (std::size_t i = 0; i < std::size(MEANINGS); ++i) {
        const Meaning& meaning = MEANINGS[i];
        if (meaning.input != input) {
            continue;
        }
        const float strength = value * meaning.direction;
        auto& active = active_[controller];
        if (!active[i] && strength > PRESSED_ABOVE) {
            active.set(i);
            if (meaning.is_tap) {
                taps_.push_back(meaning.virtual_key);
            } else {
                pressed_.set(key_of(meaning));
            }
        } else if (strength < RELEASED_BELOW) {
            active.reset(i);
        }
    }
}

void ControllerKeys::remove(int controller) {
    active_.erase(controller);
}

void ControllerKeys::append_messages(MessageQueue& queue, DWORD time,
                                     bool (*keyboard_holds)(int virtual_key)) {
    for (const int virtual_key : taps_) {
        queue.append(key_down_message(virtual_key, time));
        queue.append(key_up_message(virtual_key, time));
    }
    taps_.clear();

    // What was pressed and let go of between two frames, during a wait for instance, counts for one
    // frame.
    held_ = pressed_;
    pressed_.reset();
    for (const auto& [controller, active] : active_) {
        for (std::size_t i = 0; i < std::size(MEANINGS); ++i) {
            if (active[i] && !MEANINGS[i].is_tap) {
                held_.set(key_of(MEANINGS[i]));
            }
        }
    }

    // The game takes one message a frame. An axis that jumps about faster must not pile up a
    // backlog in front of the other keys: only its latest state counts, when there is room for it.
    for (const Meaning& meaning : MEANINGS) {
        const std::size_t key = key_of(meaning);
        if (held_[key] == sent_[key] || queue.size() >= FEW_WAITING) {
            continue;
        }
        sent_[key] = held_[key];
        if (held_[key]) {
            queue.append(key_down_message(meaning.virtual_key, time));
        } else if (!from_keyboard_[key] || !keyboard_holds(meaning.virtual_key)) {
            queue.append(key_up_message(meaning.virtual_key, time));
        }
    }
}

bool ControllerKeys::passes(const Message& message) {
    const bool is_press = message.message == WM_KEYDOWN;
    if ((!is_press && message.message != WM_KEYUP) || message.wparam >= KEYS) {
        return true;
    }
    from_keyboard_.set(message.wparam, is_press);
    return is_press || !sent_[message.wparam];
}

bool ControllerKeys::holds(int virtual_key) const {
    return virtual_key >= 0 && virtual_key < KEYS && held_[static_cast<std::size_t>(virtual_key)];
}

} // namespace tarvik
