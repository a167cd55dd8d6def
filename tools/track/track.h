// The track grid as the tools see it: its cells, the start and the start/finish box.
#pragma once

#include "race/laps.h"
#include "race/race_state.h"
#include "race/track_grid.h"

#include <cstddef>
#include <cstdint>

namespace tarvik {

inline constexpr int MAP_SIDE = TRACK_WIDTH; ///< cells to a side of a track map
static_assert(TRACK_WIDTH == TRACK_HEIGHT);
inline constexpr std::size_t MAP_BYTES = TRACK_MAP_BYTES;

inline constexpr std::uint8_t CELL_GRASS = CELL_OFF_TRACK;
inline constexpr std::uint8_t CELL_ROAD = 0; ///< what these tools write; any value but 1 is road

/// A car starts in this cell, heading up.
inline constexpr int START_CELL_X = static_cast<int>(START_X);
inline constexpr int START_CELL_Y = static_cast<int>(START_Y);

/// The last column of the start/finish box, its last row, and the cell in its middle.
inline constexpr int BOX_RIGHT = BOX_LEFT + BOX_SIZE - 1;
inline constexpr int BOX_BOTTOM = BOX_TOP + BOX_SIZE - 1;
inline constexpr int BOX_CENTRE_X = BOX_LEFT + BOX_SIZE / 2;
inline constexpr int BOX_CENTRE_Y = BOX_TOP + BOX_SIZE / 2;

struct Cell {
    int x = 0;
    int y = 0;
    bool operator==(const Cell&) const = default;
};

/// A square grid of cells, row after row from the top. Maps have MAP_SIDE cells to a side; a
/// smaller one does wherever a whole map is not needed, as long as the start lies in it.
struct TrackView {
    const std::uint8_t* cells = nullptr;
    int side = 0;

    [[nodiscard]] bool contains(int x, int y) const {
        return x >= 0 && y >= 0 && x < side && y < side;
    }
    [[nodiscard]] std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(side) +
               static_cast<std::size_t>(x);
    }
    [[nodiscard]] Cell cell_at(std::ptrdiff_t index) const {
        return {static_cast<int>(index % side), static_cast<int>(index / side)};
    }
    /// Everything outside the grid is grass, as it is for the car.
    [[nodiscard]] bool is_road(int x, int y) const {
        return contains(x, y) && cells[index(x, y)] != CELL_GRASS;
    }
};

} // namespace tarvik
