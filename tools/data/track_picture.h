// Previews of track maps as PNG pictures.
#pragma once

#include <filesystem>

namespace tarvik {

/// Draws the map in the game's own colours, `size` (1 to MAP_SIDE) pixels to a side. At MAP_SIDE
/// every cell is one pixel, and track build gives the same track back.
void preview_track(const std::filesystem::path& map, const std::filesystem::path& picture,
                   int size);

} // namespace tarvik
