// Reading frames.
#include "tests/support/frame.h"

#include <cstring>
#include <stdexcept>

namespace tarvik::test {

std::uint32_t Frame::at(int x, int y) const {
    return pixels.at(static_cast<std::size_t>(y * LOGICAL_WIDTH + x));
}

Frame drawn_frame(const std::uint8_t* bytes) {
    Frame frame;
    for (int y = 0; y < LOGICAL_HEIGHT; ++y) {
        const std::uint8_t* pixel = bytes + (DEVICE_HEIGHT - 1 - 2 * y) * ROW_BYTES;
        for (int x = 0; x < LOGICAL_WIDTH; ++x, pixel += 2 * PIXEL_BYTES) {
            if (std::memcmp(pixel, pixel + PIXEL_BYTES, PIXEL_BYTES) != 0 ||
                std::memcmp(pixel, pixel - ROW_BYTES, 2 * PIXEL_BYTES) != 0) {
                throw std::runtime_error("a logical pixel is not of one colour: " +
                                         std::to_string(x) + "," + std::to_string(y));
            }
            frame.pixels.push_back(std::uint32_t{pixel[0]} << 16U | std::uint32_t{pixel[1]} << 8U |
                                   pixel[2]);
        }
    }
    return frame;
}

std::string pixels_of(std::uint32_t colour) {
    const Frame frame = drawn_frame();
    std::string found;
    for (std::size_t at = 0; at < frame.pixels.size(); ++at) {
        if (frame.pixels[at] == colour) {
            found += found.empty() ? "" : " ";
            found += std::to_string(at % LOGICAL_WIDTH) + "," + std::to_string(at / LOGICAL_WIDTH);
        }
    }
    return found;
}

} // namespace tarvik::test
