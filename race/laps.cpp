// The lap's start, its clock, its completion and its recording.
#include "race/laps.h"

#include "race/ghosts.h"
#include "race/race_state.h"

#include <algorithm>

namespace tarvik {

namespace {

bool is_in_box() {
    const float x = car_x[PLAYER_SLOT];
    const float y = car_y[PLAYER_SLOT];
    return x > BOX_LEFT && x < BOX_LEFT + BOX_SIZE && y > BOX_TOP && y < BOX_TOP + BOX_SIZE;
}

/// The penalty stays on show until the next lap starts.
void complete_lap() {
    last_cycle[PLAYER_SLOT] = static_cast<std::int32_t>(penalty[PLAYER_SLOT]) + cycle[PLAYER_SLOT];
    best_cycle[PLAYER_SLOT] = std::min(best_cycle[PLAYER_SLOT], last_cycle[PLAYER_SLOT]);
    cycle[PLAYER_SLOT] = 0;
    shift_ghosts();
}

} // namespace

void record_lap_frame() {
    const std::int32_t frame = cycle[PLAYER_SLOT];
    if (frame > 0) {
        ghost_x[PLAYER_SLOT][frame] = car_x[PLAYER_SLOT];
        ghost_y[PLAYER_SLOT][frame] = car_y[PLAYER_SLOT];
        ghost_heading[PLAYER_SLOT][frame] = heading[PLAYER_SLOT];
    }
}

void check_lap() {
    if (!is_in_box()) {
        return;
    }
    if (cycle[PLAYER_SLOT] == 0) {
        cycle[PLAYER_SLOT] = 1;
        penalty[PLAYER_SLOT] = 0.0F;
    }
    if (cycle[PLAYER_SLOT] > MIN_LAP_FRAMES) {
        complete_lap();
    }
}

void advance_lap_clock() {
    if (cycle[PLAYER_SLOT] > 0) {
        ++cycle[PLAYER_SLOT];
    }
}

} // namespace tarvik
