// The frame in memory, and the two operations that store pixels in it.
#pragma once

#include "shell/screen.h"

#include <cstddef>
#include <cstdint>

namespace tarvik {

inline constexpr std::ptrdiff_t PIXEL_BYTES = 3;
inline constexpr std::ptrdiff_t ROW_BYTES = DEVICE_WIDTH * PIXEL_BYTES;

/// `screen_height` rows of `screen_width` pixels of PIXEL_BYTES bytes, red, green, blue, without
/// gaps. OpenGL draws upwards, so the lowest row comes first.
extern std::uint8_t* frame_buffer;

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
/// nothing, so callers need not clip. Everything goes through here but the track, which fills the
/// whole view.
inline void plot(std::int32_t x, std::int32_t y, int red, int green, int blue) {
    if (x < 0 || x >= LOGICAL_WIDTH || y < 0 || y >= LOGICAL_HEIGHT) {
        return;
    }
    put_pixel(2 * x, 2 * y, red, green, blue);
    put_pixel(2 * x + 1, 2 * y, red, green, blue);
    put_pixel(2 * x, 2 * y + 1, red, green, blue);
    put_pixel(2 * x + 1, 2 * y + 1, red, green, blue);
}

} // namespace tarvik
