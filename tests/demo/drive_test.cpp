// The driver on tracks that are drawn here: what it must manage, and what it must refuse.
#include "race/race_state.h"
#include "race/track_grid.h"
#include "tests/support/program.h"
#include "tools/demo/drive.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace tarvik::demo {
namespace {

// Two straights up and down, joined by hairpins; the left one leads through the start.
constexpr double LEFT = 2400.0;
constexpr double TOP = 1700.0;
constexpr double BOTTOM = 3300.0;
constexpr double HAIRPIN_RADIUS = 60.0;
constexpr double HALF_ROAD = 42.0;
// At the gate the road is so narrow that nobody misses the box.
constexpr double HALF_GATE = 11.0;
constexpr double FUNNEL = 400.0;

/// Cells between a point and the middle of the road.
double off_the_middle(double x, double y) {
    const double from_axis = x - (LEFT + HAIRPIN_RADIUS);
    if (y >= TOP && y <= BOTTOM) {
        return std::abs(std::abs(from_axis) - HAIRPIN_RADIUS);
    }
    return std::abs(std::hypot(from_axis, y < TOP ? TOP - y : y - BOTTOM) - HAIRPIN_RADIUS);
}

double half_road(double x, double y) {
    const double from_gate = std::abs(y - 2400.0);
    if (x > LEFT + HAIRPIN_RADIUS || from_gate > FUNNEL) {
        return HALF_ROAD;
    }
    return HALF_GATE + (HALF_ROAD - HALF_GATE) * from_gate / FUNNEL;
}

/// Puts the track, or with `cut` one that is interrupted, where the game looks for race 1.
void lay_track(bool cut) {
    std::vector<std::uint8_t> cells = test::plain_map(CELL_OFF_TRACK);
    for (std::int32_t y = 1500; y < 3500; ++y) {
        for (std::int32_t x = 2300; x < 2620; ++x) {
            const double cell_x = x + 0.5;
            const double cell_y = y + 0.5;
            const bool bridge = !cut || x < 2460 || y < 2000 || y > 2020;
            if (bridge && off_the_middle(cell_x, cell_y) < half_road(cell_x, cell_y)) {
                cells[static_cast<std::size_t>(y) * TRACK_WIDTH + static_cast<std::size_t>(x)] = 0;
            }
        }
    }
    test::install_data(std::move(cells), {}, {});
}

Options two_laps() {
    Options options;
    options.headless = true;
    options.difficulty = EASY;
    options.laps = 2;
    options.seed = 11;
    return options;
}

// 3577 cells a lap. The hairpins need braking: at top speed they take 19 steering frames in a row,
// and the car slides from the 16th on.
TEST(Drive, KeepsTheCarOnTheRoadThroughHairpins) {
    lay_track(false);
    EXPECT_EQ(drive(two_laps()), EXIT_SUCCESS);
    EXPECT_EQ(standing().laps, 2);
    EXPECT_EQ(difficulty, EASY);
    EXPECT_EQ(penalty[PLAYER_SLOT], 0.0F);
    EXPECT_GT(last_cycle[PLAYER_SLOT], 3577.0 / 3.3);
    EXPECT_LT(last_cycle[PLAYER_SLOT], 3577.0 / 2.2); // gears and brakes were put to use
}

TEST(Drive, RefusesATrackThatLeadsNowhere) {
    lay_track(true);
    testing::internal::CaptureStderr();
    EXPECT_EQ(drive(two_laps()), EXIT_FAILURE);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("track 1 has no road"),
              std::string::npos);
}

} // namespace
} // namespace tarvik::demo
