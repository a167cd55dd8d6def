// A picture of any size, read at once and scaled row by row.
#include "tools/data/png_page.h"

#include "tools/data/cell_rule.h"
#include "tools/files/failure.h"
#include "tools/files/png_file.h"
#include "tools/track/track.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tarvik {
namespace {

constexpr int LARGEST_IMPORT = 16384; // 1 GB while it is read

// Measures are limited to this, so that hard edges are midway between two pixels.
constexpr int CERTAIN = 100;

std::uint32_t on_white(const std::uint8_t* pixel) {
    std::uint32_t rgb = 0;
    for (const int c : {0, 1, 2}) {
        rgb = rgb << 8U |
              static_cast<std::uint32_t>((pixel[c] * pixel[3] + 255 * (255 - pixel[3])) / 255);
    }
    return rgb;
}

} // namespace

std::vector<PngPage::Between> PngPage::places(int pixels) {
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

PngPage::PngPage(const std::filesystem::path& picture) : cells_(MAP_SIDE) {
    const Picture drawn = read_png(picture, LARGEST_IMPORT);
    if (drawn.width != drawn.height) {
        throw Failure(picture.string() + " is not square: " + std::to_string(drawn.width) + " by " +
                      std::to_string(drawn.height) + " pixels; a track is a square");
    }
    width_ = static_cast<std::size_t>(drawn.width);
    measures_.reserve(drawn.rgba.size() / 4);
    std::vector<std::uint32_t> line(width_);
    std::vector<std::uint32_t> above(width_);
    for (std::size_t y = 0; y < width_; ++y) {
        line.swap(above);
        for (std::size_t x = 0; x < width_; ++x) {
            line[x] = on_white(&drawn.rgba[(y * width_ + x) * 4]);
            // Half a step up, so that a measure of 0, which is grass, is no tie.
            measures_.push_back(static_cast<std::int8_t>(
                std::clamp(2 * grass_measure(line[x]) + 1, -CERTAIN, CERTAIN)));
        }
        if (y > 0) {
            colours_.look_at(line.data(), above.data(), width_, 1);
        }
    }
    places_ = places(drawn.width);
    blended_.resize(width_);
}

const std::vector<std::uint8_t>& PngPage::row(int y) {
    const Between& vertical = places_[static_cast<std::size_t>(y)];
    const std::int8_t* upper = &measures_[vertical.first * width_];
    const std::int8_t* lower = &measures_[vertical.second * width_];
    for (std::size_t x = 0; x < width_; ++x) {
        blended_[x] =
            static_cast<float>(upper[x]) + vertical.share * static_cast<float>(lower[x] - upper[x]);
    }
    for (std::size_t x = 0; x < cells_.size(); ++x) {
        const Between& across = places_[x];
        const float left = blended_[across.first];
        const float measure = left + across.share * (blended_[across.second] - left);
        cells_[x] = measure >= 0 ? CELL_GRASS : CELL_ROAD;
    }
    return cells_;
}

} // namespace tarvik
