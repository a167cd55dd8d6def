// The race course: one square grid of cells, and the map file it is read from.
//
// A map file is the grid itself: TRACK_MAP_BYTES bytes, row after row from the top, nothing before
// and nothing after them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tarvik {

inline constexpr std::int32_t TRACK_WIDTH = 10000;
inline constexpr std::int32_t TRACK_HEIGHT = 10000;
inline constexpr std::uint32_t TRACK_MAP_BYTES = 100000000;

/// The one cell value that is not road.
inline constexpr std::uint8_t CELL_OFF_TRACK = 1;

/// Cell (x, y), both 0 to 9999, is at index y * TRACK_WIDTH + x. Only loading writes it.
extern std::uint8_t* track_grid;

/// Allocates the grid, off-track everywhere.
void create_track_grid();
void release_track_grid();

/// Reads a map file into the grid from cell (0, 0) on. A file that is missing (it is then created
/// empty if its folder exists) or cannot be opened changes nothing; a short one leaves the cells
/// after its end as they were. Nothing is reported.
void load_track_map(const char* file_name);

/// Whether the cell (x, y) is off the track; outside the grid everything is.
inline bool is_off_track(std::int32_t x, std::int32_t y) {
    if (x < 0 || x >= TRACK_WIDTH || y < 0 || y >= TRACK_HEIGHT) {
        return true;
    }
    return track_grid[static_cast<std::ptrdiff_t>(y) * TRACK_WIDTH + x] == CELL_OFF_TRACK;
}

} // namespace tarvik
