// The frame in memory, and the two operations that store pixels in it.
//
// Both operations are defined here so that the compiler can inline them: a frame stores some 80,000
// logical pixels.
#pragma once

#include "shell/screen.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tarvik {

inline constexpr std::ptrdiff_t PIXEL_BYTES = 3;
inline constexpr std::ptrdiff_t ROW_BYTES = DEVICE_WIDTH * PIXEL_BYTES;

/// `screen_height` rows of `screen_width` pixels of PIXEL_BYTES bytes, red, green, blue, without
/// gaps. OpenGL draws upwards, so the lowest row comes first.
///
/// Its bytes are reached through this pointer only and never overlap the pointer itself. The
/// compiler has to be told, or it reloads the pointer after every pixel.
extern std::uint8_t* __restrict frame_buffer;

/// How many bytes those are.
inline std::size_t frame_bytes() {
    return static_cast<std::size_t>(screen_width) * static_cast<std::size_t>(screen_height) *
           PIXEL_BYTES;
}

void create_frame_buffer();
void release_frame_buffer();

/// Where device pixel (x, y) is kept; (x, y) must lie inside the frame buffer.
inline std::uint8_t* pixel_at(std::int32_t x, std::int32_t y) {
    return frame_buffer + (DEVICE_HEIGHT - 1 - y) * ROW_BYTES + x * PIXEL_BYTES;
}

/// Stores device pixel (x, y); outside the frame buffer it does nothing. Of each colour component
/// only the low 8 bits count.
inline void put_pixel(std::int32_t x, std::int32_t y, int red, int green, int blue) {
    if (x < 0 || x >= screen_width || y < 0 || y >= screen_height) {
        return;
    }
    std::uint8_t* pixel = pixel_at(x, y);
    pixel[0] = static_cast<std::uint8_t>(red);
    pixel[1] = static_cast<std::uint8_t>(green);
    pixel[2] = static_cast<std::uint8_t>(blue);
}

/// Stores logical pixel (x, y) as a block of 2 by 2 device pixels; outside the view it does
/// nothing, so callers need not clip. Everything the game draws goes through here.
///
/// The block's four device pixels lie inside wherever the logical one does. They are stored as two
/// rows of two equal pixels, each as a word of four bytes and one of two.
inline void plot(std::int32_t x, std::int32_t y, int red, int green, int blue) {
    if (x < 0 || x >= LOGICAL_WIDTH || y < 0 || y >= LOGICAL_HEIGHT) {
        return;
    }
    static_assert(std::endian::native == std::endian::little, "red is the words' lowest byte");
    const std::uint32_t pixel = (static_cast<std::uint32_t>(red) & 0xFFU) |
                                (static_cast<std::uint32_t>(green) & 0xFFU) << 8U |
                                (static_cast<std::uint32_t>(blue) & 0xFFU) << 16U;
    const std::uint32_t first_four = pixel | pixel << 24U;
    const auto last_two = static_cast<std::uint16_t>(pixel >> 8U);
    std::uint8_t* upper = pixel_at(2 * x, 2 * y);
    std::uint8_t* lower = upper - ROW_BYTES;
    std::memcpy(upper, &first_four, sizeof first_four);
    std::memcpy(upper + sizeof first_four, &last_two, sizeof last_two);
    std::memcpy(lower, &first_four, sizeof first_four);
    std::memcpy(lower + sizeof first_four, &last_two, sizeof last_two);
}

} // namespace tarvik
