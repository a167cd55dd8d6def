// An SVG drawing as cells of a track map.
#pragma once

#include "tools/data/grass_colours.h"
#include "tools/track/units.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace tarvik {

/// A drawing whose square page becomes a map of MAP_SIDE cells to a side, whatever its own size.
/// Everything that cannot be done is thrown as a Failure.
class SvgPage {
  public:
    /// Opens the drawing, to be rendered in bands of so many rows.
    SvgPage(const std::filesystem::path& drawing, int band_rows);
    ~SvgPage();
    SvgPage(const SvgPage&) = delete;
    SvgPage& operator=(const SvgPage&) = delete;

    /// The cells of the band that begins with this row of the map; valid until the next call.
    const std::vector<std::uint8_t>& band(int first_row);

    [[nodiscard]] const Units& units() const {
        return units_;
    }
    /// Of the bands so far.
    [[nodiscard]] const GrassColours& grass_colours() const {
        return colours_;
    }

  private:
    struct Rendering;

    std::filesystem::path drawing_; ///< for messages
    Units units_;
    std::unique_ptr<Rendering> rendering_;
    std::vector<std::uint8_t> cells_;
    GrassColours colours_;
};

} // namespace tarvik
