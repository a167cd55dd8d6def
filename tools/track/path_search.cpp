// Cheapest paths from cell to cell: Dijkstra's algorithm with buckets instead of a heap, since all
// costs are small whole numbers.
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

} // namespace

std::vector<Cell> PathSearch::path_to(Cell to) const {
    std::vector<Cell> path;
    if (cost.get(to.x, to.y) == UNREACHED) {
        return path;
    }
    path.push_back(to);
    while (!(to == from)) {
        const Move& taken = MOVES[move.get(to.x, to.y)];
        to = {to.x - taken.dx, to.y - taken.dy};
        path.push_back(to);
    }
    std::reverse(path.begin(), path.end());
    return path;
}

PathSearch search_paths(int side, Cell from, Cell to, Moves moves, const CellCost& cost) {
    PathSearch search{{side, PathSearch::UNREACHED}, {side, 0}, from, from};
    // A bucket per cost, used in turn: what is waiting never spans more than one move's cost.
    std::vector<std::vector<Cell>> buckets(LARGEST_COST * LONGEST_MOVE + 1);
    search.cost.set(from.x, from.y, 0);
    buckets[0].push_back(from);
    std::size_t waiting = 1;
    for (std::uint32_t now = 0; waiting > 0; ++now) {
        std::vector<Cell>& bucket = buckets[now % buckets.size()];
        while (!bucket.empty()) {
            const Cell cell = bucket.back();
            bucket.pop_back();
            --waiting;
            if (search.cost.get(cell.x, cell.y) != now) {
                continue; // reached more cheaply since
            }
            search.farthest = cell;
            if (cell == to) {
                return search;
            }
            for (std::size_t number = 0; number < static_cast<std::size_t>(moves); ++number) {
                const Move& move = MOVES[number];
                const Cell next{cell.x + move.dx, cell.y + move.dy};
                if (next.x < 0 || next.y < 0 || next.x >= side || next.y >= side) {
                    continue;
                }
                const std::uint32_t unit = cost(next.x, next.y);
                const std::uint32_t total = now + unit * move.length;
                if (unit == 0 || total >= search.cost.get(next.x, next.y)) {
                    continue;
                }
                search.cost.set(next.x, next.y, total);
                search.move.set(next.x, next.y, static_cast<std::uint8_t>(number));
                buckets[total % buckets.size()].push_back(next);
                ++waiting;
            }
        }
    }
    return search;
}

} // namespace tarvik
