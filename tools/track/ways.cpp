// The ways a lap can take. With the box closed, a road that goes once around encloses nothing any
// more; whatever is still enclosed can be passed on two sides.
#include "tools/track/ways.h"

#include "tools/track/path_search.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
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

CellCost one_unit_in(const CellMask& space, int side) {
    return [&space, side](int x, int y) -> std::uint32_t {
        return space[static_cast<std::size_t>(y) * static_cast<std::size_t>(side) +
                     static_cast<std::size_t>(x)];
    };
}

double cells_of(std::uint32_t cost) {
    return static_cast<double>(cost) / LENGTH_UNITS;
}

// Whether the start is still reached when the space is cut across at a cell, along the shortest
// line through it.
bool other_way_remains(CellMask& space, int side, Cell cell) {
    constexpr int DIRECTIONS = 32;
    const auto index = [&](double x, double y) {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(side) +
               static_cast<std::size_t>(x);
    };
    std::vector<std::size_t> cut;
    for (int i = 0; i < DIRECTIONS; ++i) {
        std::vector<std::size_t> line;
        for (const int sense : {1, -1}) {
            const double dx = sense * std::cos(i * std::numbers::pi / DIRECTIONS);
            const double dy = sense * std::sin(i * std::numbers::pi / DIRECTIONS);
            double x = cell.x + 0.5;
            double y = cell.y + 0.5;
            for (; x >= 0 && y >= 0 && x < side && y < side && space[index(x, y)] != 0;
                 x += dx / 4, y += dy / 4) {
                line.push_back(index(x, y));
                if (x + 1 < side) {
                    line.push_back(index(x + 1, y)); // so that no diagonal move slips through
                }
            }
        }
        if (cut.empty() || line.size() < cut.size()) {
            cut = std::move(line);
        }
    }
    std::vector<std::uint8_t> before(cut.size());
    for (std::size_t i = 0; i < cut.size(); ++i) {
        before[i] = space[cut[i]];
    }
    for (const std::size_t each : cut) {
        space[each] = 0;
    }
    const PathSearch search =
        search_paths(side, ABOVE_BOX, START, Moves::KING, one_unit_in(space, side));
    const bool remains = search.cost_to(START) != PathSearch::UNREACHED;
    for (std::size_t i = 0; i < cut.size(); ++i) {
        space[cut[i]] = before[i];
    }
    return remains;
}

// Leaves `space` as it was.
std::optional<TwoWays> ways_around(CellMask& space, int side, Cell island) {
    const PathSearch search =
        search_paths(side, ABOVE_BOX, {}, Moves::KING, one_unit_in(space, side), island);
    const std::uint32_t one = search.cost_to(START, Side::ONE);
    const std::uint32_t other = search.cost_to(START, Side::OTHER);
    if (one == PathSearch::UNREACHED || other == PathSearch::UNREACHED) {
        return {};
    }
    const Side shorter_side = one <= other ? Side::ONE : Side::OTHER;
    const Side longer_side = one <= other ? Side::OTHER : Side::ONE;
    TwoWays ways;
    ways.shorter_length = cells_of(std::min(one, other));
    ways.longer_length = cells_of(std::max(one, other));
    const std::vector<Cell> shorter = search.path_to(START, shorter_side);
    const Nearby longer(search.path_to(START, longer_side));
    const auto apart = [&](Cell cell) { return !longer.contains(cell); };
    const auto first = std::find_if(shorter.begin(), shorter.end(), apart);
    const auto last = std::find_if(shorter.rbegin(), shorter.rend(), apart);
    if (first != shorter.end()) {
        ways.parting = *first;
        ways.middle = *(first + (last.base() - first) / 2);
    }
    // A ring beside the road, on a stalk, is on no way.
    const bool is_choice = first != shorter.end() && other_way_remains(space, side, ways.middle);
    if (is_choice || ways.shorter_length < SHORTEST_LAP) {
        return ways;
    }
    return {};
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
    const PathSearch search =
        search_paths(side, ABOVE_BOX, START, Moves::KING_AND_KNIGHT, one_unit_in(space, side));
    Way way{search.path_to(START), 0};
    if (!way.cells.empty()) {
        way.length = cells_of(search.cost_to(START));
    }
    return way;
}

} // namespace tarvik
