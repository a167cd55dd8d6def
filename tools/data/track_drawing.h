// Tracks as somebody has drawn them.
#pragma once

#include "tools/track/units.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tarvik {

struct DrawnTrack {
    std::vector<std::uint8_t> cells; ///< MAP_BYTES of them
    Units units;
    std::vector<std::string> notes; ///< about the drawing, each a line that says what to do
};

/// Whether the file's name ends like that of an SVG drawing or a PNG picture.
bool is_drawing(const std::filesystem::path& file);

/// Draws an SVG drawing or a PNG picture to the cells of a map: the
/// square page becomes MAP_SIDE cells to a side, whatever its own size. Throws a Failure.
DrawnTrack draw_track(const std::filesystem::path& drawing);

} // namespace tarvik
