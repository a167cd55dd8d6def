// A frame as the player sees it.
#pragma once

#include "render/frame_buffer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarvik::test {

// Colours are 0xRRGGBB.
inline constexpr std::uint32_t BLACK = 0x000000;
inline constexpr std::uint32_t WHITE = 0xFFFFFF;
inline constexpr std::uint32_t YELLOW = 0xFFFF00;
inline constexpr std::uint32_t ROAD = 0x3C3C3C;
inline constexpr std::uint32_t GRASS = 0x00C800;

/// The logical pixels of a frame, row by row from the top.
struct Frame {
    std::vector<std::uint32_t> pixels;

    std::uint32_t at(int x, int y) const;
};

/// Reads a frame as OpenGL gets it; throws if a logical pixel is not of one colour, which fails
/// the running test.
Frame drawn_frame(const std::uint8_t* bytes = frame_buffer);

/// The logical pixels of `colour` in the frame buffer, as "x,y x,y ..." in rows from the top.
std::string pixels_of(std::uint32_t colour);

} // namespace tarvik::test
