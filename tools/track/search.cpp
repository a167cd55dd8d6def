// Best-first searches: Dijkstra's algorithm with buckets instead of a heap, since keys are whole
// numbers that rise by little.
#include "tools/track/search.h"

#include <algorithm>
#include <array>
#include <new>

namespace tarvik {
namespace {

constexpr std::array<Cell, 8> STEPS = {
    {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}}};
constexpr std::uint32_t STRAIGHT_STEPS = 4;

// A state is 0 or, from the lowest bit: the number of the last step, counted from 1, or 0 at an
// origin; whether that step crossed over to the other side; the key plus one.
constexpr std::uint32_t STEP_MASK = 15;
constexpr int CROSSED_BIT = 4;
constexpr int KEY_BIT = 5;

// Whether a step crosses the ray from `around` to the right edge of the grid, which runs just below
// its row. Ways of the two classes cross it an even and an odd number of times.
bool crosses_ray(Cell from, Cell to, Cell around) {
    return (from.y <= around.y) != (to.y <= around.y) && from.x + to.x > 2 * around.x;
}

} // namespace

Search::Search(int side, const std::vector<KeyedCell>& origins, const StepKey& step_key,
               std::optional<Cell> around)
    : side_(side), states_(static_cast<std::uint32_t*>(
                       std::calloc(index({0, 0}, around ? 2 : 1), sizeof(std::uint32_t)))) {
    if (states_ == nullptr) {
        throw std::bad_alloc();
    }
    struct Waiting {
        Cell cell;
        int layer;
    };
    std::vector<std::vector<Waiting>> buckets(LARGEST_RISE); // by key, used in turn
    std::size_t waiting = 0;
    const auto reach = [&](Cell cell, int layer, std::uint32_t key, std::uint32_t step) {
        std::uint32_t& state = states_[index(cell, layer)];
        if (state == 0 || key + 1 < state >> KEY_BIT) {
            state = (key + 1) << KEY_BIT | step;
            buckets[key % LARGEST_RISE].push_back({cell, layer});
            ++waiting;
        }
    };
    for (const KeyedCell& origin : origins) {
        reach(origin.cell, 0, origin.key, 0);
    }
    for (std::uint32_t now = 0; waiting > 0; ++now) {
        std::vector<Waiting>& bucket = buckets[now % LARGEST_RISE];
        while (!bucket.empty()) {
            const auto [cell, layer] = bucket.back();
            bucket.pop_back();
            --waiting;
            if (states_[index(cell, layer)] >> KEY_BIT != now + 1) {
                continue; // reached with a smaller key since
            }
            reached_.push_back(cell);
            for (std::uint32_t i = 0; i < STEPS.size(); ++i) {
                const Cell next{cell.x + STEPS[i].x, cell.y + STEPS[i].y};
                if (next.x < 0 || next.y < 0 || next.x >= side || next.y >= side) {
                    continue;
                }
                const std::uint32_t crossed = around && crosses_ray(cell, next, *around) ? 1 : 0;
                const int next_layer = layer ^ static_cast<int>(crossed);
                const std::uint32_t known = states_[index(next, next_layer)];
                if (known == 0 || known >> KEY_BIT > now + 1) { // else there is nothing to gain
                    const std::uint32_t next_key = step_key(now, next, i < STRAIGHT_STEPS ? 5 : 7);
                    if (next_key != NO_WAY) {
                        reach(next, next_layer, next_key, (i + 1) | crossed << CROSSED_BIT);
                    }
                }
            }
        }
    }
}

std::optional<std::uint32_t> Search::key(Cell cell, Side side) const {
    const std::uint32_t state = states_[index(cell, side == Side::ONE ? 0 : 1)];
    return state == 0 ? std::nullopt : std::optional((state >> KEY_BIT) - 1);
}

std::vector<Cell> Search::way_to(Cell cell, Side side) const {
    std::vector<Cell> way = {cell};
    int layer = side == Side::ONE ? 0 : 1;
    for (;;) {
        const std::uint32_t state = states_[index(cell, layer)];
        if ((state & STEP_MASK) == 0) {
            break;
        }
        const Cell step = STEPS[(state & STEP_MASK) - 1];
        cell = {cell.x - step.x, cell.y - step.y};
        layer ^= static_cast<int>(state >> CROSSED_BIT & 1);
        way.push_back(cell);
    }
    std::reverse(way.begin(), way.end());
    return way;
}

} // namespace tarvik
