// Ghost laps change slots by passing their buffers on; only the newest lap is copied.
#include "race/ghosts.h"

#include "race/car_outline.h"
#include "race/race_state.h"

#include <algorithm>

namespace tarvik {

namespace {

/// The player's slot keeps its content, which the next lap overwrites entry by entry: if that lap
/// is shorter, the rest of this one stays after its end.
void shift_buffers(float** buffers) {
    std::rotate(buffers + FIRST_GHOST_SLOT, buffers + LAST_GHOST_SLOT,
                buffers + LAST_GHOST_SLOT + 1);
    std::copy_n(buffers[PLAYER_SLOT], GHOST_FRAMES, buffers[FIRST_GHOST_SLOT]);
}

} // namespace

void shift_ghosts() {
    shift_buffers(ghost_x);
    shift_buffers(ghost_y);
    shift_buffers(ghost_heading);
}

void draw_ghosts() {
    const std::int32_t frame = cycle[PLAYER_SLOT];
    for (int slot = FIRST_GHOST_SLOT; slot <= LAST_GHOST_SLOT; ++slot) {
        compute_outline(ghost_heading[slot][frame]);
        for (int p = 0; p < OUTLINE_POINTS; ++p) {
            draw_outline_point(ghost_x[slot][frame], ghost_y[slot][frame], p, slot);
        }
    }
}

} // namespace tarvik
