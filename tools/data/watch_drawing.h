// Keeps the map of a drawing up to date.
#pragma once

#include <filesystem>
#include <iosfwd>

namespace tarvik {

/// Whenever the drawing has been saved, by writing it or by moving another file into its place,
/// builds its map again and prints a line; says on standard error what it cannot build, and leaves
/// the map as it was. Returns when standard input ends. Throws a Failure if it cannot watch.
void watch_drawing(const std::filesystem::path& drawing, const std::filesystem::path& map,
                   std::ostream& out);

} // namespace tarvik
