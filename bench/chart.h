// The chart of frame times in docs/performance.md.
#pragma once

#include <string>
#include <vector>

namespace tarvik::bench {

/// One frame, all times in seconds.
struct FrameTime {
    double work;       ///< processor time of the game's thread, the frame's upload included
    double interval;   ///< from the start of this frame to the start of the next one
    bool waited;       ///< a gear key held the game for 300 ms, as it should
    const char* event; ///< what else happened, or null
};

/// Least, median, 99th percentile and greatest of some times, as "0.1 / 0.2 / 0.3 / 0.4 ms".
std::string summary(std::vector<double> seconds);

/// Draws work and interval of every frame into a PNG file. Throws if it cannot be written.
void draw_chart(const std::vector<FrameTime>& frames, const std::string& file_name);

} // namespace tarvik::bench
