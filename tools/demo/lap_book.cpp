// Lap results from the outside: by what changed since the frame before.
#include "tools/demo/lap_book.h"

#include "race/race_state.h"

#include <cstdio>

namespace tarvik::demo {

LapEvent LapBook::look() {
    const bool clock_stopped = last_frame_cycle > 0 && cycle[PLAYER_SLOT] == 0;
    const bool was_stopped = last_frame_speed > 0.0F && speed[PLAYER_SLOT] == 0.0F;
    last_frame_cycle = cycle[PLAYER_SLOT];
    last_frame_speed = speed[PLAYER_SLOT];
    if (was_stopped) { // brakes never stop a car completely; only being put back does
        ++resets;
        ++resets_in_lap;
        std::printf("put back to the start\n");
        return LapEvent::RESET;
    }
    if (!clock_stopped) {
        return LapEvent::NONE;
    }
    ++completed;
    const int result = last_cycle[PLAYER_SLOT];
    const int off_road = static_cast<int>(penalty[PLAYER_SLOT]);
    clean += off_road == 0 ? 1 : 0;
    std::printf("lap %d: result %d (frames %d, penalty %d), resets %d\n", completed, result,
                result - off_road, off_road, resets_in_lap);
    std::fflush(stdout);
    resets_in_lap = 0;
    return LapEvent::LAP;
}

void LapBook::print_summary() const {
    if (completed > 0) {
        std::printf("%d lap%s, %d without penalty, %d resets, best result %d\n", completed,
                    completed == 1 ? "" : "s", clean, resets, best_cycle[PLAYER_SLOT]);
    }
}

} // namespace tarvik::demo
