// The rows about frames of a game that runs.
#pragma once

namespace tarvik::bench {

void add_frame_rows();

} // namespace tarvik::bench
