// Shortest and cheapest paths from cell to cell.
#pragma once

#include "tools/track/tiled_grid.h"
#include "tools/track/track.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace tarvik {

/// Lengths are counted in fifths of a cell: 5 straight, 7 diagonally, 11 for a knight's move.
inline constexpr std::uint32_t LENGTH_UNITS = 5;

/// What a unit of length costs in a cell: 1 to LARGEST_COST, or 0 where there is no way.
using CellCost = std::function<std::uint32_t(int x, int y)>;
inline constexpr std::uint32_t LARGEST_COST = 1000;

/// With the knight's moves, which step over a cell, lengths are at most 2.7 % too long in any
/// direction; without them 8 %, but no wall is too thin to be noticed.
enum class Moves : std::size_t { KING = 8, KING_AND_KNIGHT = 16 };

/// Which way round an obstacle: paths of the two classes pass it on different sides (or go around
/// it once more). Which class is which side depends on where the obstacle lies.
enum class Side { ONE, OTHER };

/// All cheapest paths from one cell.
class PathSearch {
  public:
    static constexpr std::uint32_t UNREACHED = UINT32_MAX;

    /// What the path to a cell costs.
    [[nodiscard]] std::uint32_t cost_to(Cell to, Side side = Side::ONE) const;
    /// The cells of that path, both ends included; none if `to` was not reached.
    [[nodiscard]] std::vector<Cell> path_to(Cell to, Side side = Side::ONE) const;
    /// The cell reached last, where the longest path ends.
    [[nodiscard]] Cell farthest() const {
        return farthest_;
    }

  private:
    friend PathSearch search_paths(int, Cell, std::optional<Cell>, Moves, const CellCost&,
                                   std::optional<Cell>);
    PathSearch(int side, int layers, Cell from);

    int side_;
    Cell from_;
    Cell farthest_;
    // Cells of the other class are kept `side_` rows farther down.
    TiledGrid<std::uint32_t> cost_;
    TiledGrid<std::uint8_t> move_; // the number of the move that led here
};

/// Searches from `from` until `to` is reached, or everywhere. With `around`, a cell that no path
/// can enter, paths on both sides of it are told apart.
PathSearch search_paths(int side, Cell from, std::optional<Cell> to, Moves moves,
                        const CellCost& cost, std::optional<Cell> around = {});

} // namespace tarvik
