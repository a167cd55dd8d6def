// The size of the window.
#include "shell/screen.h"

namespace tarvik {

std::int32_t screen_width = DEVICE_WIDTH;
std::int32_t screen_height = DEVICE_HEIGHT;

} // namespace tarvik
