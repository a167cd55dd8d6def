// SDL's names for buttons and axes into the standard order.
#include "platform/desktop/game_controllers.h"

#include "platform/desktop/key_state.h"

#include <SDL.h>

#include <iterator>

namespace tarvik {

namespace {

ControllerKeys keys;

constexpr int LEFT_TRIGGER = 6;
constexpr int RIGHT_TRIGGER = 7;

/// The standard order's number of each button, in SDL's order: face buttons, Back, Guide, Start,
/// sticks, shoulders, directional pad.
constexpr int STANDARD_BUTTONS[] = {0, 1, 2, 3, 8, 16, 9, 10, 11, 4, 5, 12, 13, 14, 15};

int standard_button(Uint8 button) {
    return button < std::size(STANDARD_BUTTONS) ? STANDARD_BUTTONS[button] : -1;
}

void note_axis(const SDL_ControllerAxisEvent& event) {
    const float value = static_cast<float>(event.value) / SDL_JOYSTICK_AXIS_MAX;
    switch (event.axis) {
    case SDL_CONTROLLER_AXIS_TRIGGERLEFT:
        keys.set_button(event.which, LEFT_TRIGGER, value);
        break;
    case SDL_CONTROLLER_AXIS_TRIGGERRIGHT:
        keys.set_button(event.which, RIGHT_TRIGGER, value);
        break;
    default: // the sticks' axes come first in both orders
        keys.set_axis(event.which, event.axis, value);
        break;
    }
}

} // namespace

void watch_game_controllers() {
    // Buttons go by their place, whatever is printed on them.
    SDL_SetHintWithPriority(SDL_HINT_GAMECONTROLLER_USE_BUTTON_LABELS, "0", SDL_HINT_OVERRIDE);
    SDL_InitSubSystem(SDL_INIT_GAMECONTROLLER);
}

void note_controller_event(const SDL_Event& event) {
    switch (event.type) {
    case SDL_CONTROLLERDEVICEADDED:
        SDL_GameControllerOpen(event.cdevice.which);
        break;
    case SDL_CONTROLLERDEVICEREMOVED:
        SDL_GameControllerClose(SDL_GameControllerFromInstanceID(event.cdevice.which));
        keys.remove(event.cdevice.which);
        break;
    case SDL_CONTROLLERAXISMOTION:
        note_axis(event.caxis);
        break;
    case SDL_CONTROLLERBUTTONDOWN:
    case SDL_CONTROLLERBUTTONUP:
        keys.set_button(event.cbutton.which, standard_button(event.cbutton.button),
                        event.cbutton.state == SDL_PRESSED ? 1.0F : 0.0F);
        break;
    default:
        break;
    }
}

void append_controller_messages(MessageQueue& queue) {
    keys.append_messages(queue, SDL_GetTicks(), keyboard_holds);
}

bool passes_controllers(const Message& message) {
    return keys.passes(message);
}

bool controller_holds(int virtual_key) {
    return keys.holds(virtual_key);
}

} // namespace tarvik
