// A small track without faults, for tests to damage.
#pragma once

#include "tools/track/track.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace tarvik {

struct Area { // all edges included
    int left;
    int top;
    int right;
    int bottom;
};

struct Fill {
    std::uint8_t cell;
    Area area;
};
constexpr Fill road(int left, int top, int right, int bottom) {
    return {CELL_ROAD, {left, top, right, bottom}};
}
constexpr Fill grass(int left, int top, int right, int bottom) {
    return {CELL_GRASS, {left, top, right, bottom}};
}

/// A rectangular loop with its middle lines at x 1600 and 2400, y 2150 and 2600; the road is 100
/// cells wide, and a funnel narrows it to 24 cells through the start/finish box. It is driven up
/// through the box, to the left along the top, down, and back along the bottom.
class SmallTrack {
  public:
    explicit SmallTrack(const std::vector<Fill>& changes = {})
        : cells_(static_cast<std::size_t>(SIDE) * SIDE, CELL_GRASS) {
        fill({road(1550, 2100, 2449, 2199), road(1550, 2550, 2449, 2649),
              road(1550, 2100, 1649, 2649), road(2350, 2100, 2449, 2649)});
        for (int y = 2300; y < 2500; ++y) {
            const int beyond_box = std::max({BOX_TOP - y, y - BOX_BOTTOM, 0});
            const int half_width = std::min(12 + beyond_box, 50);
            fill({grass(2350, y, 2399 - half_width, y), grass(2400 + half_width, y, 2449, y)});
        }
        fill(changes);
    }

    [[nodiscard]] TrackView view() const {
        return {cells_.data(), SIDE};
    }

  private:
    static constexpr int SIDE = 2700;

    void fill(const std::vector<Fill>& changes) {
        for (const auto& [cell, area] : changes) {
            for (int y = area.top; y <= area.bottom; ++y) {
                std::fill_n(&cells_[view().index(area.left, y)], area.right - area.left + 1, cell);
            }
        }
    }

    std::vector<std::uint8_t> cells_;
};

} // namespace tarvik
