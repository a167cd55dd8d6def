// The picture in memory, and the two operations that store pixels in it.
//
// Device pixels are the 640 by 480 of the window, logical pixels the 320 by 240 of the view; both
// count from the top-left corner, y growing downwards. Logical pixel (x, y) covers the device
// pixels (2x..2x+1, 2y..2y+1). Both operations are defined here for the compiler to see through:
// a frame stores some 80,000 logical pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tarvik {

inline constexpr std::int32_t LOGICAL_WIDTH = 320;
inline constexpr std::int32_t LOGICAL_HEIGHT = 240;

/// Bytes of a row of the frame buffer.
inline constexpr std::ptrdiff_t ROW_BYTES = std::ptrdiff_t{2 * LOGICAL_WIDTH} * 3;

/// Size of the frame buffer in device pixels: 640 by 480, fixed before the buffer is created.
extern std::int32_t screen_width;
extern std::int32_t screen_height;

/// `screen_width` * `screen_height` pixels of three bytes, red, green, blue. The first row in
/// memory is the BOTTOM row of the picture, as glDrawPixels expects it; rows have no padding.
extern std::uint8_t* frame_buffer;

void create_frame_buffer();
void release_frame_buffer();

/// Stores device pixel (x, y); outside the frame buffer it does nothing. Only the low 8 bits of
/// each colour component count.
inline void put_pixel(std::int32_t x, std::int32_t y, int red, int green, int blue) {
    if (x < 0 || x > screen_width - 1 || y < 0 || y > screen_height - 1) {
        return;
    }
    const std::ptrdiff_t row = screen_height - 1 - y;
    std::uint8_t* pixel = frame_buffer + (row * screen_width + x) * 3;
    pixel[0] = static_cast<std::uint8_t>(red);
    pixel[1] = static_cast<std::uint8_t>(green);
    pixel[2] = static_cast<std::uint8_t>(blue);
}

/// Stores logical pixel (x, y) as a block of 2 by 2 device pixels; outside the view it does
/// nothing, so callers need not clip. Everything the game draws goes through here.
///
/// Each of the block's two rows is two equal pixels, stored as four bytes and two. A caller with a
/// long loop passes `frame_buffer` from a local: for all the compiler knows the bytes stored could
/// be those of the pointer itself, which it would then load again for every pixel.
inline void plot(std::int32_t x, std::int32_t y, int red, int green, int blue,
                 std::uint8_t* buffer = frame_buffer) {
    if (x < 0 || x >= LOGICAL_WIDTH || y < 0 || y >= LOGICAL_HEIGHT) {
        return;
    }
    const std::uint32_t pixel = (static_cast<std::uint32_t>(red) & 0xFFU) |
                                (static_cast<std::uint32_t>(green) & 0xFFU) << 8U |
                                (static_cast<std::uint32_t>(blue) & 0xFFU) << 16U;
    const std::uint32_t first_four = pixel | pixel << 24U;
    const auto last_two = static_cast<std::uint16_t>(pixel >> 8U);
    std::uint8_t* bytes = buffer + (LOGICAL_HEIGHT - 1 - y) * (2 * ROW_BYTES) + x * 6;
    for (int row = 0; row < 2; ++row) {
        std::memcpy(bytes, &first_four, sizeof first_four);
        std::memcpy(bytes + sizeof first_four, &last_two, sizeof last_two);
        bytes += ROW_BYTES;
    }
}

} // namespace tarvik
