// Graphics archives with a few pictures, in memory.
#pragma once

#include "render/sprite.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tarvik::test {

struct Image {
    int number;
    std::int32_t width;
    std::int32_t height;
    std::int32_t bytes_per_pixel;
    std::vector<std::uint8_t> bytes;
};

/// An archive with an image for each given sprite number; all others are empty.
inline std::vector<std::uint8_t> archive_of(const std::vector<Image>& images) {
    std::vector<std::uint8_t> archive;
    for (int number = 0; number < SPRITE_COUNT; ++number) {
        const auto found = std::find_if(images.begin(), images.end(), [number](const Image& each) {
            return each.number == number;
        });
        const Image image = found == images.end() ? Image{} : *found;
        const std::int32_t header[] = {image.width, image.height, image.bytes_per_pixel};
        const auto* header_bytes = reinterpret_cast<const std::uint8_t*>(header);
        archive.insert(archive.end(), header_bytes, header_bytes + sizeof header);
        archive.insert(archive.end(), image.bytes.begin(), image.bytes.end());
    }
    return archive;
}

/// A square image of one colour.
inline Image plain_image(int number, int side, std::uint32_t colour) {
    Image image{number, side, side, 3, {}};
    for (int i = 0; i < side * side; ++i) {
        for (const unsigned shift : {16U, 8U, 0U}) {
            image.bytes.push_back(static_cast<std::uint8_t>(colour >> shift));
        }
    }
    return image;
}

} // namespace tarvik::test
