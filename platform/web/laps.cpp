// Laps as they are completed, seen from outside: the game itself keeps only the last and the best.
#include "platform/web/laps.h"

#include "platform/web/page.h"
#include "race/race_state.h"

namespace tarvik {

void report_lap() {
    static bool was_timed = false;
    const bool is_timed = cycle[PLAYER_SLOT] > 0;
    // A lap that is broken off leaves no result.
    if (was_timed && !is_timed && last_cycle[PLAYER_SLOT] > 0) {
        page_lap_completed(race_number, last_cycle[PLAYER_SLOT]);
    }
    was_timed = is_timed;
}

} // namespace tarvik
