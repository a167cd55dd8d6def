// Lap results in words.
#include "tools/demo/lap_book.h"

#include "race/race_state.h"

#include <cstdio>

namespace tarvik::demo {

void LapBook::enter(LapEvent event) {
    if (event == LapEvent::RESET) {
        ++resets;
        ++resets_in_lap;
        std::printf("put back to the start\n");
    }
    if (event != LapEvent::LAP) {
        return;
    }
    ++completed;
    const int result = last_cycle[PLAYER_SLOT];
    const int off_road = static_cast<int>(penalty[PLAYER_SLOT]);
    clean += off_road == 0 ? 1 : 0;
    std::printf("lap %d: result %d (frames %d, penalty %d), resets %d\n", completed, result,
                result - off_road, off_road, resets_in_lap);
    std::fflush(stdout);
    resets_in_lap = 0;
}

void LapBook::print_summary() const {
    if (completed > 0) {
        std::printf("%d lap%s, %d without penalty, %d resets, best result %d\n", completed,
                    completed == 1 ? "" : "s", clean, resets, best_cycle[PLAYER_SLOT]);
    }
}

} // namespace tarvik::demo
