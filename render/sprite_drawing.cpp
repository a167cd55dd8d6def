// Both drawing operations are one loop; they differ in what puts the pixel.
#include "render/sprite_drawing.h"

#include "render/frame_buffer.h"
#include "render/sprite.h"

#include <algorithm>
#include <cstddef>

namespace tarvik {

namespace {

/// Sprites that are drawn are read as red, green, blue, whatever depth they claim.
constexpr std::size_t DRAWN_BYTES_PER_PIXEL = 3;

template <typename Plot>
void draw_pixels(std::int32_t x, std::int32_t y, std::int32_t n, Plot plot_pixel) {
    if (n < 0 || n >= SPRITE_COUNT || sprite_table[n].width <= 0) {
        return;
    }
    const Sprite& sprite = sprite_table[n];
    std::size_t left = sprite.pixel_bytes / DRAWN_BYTES_PER_PIXEL; // pixels not yet drawn
    const std::uint8_t* pixel = sprite.pixels;
    for (std::int32_t row = 0; row < sprite.width && left > 0; ++row) {
        for (std::int32_t column = 0; column < sprite.width && left > 0; ++column, --left) {
            const int red = pixel[0];
            const int green = pixel[1];
            const int blue = pixel[2];
            if ((red | green | blue) != 0) {
                plot_pixel(x + column, y + row, red, green, blue);
            }
            pixel += DRAWN_BYTES_PER_PIXEL;
        }
    }
}

} // namespace

void draw_sprite(std::int32_t x, std::int32_t y, std::int32_t n) {
    draw_pixels(x, y, n, plot);
}

void draw_sprite_clamped(std::int32_t x, std::int32_t y, std::int32_t n) {
    draw_pixels(x, y, n, plot_clamped);
}

void plot_clamped(std::int32_t x, std::int32_t y, int red, int green, int blue) {
    plot(std::max(x, 0), std::max(y, 0), red, green, blue);
}

} // namespace tarvik
