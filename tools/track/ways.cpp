// The ways a lap can take. With the box closed, a road that goes once around encloses nothing any
// more; whatever is still enclosed can be passed on two sides.
#include "tools/track/ways.h"

#include "tools/track/path_search.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <utility>

namespace tarvik {
namespace {

// Going round something smaller than this is no other way, only another line on the road.
constexpr int SMALLEST_ISLAND = 100;
// Two ways closer to each other than this run side by side.
constexpr int SIDE_BY_SIDE = 32;

constexpr Cell ABOVE_BOX = {BOX_CENTRE_X, BOX_TOP - 1};
constexpr Cell START = {START_CELL_X, START_CELL_Y};

// Answers whether a cell is near a path, to within a neighbouring square of SIDE_BY_SIDE cells.
class Nearby {
  public:
    explicit Nearby(const std::vector<Cell>& path) {
        for (const Cell& cell : path) {
            squares_[{cell.x / SIDE_BY_SIDE, cell.y / SIDE_BY_SIDE}] = true;
        }
    }
    [[nodiscard]] bool contains(Cell cell) const {
        for (const int dy : {-1, 0, 1}) {
            for (const int dx : {-1, 0, 1}) {
                if (squares_.contains({cell.x / SIDE_BY_SIDE + dx, cell.y / SIDE_BY_SIDE + dy})) {
                    return true;
                }
            }
        }
        return false;
    }

  private:
    std::map<std::pair<int, int>, bool> squares_;
};

double cells_of(std::uint32_t cost) {
    return static_cast<double>(cost) / LENGTH_UNITS;
}

std::optional<TwoWays> ways_around(const CellMask& space, int side, Cell island) {
    const auto cost = [&](int x, int y) -> std::uint32_t {
        return space[static_cast<std::size_t>(y) * static_cast<std::size_t>(side) +
                     static_cast<std::size_t>(x)];
    };
    const PathSearch search = search_paths(side, ABOVE_BOX, {}, Moves::KING, cost, island);
    const std::uint32_t one = search.cost_to(START, Side::ONE);
    const std::uint32_t other = search.cost_to(START, Side::OTHER);
    if (one == PathSearch::UNREACHED || other == PathSearch::UNREACHED) {
        return {};
    }
    const Side shorter_side = one <= other ? Side::ONE : Side::OTHER;
    const Side longer_side = one <= other ? Side::OTHER : Side::ONE;
    TwoWays ways;
    ways.shorter = search.path_to(START, shorter_side);
    ways.shorter_length = cells_of(std::min(one, other));
    ways.longer_length = cells_of(std::max(one, other));
    const Nearby longer(search.path_to(START, longer_side));
    const auto apart = [&](Cell cell) { return !longer.contains(cell); };
    const auto first = std::find_if(ways.shorter.begin(), ways.shorter.end(), apart);
    const auto last = std::find_if(ways.shorter.rbegin(), ways.shorter.rend(), apart);
    if (first == ways.shorter.end()) {
        return {};
    }
    ways.parting = *first;
    ways.middle = *(first + (last.base() - first) / 2);
    return ways;
}

} // namespace

std::optional<TwoWays> two_ways(const CellMask& space, int side) {
    const Regions regions(space, side, true, true);
    const int region = regions.at(START);
    if (region < 0 || regions.at(ABOVE_BOX) != region) {
        return {};
    }
    CellMask around = space;
    regions.keep_only(region, around, 0);
    const Regions islands(around, side, false, false);
    for (const Region& island : islands.all()) {
        const bool outside = island.left == 0 || island.top == 0 || island.right == side - 1 ||
                             island.bottom == side - 1;
        const int extent = std::max(island.right - island.left, island.bottom - island.top) + 1;
        if (outside || extent < SMALLEST_ISLAND) {
            continue;
        }
        if (const auto ways = ways_around(around, side, island.cell)) {
            return ways;
        }
    }
    return {};
}

Way shortest_way(const CellMask& space, int side) {
    const PathSearch search = search_paths(
        side, ABOVE_BOX, START, Moves::KING_AND_KNIGHT, [&](int x, int y) -> std::uint32_t {
            return space[static_cast<std::size_t>(y) * static_cast<std::size_t>(side) +
                         static_cast<std::size_t>(x)];
        });
    Way way{search.path_to(START), 0};
    if (!way.cells.empty()) {
        way.length = cells_of(search.cost_to(START));
    }
    return way;
}

} // namespace tarvik
