// Painting the track and the status texts.
#include "race/track_view.h"

#include "race/race_state.h"
#include "race/track_grid.h"
#include "race/view.h"
#include "render/frame_buffer.h"
#include "render/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace tarvik {

namespace {

/// A row of the frame buffer that is all one colour.
using Row = std::array<std::uint8_t, ROW_BYTES>;

constexpr Row row_of(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    Row row = {};
    for (std::size_t n = 0; n < row.size(); n += PIXEL_BYTES) {
        row[n] = red;
        row[n + 1] = green;
        row[n + 2] = blue;
    }
    return row;
}

constexpr Row OFF_TRACK_ROW = row_of(0, 200, 0);
constexpr Row ROAD_ROW = row_of(60, 60, 60);

/// Copies runs of like cells, and each row to its twin, instead of plotting cell by cell: the track
/// is nearly all of what a frame stores, and all of the view lies inside the frame buffer.
void draw_track() {
    for (std::int32_t j = 0; j < LOGICAL_HEIGHT; ++j) {
        const std::uint8_t* cell =
            track_grid + static_cast<std::ptrdiff_t>(j + view_y) * TRACK_WIDTH + view_x;
        const std::uint8_t* row_end = cell + LOGICAL_WIDTH;
        std::uint8_t* upper = pixel_at(0, 2 * j);
        for (std::uint8_t* pixels = upper; cell < row_end;) {
            const bool off_track = *cell == CELL_OFF_TRACK;
            const std::uint8_t* run_end = std::find_if(cell, row_end, [off_track](std::uint8_t c) {
                return (c == CELL_OFF_TRACK) != off_track;
            });
            const std::ptrdiff_t bytes = (run_end - cell) * 2 * PIXEL_BYTES;
            pixels = std::copy_n((off_track ? OFF_TRACK_ROW : ROAD_ROW).data(), bytes, pixels);
            cell = run_end;
        }
        std::copy_n(upper, ROW_BYTES, pixel_at(0, 2 * j + 1));
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
