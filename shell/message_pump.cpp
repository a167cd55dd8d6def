// One message a frame, without translation: the game wants keys, not characters.
#include "shell/message_pump.h"

#include "platform/win32.h"
#include "shell/window.h"

namespace tarvik {

namespace {

MSG message;

} // namespace

void pump_messages() {
    if (PeekMessageA(&message, window_handle, 0, 0, PM_REMOVE) != 0) {
        DispatchMessageA(&message);
    }
}

} // namespace tarvik
