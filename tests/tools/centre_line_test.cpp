// The middle of the road.
#include "tools/track/centre_line.h"

#include "tests/tools/small_track.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tarvik {
namespace {

TEST(CentreLine, runs_once_around_in_the_middle_of_the_road) {
    const SmallTrack track;
    const std::vector<CentrePoint> line = centre_line(track.view());
    ASSERT_GT(line.size(), 400U); // 2500 cells, less what is cut at the corners
    EXPECT_NEAR(line[0].x, BOX_CENTRE_X, 2);
    EXPECT_NEAR(line[0].y, BOX_CENTRE_Y, 2);
    EXPECT_LT(line[10].y, line[0].y - 30) << "it must begin upwards";
    double length = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const CentrePoint& point = line[i];
        const CentrePoint& next = line[(i + 1) % line.size()];
        const double step = std::hypot(next.x - point.x, next.y - point.y);
        length += step;
        EXPECT_NEAR(step, CENTRE_SPACING, 0.5);
        EXPECT_GT(std::hypot(point.x - 1650, point.y - 2200), 49) << "it cuts the inner corner";
        if (point.x < 1800 && point.y > 2300 && point.y < 2450) { // the left arm
            EXPECT_NEAR(point.x, 1600, 1.5);
            EXPECT_GT(next.y, point.y);
        }
    }
    EXPECT_NEAR(length, 2400, 100);
}

TEST(CentreLine, is_empty_without_a_loop) {
    EXPECT_TRUE(centre_line(SmallTrack({grass(1900, 2500, 1901, 2690)}).view()).empty());
    EXPECT_TRUE(centre_line(SmallTrack({grass(2300, 2470, 2500, 2490)}).view()).empty());
}

} // namespace
} // namespace tarvik
