// Painting the track and the status texts.
#include "race/track_view.h"

#include "race/race_state.h"
#include "race/track_grid.h"
#include "race/view.h"
#include "render/frame_buffer.h"
#include "render/text.h"

#include <cstdio>

namespace tarvik {

namespace {

constexpr std::int32_t BLOCK = 4; // cells of a row looked at together
static_assert(LOGICAL_WIDTH % BLOCK == 0);

/// Whether the next BLOCK cells are all alike, as they are nearly everywhere in the view.
bool are_alike(const std::uint8_t* cell) {
    return cell[0] == cell[1] && cell[0] == cell[2] && cell[0] == cell[3];
}

/// Unrolled, and for one colour, so that each line compiles to four plain stores.
template <int RED, int GREEN, int BLUE>
void plot_block(std::int32_t i, std::int32_t j) {
    plot(i, j, RED, GREEN, BLUE);
    plot(i + 1, j, RED, GREEN, BLUE);
    plot(i + 2, j, RED, GREEN, BLUE);
    plot(i + 3, j, RED, GREEN, BLUE);
}

void plot_cell(std::int32_t i, std::int32_t j, std::uint8_t cell) {
    const bool road = cell != CELL_OFF_TRACK;
    plot(i, j, road ? 60 : 0, road ? 60 : 200, road ? 60 : 0);
}

void draw_track() {
    for (std::int32_t j = 0; j < LOGICAL_HEIGHT; ++j) {
        const std::uint8_t* cell =
            track_grid + static_cast<std::ptrdiff_t>(j + view_y) * TRACK_WIDTH + view_x;
        for (std::int32_t i = 0; i < LOGICAL_WIDTH; i += BLOCK, cell += BLOCK) {
            if (!are_alike(cell)) {
                for (std::int32_t n = 0; n < BLOCK; ++n) {
                    plot_cell(i + n, j, cell[n]);
                }
            } else if (*cell == CELL_OFF_TRACK) {
                plot_block<0, 200, 0>(i, j);
            } else {
                plot_block<60, 60, 60>(i, j);
            }
        }
    }
}

const char* difficulty_name() {
    switch (difficulty) {
    case EASY:
        return "Easy";
    case THOUGH:
        return "Though";
    default:
        return "Advanced";
    }
}

void draw_status(std::int32_t x, std::int32_t y) {
    draw_text(x, y, 255, 255, 255);
}

// The blanks in the formats align the right-hand texts in columns.
void draw_hud() {
    std::snprintf(text_buffer, TEXT_BUFFER_SIZE, "Gear : %d", gear[PLAYER_SLOT]);
    draw_status(30, 30);
    std::snprintf(text_buffer, TEXT_BUFFER_SIZE, "%s", difficulty_name());
    draw_status(30, 44);
    std::snprintf(text_buffer, TEXT_BUFFER_SIZE, "                          Best Cycle : %d",
                  best_cycle[PLAYER_SLOT]);
    draw_status(146, 16);
    std::snprintf(text_buffer, TEXT_BUFFER_SIZE, "Race ended : %d           Cycle : %d",
                  last_cycle[PLAYER_SLOT], cycle[PLAYER_SLOT]);
    draw_status(146, 30);
    std::snprintf(text_buffer, TEXT_BUFFER_SIZE, "                          Punition : %d",
                  static_cast<std::int32_t>(penalty[PLAYER_SLOT]));
    draw_status(146, 44);
}

} // namespace

void draw_track_and_hud() {
    draw_track();
    draw_hud();
}

} // namespace tarvik
