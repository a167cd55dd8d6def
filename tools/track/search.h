// Best-first searches from cell to cell: shortest ways, widest ways, and what can be reached at
// all. Dijkstra's algorithm with buckets instead of a heap, since keys are whole numbers that rise
// by little.
#pragma once

#include "tools/track/track.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <optional>
#include <vector>

namespace tarvik {

/// Lengths are counted in fifths of a cell: 5 for a straight step, 7 for a diagonal one.
inline constexpr std::uint32_t LENGTH_UNITS = 5;

inline constexpr std::uint32_t NO_WAY = UINT32_MAX;
inline constexpr std::uint32_t LARGEST_RISE = 1U << 17;

struct KeyedCell {
    Cell cell;
    std::uint32_t key = 0;
};

/// Finds the smallest key of every cell, smaller ones first, starting at `origins`. The key of a
/// cell reached by a step of some length from a cell with the key `from` is step_key(from, cell,
/// length), or NO_WAY; it is never smaller than `from`, nor larger by LARGEST_RISE or more.
///
/// With `around`, a cell that no way can enter, ways on both sides of it are told apart: those of
/// class 0 and of class 1 pass it on different sides, or go around it once more.
class Search {
  public:
    template <typename StepKey>
    Search(int side, const std::vector<KeyedCell>& origins, StepKey step_key,
           std::optional<Cell> around = {})
        : side_(side), states_(static_cast<std::uint32_t*>(
                           std::calloc(index({0, 0}, around ? 2 : 1), sizeof(std::uint32_t)))) {
        if (states_ == nullptr) {
            throw std::bad_alloc();
        }
        struct Waiting {
            Cell cell;
            int way_class = 0;
        };
        std::vector<std::vector<Waiting>> buckets(LARGEST_RISE); // by key, used in turn
        std::size_t waiting = 0;
        const auto reach = [&](Waiting to, std::uint32_t key, std::uint32_t step) {
            std::uint32_t& state = states_[index(to.cell, to.way_class)];
            if (state == 0 || key + 1 < state >> KEY_BIT) {
                state = (key + 1) << KEY_BIT | step;
                buckets[key % LARGEST_RISE].push_back(to);
                ++waiting;
            }
        };
        for (const KeyedCell& origin : origins) {
            reach({origin.cell, 0}, origin.key, 0);
        }
        for (std::uint32_t now = 0; waiting > 0; ++now) {
            std::vector<Waiting>& bucket = buckets[now % LARGEST_RISE];
            while (!bucket.empty()) {
                const auto [cell, way_class] = bucket.back();
                bucket.pop_back();
                --waiting;
                if (states_[index(cell, way_class)] >> KEY_BIT != now + 1) {
                    continue; // reached with a smaller key since
                }
                reached_.push_back(cell);
                for (std::uint32_t i = 0; i < STEPS.size(); ++i) {
                    const Cell next{cell.x + STEPS[i].x, cell.y + STEPS[i].y};
                    if (next.x < 0 || next.y < 0 || next.x >= side || next.y >= side) {
                        continue;
                    }
                    const int crossed = around && crosses_ray(cell, next, *around) ? 1 : 0;
                    const Waiting to{next, way_class ^ crossed};
                    const std::uint32_t known = states_[index(next, to.way_class)];
                    if (known == 0 || known >> KEY_BIT > now + 1) { // else there is nothing to gain
                        const std::uint32_t next_key =
                            step_key(now, next, i < STRAIGHT_STEPS ? 5U : 7U);
                        if (next_key != NO_WAY) {
                            reach(to, next_key,
                                  (i + 1) | static_cast<std::uint32_t>(crossed) << CROSSED_BIT);
                        }
                    }
                }
            }
        }
    }

    [[nodiscard]] std::optional<std::uint32_t> key(Cell cell, int way_class = 0) const {
        const std::uint32_t state = states_[index(cell, way_class)];
        return state == 0 ? std::nullopt : std::optional((state >> KEY_BIT) - 1);
    }
    /// The way to a cell that was reached, both ends included.
    [[nodiscard]] std::vector<Cell> way_to(Cell cell, int way_class = 0) const {
        std::vector<Cell> way = {cell};
        std::uint32_t state = states_[index(cell, way_class)];
        for (; (state & STEP_MASK) != 0; state = states_[index(cell, way_class)]) {
            const Cell step = STEPS[(state & STEP_MASK) - 1];
            cell = {cell.x - step.x, cell.y - step.y};
            way_class ^= static_cast<int>(state >> CROSSED_BIT & 1);
            way.push_back(cell);
        }
        std::ranges::reverse(way);
        return way;
    }
    /// The cells reached, in the order of their keys; with `around` some twice.
    [[nodiscard]] const std::vector<Cell>& reached() const {
        return reached_;
    }

  private:
    static constexpr std::array<Cell, 8> STEPS = {
        {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}}};
    static constexpr std::uint32_t STRAIGHT_STEPS = 4;

    // A state is 0 or, from the lowest bit: the number of the last step, counted from 1, or 0 at an
    // origin; whether that step led to the other class; the key plus one.
    static constexpr std::uint32_t STEP_MASK = 15;
    static constexpr int CROSSED_BIT = 4;
    static constexpr int KEY_BIT = 5;

    // Whether a step crosses the ray from `around` to the right edge of the grid, which runs just
    // below its row. Ways of the two classes cross it an even and an odd number of times.
    static bool crosses_ray(Cell from, Cell to, Cell around) {
        return (from.y <= around.y) != (to.y <= around.y) && from.x + to.x > 2 * around.x;
    }

    [[nodiscard]] std::size_t index(Cell cell, int way_class) const {
        return static_cast<std::size_t>(cell.y + way_class * side_) *
                   static_cast<std::size_t>(side_) +
               static_cast<std::size_t>(cell.x);
    }

    int side_;
    // For every cell, of each class. From calloc, since a road touches few of its pages, and those
    // that nobody touches take no memory.
    struct Free {
        void operator()(void* memory) const {
            std::free(memory);
        }
    };
    std::unique_ptr<std::uint32_t[], Free> states_;
    std::vector<Cell> reached_;
};

} // namespace tarvik
