// Drawing sprites into the view.
#pragma once

#include <cstdint>

namespace tarvik {

/// Sprite numbers that the race draws.
inline constexpr std::int32_t START_MARKER_IMAGE = 30;
inline constexpr std::int32_t CURSOR_IMAGE = 250;

/// The colour of a sprite's transparent pixels, 0xRRGGBB: black.
inline constexpr std::int32_t SPRITE_TRANSPARENT = 0x000000;

/// Draws sprite n (0 to SPRITE_COUNT - 1; any other number draws nothing) as a square of its
/// width, top-left corner at logical (x, y), but for its pixels of SPRITE_TRANSPARENT. Of a sprite
/// with another shape or depth only the pixels inside its bytes are drawn.
void draw_sprite(std::int32_t x, std::int32_t y, std::int32_t n);

/// The same, but pixels beyond the left or the upper edge are drawn on that edge; where several
/// share a place, the last one wins.
void draw_sprite_clamped(std::int32_t x, std::int32_t y, std::int32_t n);

/// `plot` with negative coordinates moved to 0.
void plot_clamped(std::int32_t x, std::int32_t y, int red, int green, int blue);

} // namespace tarvik
