// Graphics archives with a few pictures, in memory.
#pragma once

#include <cstdint>
#include <vector>

namespace tarvik::test {

/// An archive with an image for each given sprite number; all others are empty.
struct Image {
    int number;
    std::int32_t width;
    std::int32_t height;
    std::int32_t bytes_per_pixel;
    std::vector<std::uint8_t> bytes;
};
std::vector<std::uint8_t> archive_of(const std::vector<Image>& images);

/// A square image of one colour.
Image plain_image(int number, int side, std::uint32_t colour);

} // namespace tarvik::test
