// The bounds of each value, as tight as the rules of the game make them.
#include "tests/support/invariants.h"

#include "platform/win32.h"
#include "race/car_controls.h"
#include "race/laps.h"
#include "race/race_state.h"
#include "race/track_grid.h"
#include "race/view.h"
#include "render/text.h"
#include "shell/input.h"
#include "shell/screen.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <set>

namespace tarvik::test {

namespace {

constexpr int P = PLAYER_SLOT;
// What the sixth gear's last pull leads to, from just below 3.3.
constexpr float HIGHEST_SPEED = 3.3F * 1.001F;
// A run is cut at 41 steps in the frame that reaches them; two steps a frame can make that 42.
constexpr int MOST_STEERING_STEPS = 40;
constexpr int HISTORY_WRITTEN = 42;
// Where a float no longer grows by the largest step that is added to it.
constexpr double FARTHEST_CELL = 67108864;    // 2^26, by up to 3.3 cells
constexpr double LARGEST_HEADING = 134217728; // 2^27, by up to 4.5 degrees
constexpr double LARGEST_PENALTY = 16777216;  // 2^24, by 1
constexpr std::int32_t LARGEST_CYCLE = CYCLE_LIMIT + 1;

/// The first fault that was found.
std::string first_fault;

void expect(bool holds, const char* what, double value) {
    if (!holds && first_fault.empty()) {
        first_fault = what + (": " + std::to_string(value));
    }
}

void expect_in(double low, double value, double high, const char* what) {
    expect(value >= low && value <= high, what, value); // no NaN either
}

void check_car() {
    expect_in(0, speed[P], HIGHEST_SPEED, "speed");
    expect_in(-FARTHEST_CELL, car_x[P], FARTHEST_CELL, "car_x");
    expect_in(-FARTHEST_CELL, car_y[P], FARTHEST_CELL, "car_y");
    expect_in(-LARGEST_HEADING, heading[P], LARGEST_HEADING, "heading");
    expect_in(0, gear[P], TOP_GEAR, "gear");
    expect_in(0, frames_since_steer[P], INT32_MAX, "frames_since_steer");
    expect_in(0, steer_count[P], frames_since_steer[P] < 2 ? MOST_STEERING_STEPS : 0,
              "steer_count");
    for (int i = 0; i < STEER_HISTORY_SIZE; ++i) {
        const double reached = i < HISTORY_WRITTEN ? LARGEST_HEADING : 0;
        expect_in(-reached, steer_history[i], reached, "steer_history");
    }
}

void check_laps() {
    // A timed lap has counted its first frame by the end of that frame.
    expect(cycle[P] != 1, "cycle", cycle[P]);
    expect_in(0, cycle[P], LARGEST_CYCLE, "cycle");
    expect_in(0, penalty[P], LARGEST_PENALTY, "penalty");
    expect(penalty[P] == std::trunc(penalty[P]), "penalty not whole", 0);
    expect(last_cycle[P] == 0 || last_cycle[P] > MIN_LAP_FRAMES, "last_cycle", last_cycle[P]);
    expect_in(MIN_LAP_FRAMES + 1, best_cycle[P],
              last_cycle[P] == 0 ? BEST_CYCLE_NONE : std::min(BEST_CYCLE_NONE, last_cycle[P]),
              "best_cycle");
    expect_in(EASY, difficulty, ADVANCED, "difficulty");
    expect_in(1, race_number, 2, "race_number");
}

void check_ghosts() {
    std::set<const float*> buffers;
    for (float** kind : {ghost_x, ghost_y, ghost_heading}) {
        buffers.insert(kind, kind + CAR_SLOTS);
        const float unrecorded = kind == ghost_heading ? GHOST_NO_HEADING : GHOST_NOWHERE;
        for (int slot = P; slot <= LAST_GHOST_SLOT; ++slot) {
            // Laps are recorded from entry 2 to entry LARGEST_CYCLE; the others never change.
            for (const std::int32_t entry : {0, 1, LARGEST_CYCLE + 1, GHOST_FRAMES - 1}) {
                expect(kind[slot][entry] == unrecorded, "ghost entry", entry);
            }
        }
    }
    expect(buffers.size() == 3 * CAR_SLOTS, "a ghost buffer in two slots", 0);
}

void check_view(const char* what, std::int32_t view, double car, std::int32_t shown, double cells) {
    const double first = std::trunc(car) - shown / 2; // may be no number
    expect(view == std::clamp(first, 0.0, cells - shown), what, view);
}

void check_input() {
    for (const std::int32_t down : key_down) {
        expect_in(0, down, 1, "key_down");
    }
    for (const int consumed : {KEY_GEAR_UP, KEY_GEAR_DOWN, VK_F1, VK_F2}) {
        expect(key_down[consumed] == 0, "not consumed: key", consumed);
    }
}

} // namespace

std::string find_fault() {
    first_fault.clear();
    expect(std::memchr(text_buffer, '\0', TEXT_BUFFER_SIZE) != nullptr, "end of the text within",
           TEXT_BUFFER_SIZE);
    check_car();
    check_laps();
    check_ghosts();
    check_view("view_x", view_x, car_x[P], LOGICAL_WIDTH, TRACK_WIDTH);
    check_view("view_y", view_y, car_y[P], LOGICAL_HEIGHT, TRACK_HEIGHT);
    check_input();
    return first_fault;
}

} // namespace tarvik::test
