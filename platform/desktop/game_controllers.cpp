// SDL's names for buttons and axes into the standard order.
#include "platform/desktop/game_controllers.h"

#include "platform/desktop/key_state.h"

#include <SDL.h>

namespace tarvik {

namespace {

ControllerKeys keys;

constexpr int LEFT_TRIGGER = 6;
constexpr int RIGHT_TRIGGER = 7;

/// The standard order's number of a button, -1 where it has none.
int standard_button(int button) {
    switch (button) {
    case SDL_CONTROLLER_BUTTON_A:
        return 0;
    case SDL_CONTROLLER_BUTTON_B:
        return 1;
    case SDL_CONTROLLER_BUTTON_X:
        return 2;
    case SDL_CONTROLLER_BUTTON_Y:
        return 3;
    case SDL_CONTROLLER_BUTTON_LEFTSHOULDER:
        return 4;
    case SDL_CONTROLLER_BUTTON_RIGHTSHOULDER:
        return 5;
    case SDL_CONTROLLER_BUTTON_BACK:
        return 8;
    case SDL_CONTROLLER_BUTTON_START:
        return 9;
    case SDL_CONTROLLER_BUTTON_DPAD_LEFT:
        return 14;
    case SDL_CONTROLLER_BUTTON_DPAD_RIGHT:
        return 15;
    default:
        return -1; // without a meaning here
    }
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
