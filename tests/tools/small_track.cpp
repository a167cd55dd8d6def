// A small track without faults, for tests to damage.
#include "tests/tools/small_track.h"

#include <algorithm>
#include <cstdlib>

namespace tarvik {

SmallTrack::SmallTrack() : cells_(static_cast<std::size_t>(SIDE) * SIDE, CELL_GRASS) {
    road(1550, 2100, 2449, 2199);
    road(1550, 2550, 2449, 2649);
    road(1550, 2100, 1649, 2649);
    road(2350, 2100, 2449, 2649);
    for (int y = 2300; y < 2500; ++y) {
        const int beyond_box = std::max({BOX_TOP - y, y - BOX_BOTTOM, 0});
        const int half_width = std::min(12 + beyond_box, 50);
        grass(2350, y, 2399 - half_width, y);
        grass(2400 + half_width, y, 2449, y);
    }
}

void SmallTrack::road(int left, int top, int right, int bottom) {
    fill(left, top, right, bottom, CELL_ROAD);
}

void SmallTrack::grass(int left, int top, int right, int bottom) {
    fill(left, top, right, bottom, CELL_GRASS);
}

void SmallTrack::fill(int left, int top, int right, int bottom, std::uint8_t cell) {
    for (int y = top; y <= bottom; ++y) {
        for (int x = left; x <= right; ++x) {
            cells_[view().index(x, y)] = cell;
        }
    }
}

} // namespace tarvik
