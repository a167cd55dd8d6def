// Whole files in memory.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace tarvik {

/// The bytes of a file. Throws a Failure if it cannot be read.
std::vector<std::uint8_t> read_whole_file(const std::filesystem::path& path);

} // namespace tarvik
