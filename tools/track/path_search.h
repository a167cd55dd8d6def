// Cheapest paths from cell to cell.
#pragma once

#include "tools/track/tiled_grid.h"
#include "tools/track/track.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace tarvik {

/// Lengths are counted in fifths of a cell: 5 straight, 7 diagonally, 11 for a knight's move.
inline constexpr std::uint32_t LENGTH_UNITS = 5;

/// What a unit of length costs in a cell: 1 to LARGEST_COST, or 0 where there is no way.
using CellCost = std::function<std::uint32_t(int x, int y)>;
inline constexpr std::uint32_t LARGEST_COST = 1000;

struct PathSearch {
    static constexpr std::uint32_t UNREACHED = UINT32_MAX;
    TiledGrid<std::uint32_t> cost;
    TiledGrid<std::uint8_t> move; ///< the number of the move that led here
    Cell from;
    Cell farthest; ///< the cell reached last

    /// The cells from `from` to `to`, both included; none if `to` was not reached.
    [[nodiscard]] std::vector<Cell> path_to(Cell to) const;
};

/// With the knight's moves, which step over a cell, lengths are at most 2.7 % too long in any
/// direction; without them 8 %, but no wall is too thin to be noticed.
enum class Moves : std::size_t { KING = 8, KING_AND_KNIGHT = 16 };

/// Searches from `from` to every cell that can be reached, or until `to` is settled.
PathSearch search_paths(int side, Cell from, Cell to, Moves moves, const CellCost& cost);

} // namespace tarvik
