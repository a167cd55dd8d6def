// From a drawing to a map, and what there is to say about both.
#pragma once

#include "tools/track/track_check.h"

#include <filesystem>
#include <iosfwd>

namespace tarvik {

/// Writes the map of a drawing, whole or not at all. Throws a Failure.
void build_track(const std::filesystem::path& drawing, const std::filesystem::path& map);

/// Checks a drawing or a map; prints a line for everything that its author should know, a drawing's
/// in its own units, and a verdict. Throws a Failure if it is neither.
TrackReport check_track_file(const std::filesystem::path& file, std::ostream& out);

} // namespace tarvik
