// Files that are read and written as a whole.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <span>
#include <string>

namespace tarvik {

using OpenFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// Opens a file for reading. Throws a Failure if it cannot be read.
OpenFile open_file(const std::filesystem::path& path);

/// Writes a file that appears whole or not at all: an earlier one of that name stays until the new
/// one is complete, whatever goes wrong and whoever interrupts. A target that is no regular file (a
/// device, a pipe) is written directly. Throws a Failure.
void write_whole_file(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

/// The ending of a file's name in small letters, as in ".png".
std::string ending(const std::filesystem::path& path);

} // namespace tarvik
