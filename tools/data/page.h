// A drawing's square page, as cells of a track map.
#pragma once

#include "tools/data/grass_colours.h"
#include "tools/track/units.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace tarvik {

/// A page that becomes a map of MAP_SIDE cells to a side, whatever its own size.
class Page {
  public:
    virtual ~Page() = default;

    /// Draws the cells of whole rows of the map, as many as there is room for. Throws a Failure.
    virtual void draw(int first_row, std::span<std::uint8_t> cells) = 0;

    Units units;
    GrassColours colours; ///< of the rows drawn so far
};

/// Opens an SVG drawing, to be drawn in bands of so many rows. Throws a Failure.
std::unique_ptr<Page> open_svg(const std::filesystem::path& drawing, int band_rows);

/// Reads a PNG picture, which is scaled with smooth edges. Throws a Failure.
std::unique_ptr<Page> open_png(const std::filesystem::path& picture);

} // namespace tarvik
