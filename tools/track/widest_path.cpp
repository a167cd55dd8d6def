// The way that keeps farthest from the grass: cells are taken in the order of the narrowest place
// on the way to them, widest first.
#include "tools/track/widest_path.h"

#include "tools/track/tiled_grid.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tarvik {
namespace {

constexpr std::array<Cell, 8> STEPS = {
    {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}}};
constexpr std::uint8_t NOT_SEEN = 255;

} // namespace

WidestPath widest_path(int side, Cell from, Cell to,
                       const std::function<std::uint16_t(int x, int y)>& squared_clearance) {
    WidestPath result;
    TiledGrid<std::uint8_t> step_here(side, side, NOT_SEEN);
    std::vector<std::vector<Cell>> waiting(UINT16_MAX + 1U); // by the narrowest place on the way
    std::size_t widest = squared_clearance(from.x, from.y);
    waiting[widest].push_back(from);
    step_here.set(from.x, from.y, 0);
    for (; widest > 0 && !result.found; --widest) {
        while (!waiting[widest].empty() && !result.found) {
            const Cell cell = waiting[widest].back();
            waiting[widest].pop_back();
            if (cell == to) {
                result.found = true;
                result.squared_clearance = static_cast<std::uint16_t>(widest);
            }
            for (std::size_t step = 0; step < STEPS.size(); ++step) {
                const Cell next{cell.x + STEPS[step].x, cell.y + STEPS[step].y};
                if (next.x < 0 || next.y < 0 || next.x >= side || next.y >= side ||
                    step_here.get(next.x, next.y) != NOT_SEEN) {
                    continue;
                }
                const std::size_t clearance = squared_clearance(next.x, next.y);
                if (clearance > 0) {
                    step_here.set(next.x, next.y, static_cast<std::uint8_t>(step));
                    waiting[std::min(widest, clearance)].push_back(next);
                }
            }
        }
    }
    for (Cell cell = to; result.found;) {
        if (squared_clearance(cell.x, cell.y) == result.squared_clearance) {
            result.narrowest = cell;
        }
        if (cell == from) {
            break;
        }
        const Cell step = STEPS[step_here.get(cell.x, cell.y)];
        cell = {cell.x - step.x, cell.y - step.y};
    }
    return result;
}

} // namespace tarvik
