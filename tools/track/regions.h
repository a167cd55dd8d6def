// Connected regions of a grid.
#pragma once

#include "tools/track/track.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarvik {

/// A byte for every cell of a square grid.
using CellMask = std::vector<std::uint8_t>;

struct Region {
    int left = 0; ///< the smallest rectangle around it, all included
    int top = 0;
    int right = 0;
    int bottom = 0;
    Cell cell; ///< one of its cells
};

/// The regions of the cells whose byte is (`wanted` true) or is not (false) 0.
class Regions {
  public:
    /// `diagonal`: cells that touch at a corner belong together.
    Regions(const CellMask& mask, int side, bool wanted, bool diagonal);

    [[nodiscard]] const std::vector<Region>& all() const {
        return regions_;
    }
    /// The number of the cell's region, or -1.
    [[nodiscard]] int at(Cell cell) const;
    /// Sets every cell of the mask outside the region to `value`.
    void keep_only(int region, CellMask& mask, std::uint8_t value) const;

  private:
    struct Run {
        int first; // columns, both included
        int last;
        int region;
    };
    void find_runs(const CellMask& mask, bool wanted);
    void number_regions(std::vector<int>& joined_with);

    int side_;
    std::vector<Run> runs_;            // row after row, from left to right
    std::vector<std::size_t> row_end_; // per row the number of runs up to its end
    std::vector<Region> regions_;
};

} // namespace tarvik
