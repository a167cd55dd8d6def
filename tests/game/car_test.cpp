// The move, the skid and the car's outline.
#include "race/car_motion.h"
#include "race/heading.h"
#include "race/view.h"
#include "render/presentation.h"
#include "tests/support/race_test.h"

#include <cmath>
#include <functional>
#include <random>

namespace tarvik::test {
namespace {

class Car : public RaceTest {};

/// Seeds the game's random numbers and returns the generator once more, to count its draws with.
std::function<int()> draws_after(std::uint32_t seed) {
    srand(seed);
    std::linear_congruential_engine<std::uint32_t, 214013, 2531011, 0> generator(seed);
    return [generator]() mutable { return static_cast<int>(generator() >> 16U & 32767U); };
}

// After step k of a run, k being 16 or more, the car skids along the heading that it had before
// step 16 + (k - 16) / 2: the longer the turn, the older the heading.
TEST_F(Car, SkidsInALongTurnAlongAnEverOlderHeading) {
    place(5000.0F, 5000.0F, 0.0F, 3.25F);
    const auto draw = draws_after(77);
    key_down[VK_LEFT] = 1;
    std::vector<float> before_step;
    int skids = 0;
    for (int frame = 1; frame <= 200; ++frame) {
        const std::size_t step = before_step.size() + 1;
        before_step.push_back(degrees);
        const float from_x = x;
        const float from_y = y;
        race_frame();
        float along = degrees;
        if (step == 41) { // the run is cut before the move, and that takes a draw
            draw();
            before_step.clear();
        }
        if (draw() % 30 < 27 && step >= 16 && step < 41) {
            along = before_step[16 + (step - 16) / 2 - 1];
            draw();
            ++skids;
        }
        const double radians = static_cast<double>(along) * 3.141592653 / 180.0;
        ASSERT_NEAR(x - from_x, 3.25 * std::sin(radians), 0.001) << "frame " << frame;
        ASSERT_NEAR(y - from_y, 3.25 * std::cos(radians), 0.001) << "frame " << frame;
    }
    EXPECT_GT(skids, 80);
    EXPECT_EQ(rand(), draw());
}

TEST_F(Car, DrawsFromHalfACellAFrameOnAndNeverBelow) {
    const auto draw = draws_after(5);
    place(5000.0F, 5000.0F, 0.0F, 0.49F);
    key_down[VK_RIGHT] = 1;
    frames(40); // long enough a run to skid in
    EXPECT_EQ(rand(), draw());
    velocity = 0.5F;
    steer_count[PLAYER_SLOT] = 0;
    move_car();
    draw();
    EXPECT_EQ(rand(), draw());
}

// Drawing and driving round small differences away, but a long race adds them up.
TEST_F(Car, TurnsDegreesIntoRadiansInDoublePrecision) {
    const double radians = 1e7 * (3.141592653 / 180.0);
    EXPECT_FLOAT_EQ(step_along(1e7F, 100.0).x, static_cast<float>(100.0 * std::sin(radians)));
    EXPECT_FLOAT_EQ(step_along(1e7F, 100.0).y, static_cast<float>(100.0 * std::cos(radians)));
}

TEST_F(Car, IsFiveWhitePointsOfWhichAllButTheNoseFeelTheRoad) {
    place(5000.5F, 5000.5F, 180.0F, 0.0F);
    view_x = view_y = 4900;
    clear_frame();
    const auto hits_on = [](int cell_x, int cell_y) {
        std::uint8_t& cell = track_grid[cell_y * TRACK_WIDTH + cell_x];
        cell = CELL_OFF_TRACK;
        penalty[PLAYER_SLOT] = 0.0F;
        prepare_move();
        draw_car_and_test_road();
        cell = 0;
        EXPECT_EQ(penalty[PLAYER_SLOT], static_cast<float>(hits));
        return hits;
    };
    EXPECT_EQ(hits_on(5000, 4994), 0); // nose
    EXPECT_EQ(hits_on(5000, 5000), 0);
    for (const auto& [corner_x, corner_y] :
         {std::pair(4996, 4996), {5004, 4996}, {4996, 5004}, {5004, 5004}}) {
        EXPECT_EQ(hits_on(corner_x, corner_y), 1);
    }
    EXPECT_EQ(pixels_of(WHITE), "100,94 96,96 104,96 96,104 104,104");
}

TEST_F(Car, FindsOnlyGrassBeyondTheGrid) {
    struct Place {
        float x, y;
        std::int32_t hits;
    };
    for (const Place& at : {Place{4.0F, 5000.0F, 0},    // corners at -0.24 are in cell 0
                            Place{3.0F, 5000.0F, 2},    // at -1.24 they are not
                            Place{9996.0F, 5000.0F, 2}, // not the next row's cell 0
                            Place{5000.0F, 4.0F, 0}, Place{5000.0F, 3.0F, 2},
                            Place{5000.0F, 9996.0F, 2}, Place{-500.0F, 20000.0F, 4}}) {
        place(at.x, at.y, 180.0F, 0.0F);
        prepare_move();
        draw_car_and_test_road();
        EXPECT_EQ(hits, at.hits) << x << ", " << y;
    }
}

TEST_F(Car, KeepsTheViewInsideTheGrid) {
    const auto view_at = [](float at_x, float at_y) {
        place(at_x, at_y, 0.0F, 0.0F);
        follow_car();
        return std::pair(view_x, view_y);
    };
    EXPECT_EQ(view_at(2400.9F, 2480.9F), std::pair(2240, 2360));
    EXPECT_EQ(view_at(100.0F, 50.0F), std::pair(0, 0));
    EXPECT_EQ(view_at(9999.0F, 9999.0F), std::pair(9680, 9760));
}

} // namespace
} // namespace tarvik::test
