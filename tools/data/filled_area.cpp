// The largest square of road, in blocks of cells: it ends at a block's lower right corner, and is
// one larger than the smallest of those that end one block further left, up, or both.
#include "tools/data/filled_area.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace tarvik {
namespace {

constexpr int BLOCK = 20;
constexpr std::size_t ACROSS = MAP_SIDE / BLOCK;
static_assert(ACROSS * BLOCK == MAP_SIDE);

bool is_all_road(const std::vector<std::uint8_t>& cells, std::size_t block_x, std::size_t block_y) {
    for (std::size_t y = block_y * BLOCK; y < (block_y + 1) * BLOCK; ++y) {
        if (std::memchr(&cells[y * MAP_SIDE + block_x * BLOCK], CELL_GRASS, BLOCK) != nullptr) {
            return false;
        }
    }
    return true;
}

} // namespace

std::optional<Cell> filled_area(const std::vector<std::uint8_t>& cells) {
    std::vector<int> side((ACROSS + 1) * (ACROSS + 1), 0); // row and column 0 are outside
    int largest = 0;
    Cell middle;
    for (std::size_t y = 0; y < ACROSS; ++y) {
        for (std::size_t x = 0; x < ACROSS; ++x) {
            const std::size_t above_left = y * (ACROSS + 1) + x;
            const std::size_t here = above_left + ACROSS + 2;
            if (!is_all_road(cells, x, y)) {
                continue;
            }
            side[here] = 1 + std::min({side[above_left], side[above_left + 1], side[here - 1]});
            if (side[here] > largest) {
                largest = side[here];
                const int half = largest * BLOCK / 2;
                middle = {static_cast<int>(x + 1) * BLOCK - half,
                          static_cast<int>(y + 1) * BLOCK - half};
            }
        }
    }
    if (largest * BLOCK < FILLED_SIDE) {
        return {};
    }
    return middle;
}

} // namespace tarvik
