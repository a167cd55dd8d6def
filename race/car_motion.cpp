// One step of the player's car.
#include "race/car_motion.h"

#include "race/car_outline.h"
#include "race/heading.h"
#include "race/race_state.h"
#include "race/random.h"
#include "race/track_grid.h"

namespace tarvik {

std::int32_t hits = 0;

namespace {

/// Steering steps that a run must have for the car to skid, and the history entry it skids along.
constexpr int SKID_STEER_COUNT = 16;
constexpr int SKID_HISTORY_ENTRY = 15;
/// Of SKID_DRAWS equally likely draws, those from GRIP_DRAW on find grip even in a skid.
constexpr std::int32_t SKID_DRAWS = 30;
constexpr std::int32_t GRIP_DRAW = 27;

// Of the frame in progress: along the car's heading, and along the one it skids on.
Step normal_step;
Step skid_step;

void advance(const Step& step) {
    car_x[PLAYER_SLOT] += step.x;
    car_y[PLAYER_SLOT] += step.y;
}

} // namespace

void prepare_move() {
    compute_outline(heading[PLAYER_SLOT]);
    const auto distance = static_cast<double>(speed[PLAYER_SLOT]);
    normal_step = step_along(heading[PLAYER_SLOT], distance);
    skid_step = step_along(steer_history[SKID_HISTORY_ENTRY], distance);
}

void move_car() {
    if (speed[PLAYER_SLOT] < SKID_SPEED) {
        advance(normal_step);
        return;
    }
    const bool grip = rand() % SKID_DRAWS >= GRIP_DRAW;
    if (!grip && steer_count[PLAYER_SLOT] >= SKID_STEER_COUNT) {
        advance(skid_step);
        rand(); // unused, but later draws depend on it
    } else {
        advance(normal_step);
    }
}

void draw_car_and_test_road() {
    const float x = car_x[PLAYER_SLOT];
    const float y = car_y[PLAYER_SLOT];
    draw_outline_point(x, y, OUTLINE_NOSE, PLAYER_SLOT); // never tested
    hits = 0;
    for (int p = OUTLINE_NOSE + 1; p < OUTLINE_POINTS; ++p) {
        const auto cell_x = static_cast<std::int32_t>(x + outline_dx[p]);
        const auto cell_y = static_cast<std::int32_t>(y + outline_dy[p]);
        if (is_off_track(cell_x, cell_y)) {
            penalty[PLAYER_SLOT] += 1.0F;
            ++hits;
        }
        draw_outline_point(x, y, p, PLAYER_SLOT);
    }
}

} // namespace tarvik
