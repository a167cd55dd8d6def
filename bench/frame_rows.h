// The rows about frames of a running game.
#pragma once

namespace tarvik::bench {

void add_frame_rows();

} // namespace tarvik::bench
