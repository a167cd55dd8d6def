// Reading frames.
#include "tests/support/picture.h"

#include <cstring>
#include <stdexcept>

namespace tarvik::test {

std::uint32_t Picture::at(int x, int y) const {
    return pixels.at(static_cast<std::size_t>(y * LOGICAL_WIDTH + x));
}

Picture drawn_picture(const std::uint8_t* frame) {
    Picture picture;
    for (int y = 0; y < LOGICAL_HEIGHT; ++y) {
        const std::uint8_t* pixel = frame + (DEVICE_HEIGHT - 1 - 2 * y) * ROW_BYTES;
        for (int x = 0; x < LOGICAL_WIDTH; ++x, pixel += 2 * PIXEL_BYTES) {
            if (std::memcmp(pixel, pixel + PIXEL_BYTES, PIXEL_BYTES) != 0 ||
                std::memcmp(pixel, pixel - ROW_BYTES, 2 * PIXEL_BYTES) != 0) {
                throw std::runtime_error("a logical pixel is not of one colour: " +
                                         std::to_string(x) + "," + std::to_string(y));
            }
            picture.pixels.push_back(std::uint32_t{pixel[0]} << 16U |
                                     std::uint32_t{pixel[1]} << 8U | pixel[2]);
        }
    }
    return picture;
}

std::string pixels_of(std::uint32_t colour) {
    const Picture picture = drawn_picture();
    std::string found;
    for (std::size_t at = 0; at < picture.pixels.size(); ++at) {
        if (picture.pixels[at] == colour) {
            found += found.empty() ? "" : " ";
            found += std::to_string(at % LOGICAL_WIDTH) + "," + std::to_string(at / LOGICAL_WIDTH);
        }
    }
    return found;
}

} // namespace tarvik::test
