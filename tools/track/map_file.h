// Track map files: nothing but the cells.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace tarvik {

/// The MAP_BYTES cells of a map file. Throws a Failure if it cannot be read or has another size.
std::vector<std::uint8_t> read_map(const std::filesystem::path& path);

} // namespace tarvik
