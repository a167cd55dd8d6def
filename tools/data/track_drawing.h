// Track maps from SVG drawings.
#pragma once

#include <filesystem>

namespace tarvik {

/// Renders the square drawing to a map of MAP_SIDE cells to a side, whatever its own size, and
/// shows the progress on standard error. Returns whether there is any road. Throws a Failure.
bool build_track(const std::filesystem::path& drawing, const std::filesystem::path& map);

} // namespace tarvik
