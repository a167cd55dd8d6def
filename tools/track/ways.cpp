// The ways that a lap can take.
#include "tools/track/ways.h"

#include "tools/track/clearance.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>

namespace tarvik {
namespace {

// Enclosed grass is looked for in blocks, those without any road: grass that holds none is too thin
// for the ways around it to differ.
constexpr int BLOCK = 10;

// Two ways closer to each other than this run side by side.
constexpr int SIDE_BY_SIDE = 32;

/// A cell of each piece of enclosed grass that is larger than LARGEST_SAVING.
std::vector<Cell> islands(int side, const std::vector<Cell>& road) {
    const int across = (side + BLOCK - 1) / BLOCK + 2; // with a frame of grass around
    std::vector<bool> seen(static_cast<std::size_t>(across) * static_cast<std::size_t>(across));
    const auto index = [&](Cell block) {
        return static_cast<std::size_t>(block.y) * static_cast<std::size_t>(across) +
               static_cast<std::size_t>(block.x);
    };
    for (const Cell cell : road) {
        seen[index({cell.x / BLOCK + 1, cell.y / BLOCK + 1})] = true;
    }
    std::vector<Cell> result;
    for (int i = 0; i < across * across; ++i) { // the outside comes first
        std::vector<Cell> piece;
        const auto add = [&](Cell block) {
            if (block.x >= 0 && block.y >= 0 && block.x < across && block.y < across &&
                !seen[index(block)]) {
                seen[index(block)] = true;
                piece.push_back(block);
            }
        };
        add({i % across, i / across});
        std::size_t next = 0;
        while (next < piece.size()) { // which grows
            const auto [x, y] = piece[next++];
            add({x + 1, y});
            add({x - 1, y});
            add({x, y + 1});
            add({x, y - 1});
        }
        const auto extent = [&](int Cell::*coordinate) {
            const auto [low, high] = std::ranges::minmax(piece, {}, coordinate);
            return (high.*coordinate - low.*coordinate + 1) * BLOCK;
        };
        if (i > 0 && !piece.empty() &&
            std::max(extent(&Cell::x), extent(&Cell::y)) >= LARGEST_SAVING) {
            result.push_back({(piece[0].x - 1) * BLOCK, (piece[0].y - 1) * BLOCK});
        }
    }
    return result;
}

// The part of one way that does not run beside the other, from the first such cell to the last.
std::vector<Cell> apart(const std::vector<Cell>& way, const std::vector<Cell>& other) {
    std::set<std::pair<int, int>> near;
    for (const Cell cell : other) {
        for (const int neighbour : {0, 1, 2, 3, 4, 5, 6, 7, 8}) {
            near.emplace(cell.x / SIDE_BY_SIDE + neighbour % 3 - 1,
                         cell.y / SIDE_BY_SIDE + neighbour / 3 - 1);
        }
    }
    const auto is_apart = [&](Cell cell) {
        return !near.contains({cell.x / SIDE_BY_SIDE, cell.y / SIDE_BY_SIDE});
    };
    const auto first = std::ranges::find_if(way, is_apart);
    const auto last = std::find_if(way.rbegin(), way.rend(), is_apart).base();
    return first == way.end() ? std::vector<Cell>() : std::vector<Cell>(first, last);
}

std::vector<KeyedCell> above_box(TrackView road) {
    std::vector<KeyedCell> origins;
    for (int x = BOX_LEFT; x <= BOX_RIGHT; ++x) {
        if (road.is_road(x, BOX_TOP - 1)) {
            origins.push_back({{x, BOX_TOP - 1}});
        }
    }
    return origins;
}

} // namespace

Search shortest_ways(TrackView road, std::optional<Cell> around) {
    const auto key = [&](std::uint32_t from, Cell to, std::uint32_t length) {
        return road.is_road(to.x, to.y) ? from + length : NO_WAY;
    };
    return {road.side, above_box(road), key, around};
}

Search middle_ways(TrackView road, const Clearance& clearance, std::optional<Cell> around) {
    constexpr std::uint32_t DEAREST = 250; // keeps the keys of the longest ways small enough
    const auto key = [&](std::uint32_t from, Cell to, std::uint32_t length) {
        if (!road.is_road(to.x, to.y)) {
            return NO_WAY;
        }
        const std::uint32_t square = clearance[road.index(to.x, to.y)];
        return from + length * std::min(DEAREST, 3 + 30000 / std::max(square, 1U));
    };
    return {road.side, above_box(road), key, around};
}

double length_of(const std::vector<Cell>& way) {
    constexpr std::size_t STRIDE = 16; // single steps are too long in most directions
    double length = 0;
    for (std::size_t i = 0; i + 1 < way.size(); i += STRIDE) {
        const Cell from = way[i];
        const Cell to = way[std::min(i + STRIDE, way.size() - 1)];
        length += std::hypot(to.x - from.x, to.y - from.y);
    }
    return length;
}

Round once_around(TrackView track, const Clearance& clearance) {
    Cells road(track.cells, track.cells + track.index(0, track.side));
    for (const int step : {-1, 1}) { // the road across the middle of the box is closed
        for (int x = BOX_CENTRE_X; track.is_road(x, BOX_CENTRE_Y); x += step) {
            road[track.index(x, BOX_CENTRE_Y)] = CELL_GRASS;
        }
    }
    const Search search = middle_ways({road.data(), track.side}, clearance);
    if (!search.key(START)) {
        const std::vector<Cell>& reached = search.reached();
        return {false, reached.empty() ? Cell{BOX_CENTRE_X, BOX_TOP} : reached.back(), {}};
    }
    Round round{true, START, search.way_to(START)};
    for (int y = START.y - 1; y >= BOX_TOP; --y) {
        round.way.push_back({START.x, y});
    }
    return round;
}

Width narrowest(TrackView track, const Clearance& clearance, const std::vector<Cell>& way,
                double distance) {
    Cell place;
    int least = LARGEST_CLEARANCE * LARGEST_CLEARANCE;
    for (const Cell cell : way) {
        int square = 0; // the way may be a cell or two beside the middle
        for (int i = 0; i < 25; ++i) {
            const Cell near{cell.x + i % 5 - 2, cell.y + i / 5 - 2};
            if (track.contains(near.x, near.y)) {
                square = std::max<int>(square, clearance[track.index(near.x, near.y)]);
            }
        }
        if (square < least &&
            std::hypot(cell.x - BOX_CENTRE_X, cell.y - BOX_CENTRE_Y) >= distance) {
            place = cell;
            least = square;
        }
    }
    return {place, 2 * static_cast<int>(std::sqrt(least))};
}

std::optional<Cell> filled_area(TrackView track, const Clearance& clearance) {
    constexpr int SQUARE = FILLED_WIDTH / 2 * FILLED_WIDTH / 2;
    static_assert(SQUARE <= LARGEST_CLEARANCE * LARGEST_CLEARANCE);
    const auto filled =
        std::ranges::find_if(clearance, [](std::uint16_t square) { return square >= SQUARE; });
    return filled == clearance.end() ? std::nullopt
                                     : std::optional(track.cell_at(filled - clearance.begin()));
}

std::vector<TwoWays> second_ways(TrackView road, const Clearance& clearance,
                                 const std::vector<Cell>& cells) {
    std::vector<TwoWays> result;
    for (const Cell island : islands(road.side, cells)) {
        const Search shortest = shortest_ways(road, island);
        const auto one = shortest.key(START, 0);
        const auto other = shortest.key(START, 1);
        if (one && other) {
            const int shorter = *one <= *other ? 0 : 1;
            // Of shortest ways there are many; those in the middle of the road can be compared.
            const Search middle = middle_ways(road, clearance, island);
            const std::vector<Cell> way = middle.way_to(START, shorter);
            result.push_back({way, std::min(*one, *other) * 1.0 / LENGTH_UNITS,
                              std::max(*one, *other) * 1.0 / LENGTH_UNITS,
                              apart(way, middle.way_to(START, 1 - shorter))});
        }
    }
    return result;
}

Cells grown(TrackView road, int radius) {
    const std::size_t size = road.index(0, road.side);
    std::vector<std::uint8_t> result(road.cells, road.cells + size);
    for (int y = 0; y < road.side; ++y) {
        for (int x = 0; x < road.side; ++x) {
            const bool at_edge =
                road.is_road(x, y) && !(road.is_road(x - 1, y) && road.is_road(x + 1, y) &&
                                        road.is_road(x, y - 1) && road.is_road(x, y + 1));
            for (int dy = -radius; at_edge && dy <= radius; ++dy) {
                const int width = static_cast<int>(std::sqrt(radius * radius - dy * dy));
                if (y + dy >= 0 && y + dy < road.side) {
                    std::uint8_t* row = result.data() + road.index(0, y + dy);
                    std::fill(row + std::max(x - width, 0),
                              row + std::min(x + width + 1, road.side), CELL_ROAD);
                }
            }
        }
    }
    return result;
}

} // namespace tarvik
