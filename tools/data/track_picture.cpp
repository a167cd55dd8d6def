// Track maps as PNG pictures.
#include "tools/data/track_picture.h"

#include "tools/files/png_file.h"
#include "tools/track/map_file.h"
#include "tools/track/track.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace tarvik {
namespace {

constexpr std::array<std::uint8_t, 3> ROAD_COLOUR = {60, 60, 60};
constexpr std::array<std::uint8_t, 3> GRASS_COLOUR = {0, 200, 0};

} // namespace

void preview_track(const std::filesystem::path& map, const std::filesystem::path& picture,
                   int size) {
    const std::vector<std::uint8_t> cells = read_map(map);
    const auto side = static_cast<std::size_t>(size);
    IndexedPicture result;
    result.width = size;
    result.height = size;
    for (std::size_t i = 0; i < 256; ++i) {
        for (std::size_t c = 0; c < 3; ++c) {
            result.colours[i][c] =
                static_cast<std::uint8_t>((ROAD_COLOUR[c] * (255 - i) + GRASS_COLOUR[c] * i) / 255);
        }
    }
    result.pixels.reserve(side * side);
    std::vector<std::uint32_t> grass(side);
    for (std::size_t y = 0; y < side; ++y) {
        const std::size_t top = y * MAP_SIDE / side;
        const std::size_t bottom = (y + 1) * MAP_SIDE / side;
        std::fill(grass.begin(), grass.end(), 0U);
        for (std::size_t row = top; row < bottom; ++row) {
            const std::uint8_t* cell = &cells[row * MAP_SIDE];
            for (std::size_t x = 0; x < side; ++x) {
                const std::uint8_t* end = &cells[row * MAP_SIDE] + (x + 1) * MAP_SIDE / side;
                for (; cell < end; ++cell) {
                    grass[x] += *cell == CELL_GRASS ? 1U : 0U;
                }
            }
        }
        for (std::size_t x = 0; x < side; ++x) {
            const std::size_t columns = (x + 1) * MAP_SIDE / side - x * MAP_SIDE / side;
            result.pixels.push_back(static_cast<std::uint8_t>(std::size_t{grass[x]} * 255 /
                                                              (columns * (bottom - top))));
        }
    }
    write_png(picture, result);
}

} // namespace tarvik
