// Whole files in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace tarvik {

/// The bytes of a file, at most `largest`. Throws a Failure if it cannot be read or has more.
std::vector<std::uint8_t> read_whole_file(const std::filesystem::path& path, std::size_t largest);

} // namespace tarvik
