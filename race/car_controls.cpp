// Steering, throttle, brake and gears, all in single precision.
#include "race/car_controls.h"

#include "platform/win32.h"
#include "race/race_state.h"
#include "race/random.h"
#include "shell/input.h"

#include <cfloat>

namespace tarvik {

// The same keys lead to the same place everywhere: no compiler may compute with more digits.
static_assert(FLT_EVAL_METHOD == 0);

namespace {

constexpr int STEER_RUN_GAP = 2;    // frames without steering that end a run
constexpr int STEER_RUN_LIMIT = 41; // steps that end a run

constexpr float PULL_AWAY_SPEED = 0.1F; // what the first gear gives a standing car

/// Speeds between which a brake band acts, both exclusive, and what it divides the speed by.
struct BrakeBand {
    float above;
    float below;
    float divisor;
};
constexpr BrakeBand BRAKE_BANDS[] = {
    {0.0F, 0.3F, 1.06F}, {0.3F, 1.0F, 1.04F},  {1.0F, 2.0F, 1.02F},
    {2.0F, 3.0F, 1.01F}, {3.0F, 4.0F, 1.005F},
};

constexpr DWORD GEAR_WAIT_MS = 300;

/// Records the heading the car has now. The history moves on by one entry except its newest two,
/// so what it holds at a fixed place falls behind as the run gets longer: that is the skid.
void record_steering_step() {
    std::int32_t& count = steer_count[PLAYER_SLOT];
    steer_history[count] = heading[PLAYER_SLOT];
    for (std::int32_t i = 0; i <= count - 2; ++i) {
        steer_history[i] = steer_history[i + 1];
    }
    ++count;
}

void wait_after_gear_key(int virtual_key) {
    Sleep(GEAR_WAIT_MS);
    key_down[virtual_key] = 0;
}

} // namespace

void steer() {
    if (is_down(VK_LEFT)) {
        record_steering_step();
        heading[PLAYER_SLOT] += STEER_DEGREES + speed[PLAYER_SLOT];
        frames_since_steer[PLAYER_SLOT] = 0;
    }
    if (is_down(VK_RIGHT)) {
        record_steering_step();
        heading[PLAYER_SLOT] -= STEER_DEGREES + speed[PLAYER_SLOT];
        frames_since_steer[PLAYER_SLOT] = 0;
    }
}

void end_steering_run() {
    if (frames_since_steer[PLAYER_SLOT] >= STEER_RUN_GAP ||
        steer_count[PLAYER_SLOT] >= STEER_RUN_LIMIT) {
        rand(); // unused, but later draws depend on it
        steer_count[PLAYER_SLOT] = 0;
    }
}

void apply_throttle() {
    if (!is_down(VK_UP)) {
        return;
    }
    float& car_speed = speed[PLAYER_SLOT];
    const std::int32_t car_gear = gear[PLAYER_SLOT];
    if (car_gear == 1 && car_speed < PULL_AWAY_SPEED) {
        car_speed = PULL_AWAY_SPEED;
    }
    const GearRange& range = GEAR_RANGES[car_gear];
    // Only the first gear pulls at its lower bound, where it has just put a standing car.
    const bool fast_enough = car_gear == 1 ? car_speed >= range.above : car_speed > range.above;
    if (fast_enough && car_speed < range.below) {
        car_speed *= range.factor;
    }
}

void apply_brake() {
    if (!is_down(VK_DOWN)) {
        return;
    }
    float& car_speed = speed[PLAYER_SLOT];
    for (const BrakeBand& band : BRAKE_BANDS) {
        if (car_speed > band.above && car_speed < band.below) {
            car_speed /= band.divisor;
            return;
        }
    }
}

void shift_gear_up() {
    if (!is_down(KEY_GEAR_UP)) {
        return;
    }
    if (gear[PLAYER_SLOT] < TOP_GEAR) {
        ++gear[PLAYER_SLOT];
    }
    wait_after_gear_key(KEY_GEAR_UP);
}

void shift_gear_down() {
    if (!is_down(KEY_GEAR_DOWN)) {
        return;
    }
    if (gear[PLAYER_SLOT] > 0) {
        --gear[PLAYER_SLOT];
    }
    wait_after_gear_key(KEY_GEAR_DOWN);
}

} // namespace tarvik
