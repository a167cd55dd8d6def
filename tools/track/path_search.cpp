// Shortest and cheapest paths: Dijkstra's algorithm with buckets instead of a heap, since all costs
// are small whole numbers.
#include "tools/track/path_search.h"

#include <algorithm>
#include <array>

namespace tarvik {
namespace {

struct Move {
    int dx;
    int dy;
    std::uint32_t length;
};

constexpr std::array<Move, 16> MOVES = {{{1, 0, 5},
                                         {-1, 0, 5},
                                         {0, 1, 5},
                                         {0, -1, 5},
                                         {1, 1, 7},
                                         {1, -1, 7},
                                         {-1, 1, 7},
                                         {-1, -1, 7},
                                         {2, 1, 11},
                                         {2, -1, 11},
                                         {-2, 1, 11},
                                         {-2, -1, 11},
                                         {1, 2, 11},
                                         {1, -2, 11},
                                         {-1, 2, 11},
                                         {-1, -2, 11}}};
constexpr std::uint32_t LONGEST_MOVE = 11;

// How a move is kept: its number, and a bit more if it crossed over to the other side.
constexpr int CROSSED_BIT = 4;
constexpr int NUMBER_MASK = 15;

// Whether a move crosses the ray from `around` to the right edge of the grid, which runs just below
// its row. Paths of the two sides cross it an even and an odd number of times.
bool crosses_ray(Cell from, Cell to, Cell around) {
    return (from.y <= around.y) != (to.y <= around.y) && from.x + to.x > 2 * around.x;
}

} // namespace

PathSearch::PathSearch(int side, int layers, Cell from)
    : side_(side), from_(from), farthest_(from), cost_(side, side * layers, UNREACHED),
      move_(side, side * layers, 0) {}

std::uint32_t PathSearch::cost_to(Cell to, Side side) const {
    return cost_.get(to.x, side == Side::ONE ? to.y : to.y + side_);
}

std::vector<Cell> PathSearch::path_to(Cell to, Side side) const {
    std::vector<Cell> path;
    if (cost_to(to, side) == UNREACHED) {
        return path;
    }
    int layer = side == Side::ONE ? 0 : 1;
    path.push_back(to);
    while (!(to == from_ && layer == 0)) {
        const std::uint8_t taken = move_.get(to.x, to.y + layer * side_);
        const Move& move = MOVES[taken & NUMBER_MASK];
        to = {to.x - move.dx, to.y - move.dy};
        layer ^= taken >> CROSSED_BIT;
        path.push_back(to);
    }
    std::reverse(path.begin(), path.end());
    return path;
}

PathSearch search_paths(int side, Cell from, std::optional<Cell> to, Moves moves,
                        const CellCost& cost, std::optional<Cell> around) {
    PathSearch search(side, around ? 2 : 1, from);
    struct Reached {
        Cell cell;
        int layer;
    };
    // A bucket per cost, used in turn: what is waiting never spans more than one move's cost.
    std::vector<std::vector<Reached>> buckets(LARGEST_COST * LONGEST_MOVE + 1);
    search.cost_.set(from.x, from.y, 0);
    buckets[0].push_back({from, 0});
    std::size_t waiting = 1;
    for (std::uint32_t now = 0; waiting > 0; ++now) {
        std::vector<Reached>& bucket = buckets[now % buckets.size()];
        while (!bucket.empty()) {
            const auto [cell, layer] = bucket.back();
            bucket.pop_back();
            --waiting;
            if (search.cost_.get(cell.x, cell.y + layer * side) != now) {
                continue; // reached more cheaply since
            }
            search.farthest_ = cell;
            if (to && cell == *to && !around) {
                return search;
            }
            for (std::size_t number = 0; number < static_cast<std::size_t>(moves); ++number) {
                const Move& move = MOVES[number];
                const Cell next{cell.x + move.dx, cell.y + move.dy};
                if (next.x < 0 || next.y < 0 || next.x >= side || next.y >= side) {
                    continue;
                }
                const std::uint32_t unit = cost(next.x, next.y);
                if (unit == 0) {
                    continue;
                }
                const int crossed = around && crosses_ray(cell, next, *around) ? 1 : 0;
                const int row = next.y + (layer ^ crossed) * side;
                const std::uint32_t total = now + unit * move.length;
                if (total >= search.cost_.get(next.x, row)) {
                    continue;
                }
                search.cost_.set(next.x, row, total);
                search.move_.set(
                    next.x, row,
                    static_cast<std::uint8_t>(static_cast<int>(number) | crossed << CROSSED_BIT));
                buckets[total % buckets.size()].push_back({next, layer ^ crossed});
                ++waiting;
            }
        }
    }
    return search;
}

} // namespace tarvik
