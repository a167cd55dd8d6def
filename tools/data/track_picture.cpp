// Track maps as PNG pictures: previews of maps, and maps from drawn pictures.
#include "tools/data/track_picture.h"

#include "tools/data/cell_rule.h"
#include "tools/files/failure.h"
#include "tools/files/new_file.h"
#include "tools/files/png_file.h"
#include "tools/files/progress.h"
#include "tools/track/map_file.h"
#include "tools/track/track.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvik {
namespace {

constexpr int LARGEST_IMPORT = 16384; // 1 GB while it is read
constexpr std::array<std::uint8_t, 3> ROAD_COLOUR = {60, 60, 60};
constexpr std::array<std::uint8_t, 3> GRASS_COLOUR = {0, 200, 0};

// A measure beyond this is as certain as can be; so hard edges lie midway between two pixels.
constexpr int CERTAIN = 100;

// The two pixels between which a cell lies, and how far from the first to the second.
struct Between {
    std::size_t first = 0;
    std::size_t second = 0;
    float share = 0;
};

std::vector<Between> places(int pixels) {
    std::vector<Between> result(MAP_SIDE);
    for (std::size_t cell = 0; cell < result.size(); ++cell) {
        const double exact =
            (static_cast<double>(cell) + 0.5) * static_cast<double>(pixels) / MAP_SIDE - 0.5;
        const double place = std::clamp(exact, 0.0, static_cast<double>(pixels - 1));
        const double first = std::floor(place);
        result[cell] = {static_cast<std::size_t>(first), static_cast<std::size_t>(std::ceil(place)),
                        static_cast<float>(place - first)};
    }
    return result;
}

std::vector<std::int8_t> grass_measures(const Picture& picture) {
    std::vector<std::int8_t> measures(picture.rgba.size() / 4);
    for (std::size_t i = 0; i < measures.size(); ++i) {
        const std::uint8_t* pixel = &picture.rgba[i * 4];
        const int alpha = pixel[3];
        const auto on_white = [&](int component) {
            return (component * alpha + 255 * (255 - alpha)) / 255;
        };
        const int measure =
            grass_measure(on_white(pixel[0]), on_white(pixel[1]), on_white(pixel[2]));
        // Half a step up, so that a measure of 0, which is grass, is no tie.
        measures[i] = static_cast<std::int8_t>(std::clamp(2 * measure + 1, -CERTAIN, CERTAIN));
    }
    return measures;
}

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
            result.pixels.push_back(
                static_cast<std::uint8_t>(grass[x] * 255 / (columns * (bottom - top))));
        }
    }
    write_png(picture, result);
}

void import_track(const std::filesystem::path& picture, const std::filesystem::path& map) {
    int pixels = 0;
    std::vector<std::int8_t> measures;
    {
        const Picture drawn = read_png(picture, LARGEST_IMPORT);
        if (drawn.width != drawn.height) {
            throw Failure(picture.string() + " is not square: " + std::to_string(drawn.width) +
                          " by " + std::to_string(drawn.height) + " pixels");
        }
        pixels = drawn.width;
        measures = grass_measures(drawn);
    }
    const std::vector<Between> places_of = places(pixels);
    const auto width = static_cast<std::size_t>(pixels);
    std::vector<float> blended(width);
    std::vector<std::uint8_t> row(MAP_SIDE);
    NewFile file(map);
    Progress progress(picture.string());
    for (int y = 0; y < MAP_SIDE; ++y) {
        const Between& vertical = places_of[static_cast<std::size_t>(y)];
        const std::int8_t* upper = &measures[vertical.first * width];
        const std::int8_t* lower = &measures[vertical.second * width];
        for (std::size_t x = 0; x < width; ++x) {
            blended[x] = static_cast<float>(upper[x]) +
                         vertical.share * static_cast<float>(lower[x] - upper[x]);
        }
        for (std::size_t x = 0; x < row.size(); ++x) {
            const Between& across = places_of[x];
            const float left = blended[across.first];
            const float measure = left + across.share * (blended[across.second] - left);
            row[x] = measure >= 0 ? CELL_GRASS : CELL_ROAD;
        }
        file.write(row.data(), row.size());
        progress.show(y + 1, MAP_SIDE);
    }
    file.commit();
}

} // namespace tarvik
