// Bringing everything up before the first frame and down after the last.
#pragma once

namespace tarvik {

/// Window first, then the buffers, the sprites and the random seed, in their fixed order.
void start_up();

/// Releases the buffers and then the window. The ghost laps stay until the process ends.
void shut_down();

} // namespace tarvik
