// A PNG picture as cells of a track map.
#pragma once

#include "tools/data/grass_colours.h"
#include "tools/track/track.h"
#include "tools/track/units.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace tarvik {

/// A square picture of any size, scaled to MAP_SIDE cells to a side with smooth edges.
class PngPage {
  public:
    /// Reads the picture; throws a Failure.
    explicit PngPage(const std::filesystem::path& picture);

    /// The cells of row y of the map, 0 to MAP_SIDE - 1; valid until the next call.
    const std::vector<std::uint8_t>& row(int y);

    [[nodiscard]] Units units() const {
        return {MAP_SIDE / static_cast<double>(width_), 0, 0, "pixels"};
    }
    [[nodiscard]] const GrassColours& grass_colours() const {
        return colours_;
    }

  private:
    /// The two pixels between which a cell lies, and how far from the first to the second.
    struct Between {
        std::size_t first = 0;
        std::size_t second = 0;
        float share = 0;
    };
    static std::vector<Between> places(int pixels);

    std::size_t width_ = 0;             ///< pixels to a side
    std::vector<std::int8_t> measures_; ///< how much each pixel is grass
    std::vector<Between> places_;       ///< of each cell of a row or column
    std::vector<float> blended_;
    std::vector<std::uint8_t> cells_;
    GrassColours colours_;
};

} // namespace tarvik
