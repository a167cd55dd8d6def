// A picture of any size, read at once and scaled row by row.
#include "tools/data/cell_rule.h"
#include "tools/data/page.h"
#include "tools/files/png_file.h"
#include "tools/track/track.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

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

/// The two pixels between which a cell lies, and how far from the first to the second.
struct Between {
    std::size_t first = 0;
    std::size_t second = 0;
    float share = 0;
};

Between pixels_around(std::size_t cell, std::size_t width) {
    const auto pixels = static_cast<double>(width);
    const double place =
        std::clamp((static_cast<double>(cell) + 0.5) * pixels / MAP_SIDE - 0.5, 0.0, pixels - 1);
    const double first = std::floor(place);
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(std::ceil(place)),
            static_cast<float>(place - first)};
}

class PngPage : public Page {
  public:
    explicit PngPage(const Picture& picture) : width_(static_cast<std::size_t>(picture.width)) {
        units = {MAP_SIDE / static_cast<double>(width_), 0, 0, "pixels"};
        measures_.reserve(width_ * width_);
        std::vector<std::uint32_t> line(width_);
        std::vector<std::uint32_t> above(width_);
        for (std::size_t y = 0; y < width_; ++y) {
            line.swap(above);
            for (std::size_t x = 0; x < width_; ++x) {
                line[x] = on_white(&picture.rgba[(y * width_ + x) * 4]);
                // Half a step up, so that a measure of 0, which is grass, is no tie.
                measures_.push_back(static_cast<std::int8_t>(
                    std::clamp(2 * grass_measure(line[x]) + 1, -CERTAIN, CERTAIN)));
            }
            if (y > 0) {
                colours.look_at(line.data(), above.data(), width_, 1);
            }
        }
        for (std::size_t cell = 0; cell < MAP_SIDE; ++cell) {
            places_.push_back(pixels_around(cell, width_));
        }
    }

    void draw(int first_row, std::span<std::uint8_t> cells) override {
        std::vector<float> blended(width_);
        for (std::size_t i = 0; i < cells.size(); i += MAP_SIDE) {
            const Between& down = places_[static_cast<std::size_t>(first_row) + i / MAP_SIDE];
            const std::int8_t* upper = &measures_[down.first * width_];
            const std::int8_t* lower = &measures_[down.second * width_];
            for (std::size_t x = 0; x < width_; ++x) {
                blended[x] = static_cast<float>(upper[x]) +
                             down.share * static_cast<float>(lower[x] - upper[x]);
            }
            for (std::size_t x = 0; x < MAP_SIDE; ++x) {
                const Between& across = places_[x];
                const float left = blended[across.first];
                const float measure = left + across.share * (blended[across.second] - left);
                cells[i + x] = measure >= 0 ? CELL_GRASS : CELL_ROAD;
            }
        }
    }

  private:
    std::size_t width_;                 ///< pixels to a side
    std::vector<std::int8_t> measures_; ///< how much each pixel is grass
    std::vector<Between> places_;       ///< of each cell of a row or column
};

} // namespace

std::unique_ptr<Page> open_png(const std::filesystem::path& picture) {
    return std::make_unique<PngPage>(read_square_png(picture, LARGEST_IMPORT));
}

} // namespace tarvik
