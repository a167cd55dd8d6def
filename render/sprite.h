// The table of numbered pictures.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tarvik {

inline constexpr int SPRITE_COUNT = 1400;

/// One picture, empty until the graphics archive fills it; owns its pixel bytes.
struct Sprite {
    Sprite() = default;
    ~Sprite();
    Sprite(const Sprite&) = delete;
    Sprite& operator=(const Sprite&) = delete;

    /// Rows from the top down, pixels from left to right, `bytes_per_pixel` bytes each (red,
    /// green, blue). From std::malloc or std::calloc; null exactly while width * height *
    /// bytes_per_pixel is not above 0.
    std::uint8_t* pixels = nullptr;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t bytes_per_pixel = 0;

    /// How many bytes `pixels` holds. Fewer than the product above in a picture that its file
    /// or the reader's limit cuts short: the bytes that are not held count as 0.
    std::size_t pixel_bytes = 0;
};

/// SPRITE_COUNT pictures from start-up to shutdown, filled once by the graphics archive.
extern Sprite* sprite_table;

void create_sprite_table();
void release_sprite_table();

} // namespace tarvik
