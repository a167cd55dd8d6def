// Both drawing operations share one loop; they differ in how they plot a pixel, and in whether
// pixels beyond the left or the upper edge can be skipped.
#include "render/sprite_drawing.h"

#include "render/frame_buffer.h"
#include "render/sprite.h"

#include <algorithm>
#include <cstddef>

namespace tarvik {

namespace {

/// Sprites that are drawn are read as red, green, blue, whatever depth they claim.
constexpr std::int64_t DRAWN_BYTES_PER_PIXEL = 3;

enum class OutsideTopLeft { DROPPED, MOVED_TO_THE_EDGE };

bool is_transparent(const std::uint8_t* pixel) {
    return (pixel[0] << 16 | pixel[1] << 8 | pixel[2]) == SPRITE_TRANSPARENT;
}

/// Which columns (or rows) of a sprite can show: from `first` up to `end`, `end` not included.
struct Span {
    std::int64_t first;
    std::int64_t end;
};

Span showing(std::int64_t position, std::int64_t width, std::int64_t view_size,
             OutsideTopLeft outside) {
    const std::int64_t before = std::max<std::int64_t>(-position, 0);
    return {.first = outside == OutsideTopLeft::DROPPED ? before : 0,
            .end = std::min(width, view_size - position)};
}

/// Where to start a row whose first columns, up to `edge`, all land on the view's left column: at
/// the last of them that is drawn, as that one stays.
std::int64_t last_on_edge(const std::uint8_t* row_pixels, std::int64_t edge) {
    while (edge > 0 && is_transparent(row_pixels + edge * DRAWN_BYTES_PER_PIXEL)) {
        --edge;
    }
    return std::max<std::int64_t>(edge, 0);
}

/// A sprite may claim any width yet hold almost nothing, and it may be drawn anywhere: the loop
/// visits only pixels that the sprite holds and that can show, and counts in 64 bits.
template <OutsideTopLeft outside, typename Plot>
void draw_pixels(std::int32_t x, std::int32_t y, std::int32_t n, Plot plot_pixel) {
    if (n < 0 || n >= SPRITE_COUNT || sprite_table[n].width <= 0) {
        return;
    }
    const Sprite& sprite = sprite_table[n];
    const auto pixels_held = static_cast<std::int64_t>(sprite.pixel_bytes) / DRAWN_BYTES_PER_PIXEL;
    const Span rows = showing(y, sprite.width, LOGICAL_HEIGHT, outside);
    const Span columns = showing(x, sprite.width, LOGICAL_WIDTH, outside);
    for (std::int64_t row = rows.first; row < rows.end; ++row) {
        const std::int64_t row_start = row * sprite.width;
        if (row_start >= pixels_held) {
            return;
        }
        const std::uint8_t* row_pixels = sprite.pixels + row_start * DRAWN_BYTES_PER_PIXEL;
        const std::int64_t end = std::min(columns.end, pixels_held - row_start);
        std::int64_t column = columns.first;
        if (outside == OutsideTopLeft::MOVED_TO_THE_EDGE) {
            column = last_on_edge(row_pixels, std::min(-std::int64_t{x}, end - 1));
        }
        for (; column < end; ++column) {
            const std::uint8_t* pixel = row_pixels + column * DRAWN_BYTES_PER_PIXEL;
            if (!is_transparent(pixel)) {
                plot_pixel(static_cast<std::int32_t>(x + column),
                           static_cast<std::int32_t>(y + row), pixel[0], pixel[1], pixel[2]);
            }
        }
    }
}

} // namespace

void draw_sprite(std::int32_t x, std::int32_t y, std::int32_t n) {
    draw_pixels<OutsideTopLeft::DROPPED>(x, y, n, plot);
}

void draw_sprite_clamped(std::int32_t x, std::int32_t y, std::int32_t n) {
    draw_pixels<OutsideTopLeft::MOVED_TO_THE_EDGE>(x, y, n, plot_clamped);
}

void plot_clamped(std::int32_t x, std::int32_t y, int red, int green, int blue) {
    plot(std::max(x, 0), std::max(y, 0), red, green, blue);
}

} // namespace tarvik
