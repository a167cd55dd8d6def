// Reading all controllers at once. A browser shows one after its first button has been pressed.
#include "platform/web/controllers.h"

#include "platform/web/page.h"

#include <emscripten/html5.h>

#include <algorithm>
#include <string_view>

namespace tarvik {

ControllerKeys controller_keys;

namespace {

/// Only in the standard layout do a browser's numbers tell which button is which.
bool read(int controller, EmscriptenGamepadEvent& state) {
    return emscripten_get_gamepad_status(controller, &state) == EMSCRIPTEN_RESULT_SUCCESS &&
           state.connected && std::string_view(state.mapping) == "standard";
}

} // namespace

void look_at_controllers() {
    static const bool allowed = page_may_look_at_controllers() != 0;
    if (!allowed || emscripten_sample_gamepad_data() != EMSCRIPTEN_RESULT_SUCCESS) {
        return;
    }
    static int most = 0; // the browser's list may become shorter
    most = std::max(most, emscripten_get_num_gamepads());
    for (int controller = 0; controller < most; ++controller) {
        static EmscriptenGamepadEvent state;
        if (!read(controller, state)) {
            controller_keys.remove(controller);
            continue;
        }
        for (int button = 0; button < state.numButtons; ++button) {
            controller_keys.set_button(controller, button,
                                       static_cast<float>(state.analogButton[button]));
        }
        for (int axis = 0; axis < state.numAxes; ++axis) {
            controller_keys.set_axis(controller, axis, static_cast<float>(state.axis[axis]));
        }
    }
}

} // namespace tarvik
