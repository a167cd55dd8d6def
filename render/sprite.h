// The table of numbered sprites.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tarvik {

inline constexpr int SPRITE_COUNT = 1400;

/// One sprite, empty until the graphics archive fills it; owns its pixel bytes.
struct Sprite {
    Sprite() = default;
    ~Sprite();
    Sprite(const Sprite&) = delete;
    Sprite& operator=(const Sprite&) = delete;

    /// Rows from the top down, pixels from left to right, `bytes_per_pixel` bytes each (red, green,
    /// blue). From std::malloc or std::calloc; null if and only if width * height * bytes_per_pixel
    /// is 0 or negative.
    std::uint8_t* pixels = nullptr;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t bytes_per_pixel = 0;

    /// How many bytes `pixels` holds. Fewer than the product above in a sprite that its file or the
    /// reader's limit cuts short: missing bytes count as 0.
    std::size_t pixel_bytes = 0;
};

/// SPRITE_COUNT sprites from start-up to shutdown, filled once by the graphics archive.
extern Sprite* sprite_table;

void create_sprite_table();
void release_sprite_table();

} // namespace tarvik
