// Distances to the grass against the plain definition.
#include "tools/track/clearance.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
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

TEST(Clearance, is_exact_on_random_grids) {
    constexpr int SIDE = 48;
    for (const unsigned grass_in_1000 : {0U, 2U, 20U, 300U, 900U}) {
        SCOPED_TRACE(grass_in_1000);
        std::mt19937 random(grass_in_1000);
        std::vector<std::uint8_t> cells(SIDE * SIDE);
        for (std::uint8_t& cell : cells) { // road of any value but 1
            cell = random() % 1000 < grass_in_1000 ? CELL_GRASS
                                                   : static_cast<std::uint8_t>(random() % 2 * 2);
        }
        const TrackView track{cells.data(), SIDE};
        const std::vector<std::uint16_t> squares = squared_clearance(track);
        for (int y = 0; y < SIDE; ++y) {
            for (int x = 0; x < SIDE; ++x) {
                ASSERT_EQ(squares[track.index(x, y)], nearest_grass(track, x, y))
                    << "at (" << x << ", " << y << ")";
            }
        }
    }
}

TEST(Clearance, ends_at_its_largest_value) {
    constexpr int SIDE = 600;
    const std::vector<std::uint8_t> cells(static_cast<std::size_t>(SIDE) * SIDE, CELL_ROAD);
    const TrackView track{cells.data(), SIDE};
    const std::vector<std::uint16_t> squares = squared_clearance(track);
    EXPECT_EQ(squares[track.index(300, 300)], LARGEST_CLEARANCE * LARGEST_CLEARANCE);
    EXPECT_EQ(squares[track.index(300, 253)], 254 * 254);
    EXPECT_EQ(squares[track.index(0, 300)], 1);
}

} // namespace
} // namespace tarvik
