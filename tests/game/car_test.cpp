// The move, the skid and the car's outline.
#include "race/car_motion.h"
#include "race/car_outline.h"
#include "race/heading.h"
#include "race/view.h"
#include "tests/support/race_test.h"

#include <cmath>

namespace tarvik::test {
namespace {

class Car : public RaceTest {};

/// The generator once more, as a pair of plain numbers, to count the game's draws with.
class Draws {
  public:
    explicit Draws(std::uint32_t seed) : state(seed) {}
    int next() {
        state = state * 214013U + 2531011U;
        return static_cast<int>((state >> 16U) & 32767U);
    }

  private:
    std::uint32_t state;
};

TEST_F(Car, DrawsTheKnownSequence) {
    srand(1);
    EXPECT_EQ(rand(), 41);
    EXPECT_EQ(rand(), 18467);
    EXPECT_EQ(rand(), 6334);
}

TEST_F(Car, MovesAlongItsHeadingWithXFirst) {
    place(5000.0F, 5000.0F, 90.0F, 0.4F);
    frames(1);
    EXPECT_FLOAT_EQ(x, 5000.4F);
    EXPECT_NEAR(y, 5000.0F, 1e-3F);
    place(5000.0F, 5000.0F, 180.0F + 360.0F, 0.4F);
    frames(1);
    EXPECT_FLOAT_EQ(y, 4999.6F);
}

// After step k of a run, k being 16 or more, the car skids along the heading that it had before
// step 16 + (k - 16) / 2: the longer the turn, the older the heading.
TEST_F(Car, SkidsInALongTurnAlongAnEverOlderHeading) {
    place(5000.0F, 5000.0F, 0.0F, 3.25F);
    Draws draws(77);
    srand(77);
    key_down[VK_LEFT] = 1;
    std::vector<float> before_step;
    int skids = 0;
    for (int frame = 1; frame <= 200; ++frame) {
        const int step = (frame - 1) % 41 + 1;
        if (step == 1) {
            before_step.clear();
        }
        before_step.push_back(degrees);
        const float from_x = x;
        const float from_y = y;
        race_frame();
        if (step == 41) { // the run is cut before the move, and that takes a draw
            draws.next();
        }
        float along = degrees;
        if (draws.next() % 30 < 27 && step >= 16 && step < 41) {
            along = before_step[static_cast<std::size_t>(16 + (step - 16) / 2 - 1)];
            draws.next();
            ++skids;
        }
        const double radians = static_cast<double>(along) * 3.141592653 / 180.0;
        ASSERT_NEAR(x - from_x, 3.25 * std::sin(radians), 0.001) << "frame " << frame;
        ASSERT_NEAR(y - from_y, 3.25 * std::cos(radians), 0.001) << "frame " << frame;
    }
    EXPECT_GT(skids, 80);
    EXPECT_EQ(rand(), draws.next());
}

TEST_F(Car, DoesNotSkidNorDrawBelowHalfACellAFrame) {
    place(5000.0F, 5000.0F, 0.0F, 0.49F);
    Draws draws(5);
    srand(5);
    key_down[VK_RIGHT] = 1;
    for (int step = 1; step <= 40; ++step) {
        const float from_x = x;
        race_frame();
        const double radians = static_cast<double>(degrees) * 3.141592653 / 180.0;
        ASSERT_NEAR(x - from_x, 0.49 * std::sin(radians), 0.001) << "step " << step;
    }
    EXPECT_EQ(rand(), draws.next());
}

TEST_F(Car, DrawsANumberFromHalfACellAFrameOn) {
    place(5000.0F, 5000.0F, 0.0F, 0.5F);
    Draws draws(5);
    srand(5);
    move_car();
    draws.next();
    EXPECT_EQ(rand(), draws.next());
}

// Drawing and driving round small differences away, but a long race adds them up.
TEST_F(Car, TurnsDegreesIntoRadiansInDoublePrecision) {
    const double radians = 1e7 * (3.141592653 / 180.0);
    EXPECT_FLOAT_EQ(step_along(1e7F, 100.0).x, static_cast<float>(100.0 * std::sin(radians)));
    EXPECT_FLOAT_EQ(step_along(1e7F, 100.0).y, static_cast<float>(100.0 * std::cos(radians)));
}

TEST_F(Car, IsFiveWhitePointsRoundItsPosition) {
    place(5000.5F, 5000.5F, 180.0F, 0.0F);
    view_x = 4900;
    view_y = 4900;
    prepare_move();
    std::memset(track_grid, CELL_OFF_TRACK, TRACK_MAP_BYTES);
    draw_car_and_test_road();
    EXPECT_EQ(hits, 4);
    const Picture picture = frame_buffer_copy();
    EXPECT_EQ(picture.logical(100, 94), WHITE); // nose
    for (const int corner_x : {96, 104}) {
        EXPECT_EQ(picture.logical(corner_x, 96), WHITE);
        EXPECT_EQ(picture.logical(corner_x, 104), WHITE);
    }
}

TEST_F(Car, FeelsTheRoadWithEachCornerButNotWithItsNose) {
    place(5000.5F, 5000.5F, 180.0F, 0.0F);
    const auto hits_on = [](int cell_x, int cell_y) {
        std::memset(track_grid, 0, TRACK_MAP_BYTES);
        track_grid[static_cast<std::size_t>(cell_y) * 10000 + static_cast<std::size_t>(cell_x)] = 1;
        penalty[PLAYER_SLOT] = 0.0F;
        prepare_move();
        draw_car_and_test_road();
        EXPECT_EQ(penalty[PLAYER_SLOT], static_cast<float>(hits));
        return hits;
    };
    EXPECT_EQ(hits_on(5000, 4994), 0); // nose
    EXPECT_EQ(hits_on(4996, 4996), 1);
    EXPECT_EQ(hits_on(5004, 4996), 1);
    EXPECT_EQ(hits_on(4996, 5004), 1);
    EXPECT_EQ(hits_on(5004, 5004), 1);
    EXPECT_EQ(hits_on(5000, 5000), 0);
}

TEST_F(Car, FindsOnlyGrassBeyondTheGrid) {
    const auto hits_at = [](float at_x, float at_y) {
        x = at_x;
        y = at_y;
        prepare_move();
        draw_car_and_test_road();
        return hits;
    };
    degrees = 180.0F;
    EXPECT_EQ(hits_at(4.0F, 5000.0F), 0);    // corners at -0.24 are in cell 0
    EXPECT_EQ(hits_at(3.0F, 5000.0F), 2);    // at -1.24 they are not
    EXPECT_EQ(hits_at(9996.0F, 5000.0F), 2); // not the next row's cell 0
    EXPECT_EQ(hits_at(5000.0F, 4.0F), 0);
    EXPECT_EQ(hits_at(5000.0F, 3.0F), 2);
    EXPECT_EQ(hits_at(5000.0F, 9996.0F), 2);
    EXPECT_EQ(hits_at(-500.0F, 20000.0F), 4);
}

TEST_F(Car, KeepsTheViewInsideTheGrid) {
    const auto view_at = [](float at_x, float at_y) {
        x = at_x;
        y = at_y;
        follow_car();
        return std::pair(view_x, view_y);
    };
    EXPECT_EQ(view_at(2400.9F, 2480.9F), std::pair(2240, 2360));
    EXPECT_EQ(view_at(100.0F, 50.0F), std::pair(0, 0));
    EXPECT_EQ(view_at(9999.0F, 9999.0F), std::pair(9680, 9760));
}

} // namespace
} // namespace tarvik::test
