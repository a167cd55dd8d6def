// Game controllers through the browser's Gamepad API.
#pragma once

#include "platform/common/controller_keys.h"

namespace tarvik {

/// What the controllers hold, as far as they have been looked at.
extern ControllerKeys controller_keys;

/// Looks at every controller. The browser does not say when one changes, so whoever looks more
/// rarely than once a frame misses taps.
void look_at_controllers();

} // namespace tarvik
