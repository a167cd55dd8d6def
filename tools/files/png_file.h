// PNG pictures as plain bytes, through libpng.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace tarvik {

/// A picture of `width` by `height` pixels, four bytes each: red, green, blue, alpha (255 is
/// opaque); the top row first.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgba;
};

/// Reads any kind of PNG. Throws a Failure if the file cannot be read, is no PNG, is damaged, or
/// is wider or higher than `largest_side`.
Picture read_png(const std::filesystem::path& path, int largest_side);

/// The same, and throws a Failure if it is not square.
Picture read_square_png(const std::filesystem::path& path, int largest_side);

/// Writes a picture whole or not at all.
void write_png(const std::filesystem::path& path, const Picture& picture);

/// A picture of one byte a pixel, each the number of a colour.
struct IndexedPicture {
    int width = 0;
    int height = 0;
    std::array<std::array<std::uint8_t, 3>, 256> colours{}; ///< red, green, blue
    std::vector<std::uint8_t> pixels;
};

void write_png(const std::filesystem::path& path, const IndexedPicture& picture);

} // namespace tarvik
