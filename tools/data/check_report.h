// What the check of a track found, in words.
#pragma once

#include <filesystem>
#include <iosfwd>

namespace tarvik {

/// Checks the map and prints a line for each finding and a verdict; true if it can be raced.
/// Throws a Failure if the file is no map.
bool print_track_check(const std::filesystem::path& map, std::ostream& out);

} // namespace tarvik
