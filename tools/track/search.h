// Best-first searches from cell to cell: shortest ways, widest ways, and what can be reached at
// all.
#pragma once

#include "tools/track/track.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tarvik {

/// Lengths are counted in fifths of a cell: 5 for a straight step, 7 for a diagonal one.
inline constexpr std::uint32_t LENGTH_UNITS = 5;

/// The key of a cell reached by a step of this length from a cell with the key `from`, or NO_WAY.
/// A key is never smaller than `from`, nor larger by LARGEST_RISE or more.
using StepKey = std::function<std::uint32_t(std::uint32_t from, Cell to, std::uint32_t length)>;
inline constexpr std::uint32_t NO_WAY = UINT32_MAX;
inline constexpr std::uint32_t LARGEST_RISE = 1U << 17;

struct KeyedCell {
    Cell cell;
    std::uint32_t key = 0;
};

/// Which way round an obstacle: ways of the two classes pass it on different sides, or go around it
/// once more. Which class is which side depends on where the obstacle lies.
enum class Side { ONE, OTHER };

/// Finds the smallest key of every cell, smaller ones first, starting at `origins`. With `around`,
/// a cell that no way can enter, ways on both sides of it are told apart.
class Search {
  public:
    Search(int side, const std::vector<KeyedCell>& origins, const StepKey& step_key,
           std::optional<Cell> around = {});

    [[nodiscard]] std::optional<std::uint32_t> key(Cell cell, Side side = Side::ONE) const;
    /// The way to a cell that was reached, both ends included.
    [[nodiscard]] std::vector<Cell> way_to(Cell cell, Side side = Side::ONE) const;
    /// The cells reached, in the order of their keys; with `around` some twice.
    [[nodiscard]] const std::vector<Cell>& reached() const {
        return reached_;
    }

  private:
    [[nodiscard]] std::size_t index(Cell cell, int layer) const {
        return static_cast<std::size_t>(cell.y + layer * side_) * static_cast<std::size_t>(side_) +
               static_cast<std::size_t>(cell.x);
    }

    int side_;
    // Per cell the key and the step that led there, 0 where none did. From calloc, since a road
    // touches few of its pages, and those that nobody touches take no memory.
    struct Free {
        void operator()(void* memory) const {
            std::free(memory);
        }
    };
    std::unique_ptr<std::uint32_t[], Free> states_;
    std::vector<Cell> reached_;
};

} // namespace tarvik
