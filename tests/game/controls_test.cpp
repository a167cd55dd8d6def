// Throttle, brake, gears and steering runs.
#include "platform/scripted/scripted.h"
#include "race/car_controls.h"
#include "tests/support/race_test.h"

namespace tarvik::test {
namespace {

constexpr int KEY_A = 'A';
constexpr int KEY_Z = 'Z';

class Controls : public RaceTest {
  protected:
    static float throttle(std::int32_t in_gear, float from) {
        gear[PLAYER_SLOT] = in_gear;
        velocity = from;
        key_down[VK_UP] = 1;
        apply_throttle();
        return velocity;
    }

    static float brake(float from) {
        velocity = from;
        key_down[VK_DOWN] = 1;
        apply_brake();
        return velocity;
    }
};

TEST_F(Controls, EachGearPullsBetweenItsBoundsAndOnlyTheFirstMovesAStandingCar) {
    struct Gear {
        std::int32_t number;
        float above, below, factor;
    };
    for (const Gear& each :
         {Gear{2, 0.3F, 1.0F, 1.03F}, Gear{3, 0.4F, 1.6F, 1.01F}, Gear{4, 0.5F, 2.1F, 1.006F},
          Gear{5, 0.6F, 2.7F, 1.003F}, Gear{6, 0.7F, 3.3F, 1.001F}}) {
        for (const float outside : {0.0F, each.above, each.below}) {
            EXPECT_EQ(throttle(each.number, outside), outside) << "gear " << each.number;
        }
        const float inside = (each.above + each.below) / 2.0F;
        EXPECT_EQ(throttle(each.number, inside), inside * each.factor) << "gear " << each.number;
    }
    EXPECT_EQ(throttle(0, 0.0F), 0.0F);
    EXPECT_EQ(throttle(0, 1.0F), 1.0F);
    EXPECT_EQ(throttle(1, 0.0F), 0.1F * 1.06F);
    EXPECT_EQ(throttle(1, 0.6F), 0.6F);
}

TEST_F(Controls, BrakeBandsExcludeTheirBounds) {
    for (const auto& [inside, divisor] :
         {std::pair(0.29F, 1.06F), {0.31F, 1.04F}, {1.5F, 1.02F}, {2.5F, 1.01F}, {3.3F, 1.005F}}) {
        EXPECT_EQ(brake(inside), inside / divisor);
    }
    for (const float bound : {0.0F, 0.3F, 1.0F, 2.0F, 3.0F, 4.0F, 5.0F}) {
        EXPECT_EQ(brake(bound), bound);
    }
}

TEST_F(Controls, GearKeysWaitAndAreConsumedAlsoAtTheLastGear) {
    struct Press {
        std::int32_t from, up, down, to;
        std::uint64_t waited_ms;
    };
    for (const Press& keys : {Press{TOP_GEAR, 1, 0, TOP_GEAR, 300}, Press{0, 0, 1, 0, 600},
                              Press{0, 1, 1, 0, 1200}}) { // up and down again, and both wait
        gear[PLAYER_SLOT] = keys.from;
        key_down[KEY_A] = keys.up;
        key_down[KEY_Z] = keys.down;
        race_frame();
        EXPECT_EQ(gear[PLAYER_SLOT], keys.to);
        EXPECT_EQ(key_down[KEY_A] + key_down[KEY_Z], 0);
        EXPECT_EQ(scripted::slept_ms, keys.waited_ms);
    }
}

TEST_F(Controls, TheBrakeFollowsTheThrottleAndTheGearsFollowBoth) {
    gear[PLAYER_SLOT] = 2;
    velocity = 0.99F;
    key_down[VK_UP] = key_down[VK_DOWN] = 1;
    race_frame();
    EXPECT_EQ(velocity, 0.99F * 1.03F / 1.02F); // lifted into the next brake band

    gear[PLAYER_SLOT] = 0;
    velocity = 0.0F;
    key_down[KEY_A] = 1;
    race_frame();
    EXPECT_EQ(gear[PLAYER_SLOT], 1);
    EXPECT_EQ(velocity, 0.0F); // the new gear pulls from the next frame on
}

TEST_F(Controls, ARunIsCutAfter41StepsAndAfterTwoFramesWithoutSteering) {
    const auto steps_after = [](std::int32_t left, int count) {
        key_down[VK_LEFT] = left;
        frames(count);
        return steer_count[PLAYER_SLOT];
    };
    EXPECT_EQ(steps_after(1, 40), 40);
    EXPECT_EQ(steps_after(1, 1), 0);
    EXPECT_NEAR(degrees, 180.0F + 41 * 1.2F, 0.001F);
    EXPECT_EQ(steps_after(1, 5), 5);
    EXPECT_EQ(steps_after(0, 1), 5);
    EXPECT_EQ(steps_after(0, 1), 0);
}

TEST_F(Controls, BothArrowsMakeTwoStepsLeftFirst) {
    key_down[VK_LEFT] = key_down[VK_RIGHT] = 1;
    velocity = 1.0F;
    steer();
    EXPECT_EQ(steer_count[PLAYER_SLOT], 2);
    EXPECT_EQ(steer_history[0], 180.0F);
    EXPECT_FLOAT_EQ(steer_history[1], 182.2F);
    EXPECT_FLOAT_EQ(degrees, 180.0F);
}

} // namespace
} // namespace tarvik::test
