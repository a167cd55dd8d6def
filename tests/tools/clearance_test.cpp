// Distances to the grass against the plain definition.
#include "tools/track/clearance.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <utility>
#include <vector>

namespace tarvik {
namespace {

int nearest_grass(TrackView track, int x, int y) {
    int best = LARGEST_CLEARANCE * LARGEST_CLEARANCE;
    for (int gy = -1; gy <= track.side; ++gy) {
        for (int gx = -1; gx <= track.side; ++gx) {
            if (!track.is_road(gx, gy)) {
                best = std::min(best, (gx - x) * (gx - x) + (gy - y) * (gy - y));
            }
        }
    }
    return best;
}

// The last is wide and all road; a sample of its distances shows that they end at the largest.
TEST(Clearance, is_exact_on_random_grids) {
    for (const auto& [side, grass_in_1000] :
         {std::pair(48, 2U), {48, 20U}, {48, 300U}, {48, 900U}, {600, 0U}}) {
        SCOPED_TRACE(grass_in_1000);
        std::mt19937 random(grass_in_1000);
        std::vector<std::uint8_t> cells(static_cast<std::size_t>(side * side));
        for (std::uint8_t& cell : cells) { // road of any value but 1
            cell = random() % 1000 < grass_in_1000 ? CELL_GRASS
                                                   : static_cast<std::uint8_t>(random() % 2 * 2);
        }
        const TrackView track{cells.data(), side};
        const std::vector<std::uint16_t> squares = squared_clearance(track);
        const int step = side == 600 ? 25 : 1;
        for (int y = 0; y < side; y += step) {
            for (int x = 0; x < side; x += step) {
                ASSERT_EQ(squares[track.index(x, y)], nearest_grass(track, x, y))
                    << "at (" << x << ", " << y << ")";
            }
        }
    }
}

} // namespace
} // namespace tarvik
