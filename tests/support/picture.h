// A frame as the player sees it.
#pragma once

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
struct Picture {
    std::vector<std::uint32_t> pixels;

    std::uint32_t at(int x, int y) const;
};

/// Reads `frame` as OpenGL gets it; throws if a logical pixel is not of one colour, which fails
/// the running test.
Picture picture_of(const std::uint8_t* frame);

/// What is in the frame buffer now.
Picture drawn_picture();

/// The logical pixels of `colour` in the frame buffer, as "x,y x,y ..." in rows from the top.
std::string pixels_of(std::uint32_t colour);

/// Whether exactly the set cells of `text`, drawn with the game's font at logical (x, y), have
/// `colour` in the rectangle that the text takes.
bool shows_text(const Picture& picture, const std::string& text, int x, int y,
                std::uint32_t colour);

} // namespace tarvik::test
