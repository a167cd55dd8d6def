// Which keys are held right now; GetAsyncKeyState adds the controllers to it.
#pragma once

namespace tarvik {

/// Whether a key with this virtual-key code is held on the keyboard.
bool keyboard_holds(int virtual_key);

} // namespace tarvik
