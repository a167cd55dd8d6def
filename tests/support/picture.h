// A frame as the player sees it.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace tarvik::test {

struct Pixel {
    int red;
    int green;
    int blue;
    bool operator==(const Pixel&) const = default;
};

inline constexpr Pixel BLACK{0, 0, 0};
inline constexpr Pixel WHITE{255, 255, 255};
inline constexpr Pixel YELLOW{255, 255, 0};
inline constexpr Pixel ROAD{60, 60, 60};
inline constexpr Pixel GRASS{0, 200, 0};

std::ostream& operator<<(std::ostream& out, const Pixel& pixel);

/// A copy of a frame buffer, bottom row first.
struct Picture {
    std::vector<std::uint8_t> bytes;
    int width = 0;
    int height = 0;

    /// Device pixel, y = 0 at the top.
    Pixel device(int x, int y) const;

    /// Logical pixel; throws if its four device pixels differ, which fails the running test.
    Pixel logical(int x, int y) const;
};

/// A copy of what is in the frame buffer now.
Picture frame_buffer_copy();

/// The logical pixels of `colour`, as "x,y x,y ..." in rows from the top.
std::string pixels_of(const Picture& picture, Pixel colour);

/// Whether exactly the set cells of `text`, drawn with the game's font at logical (x, y), have
/// `colour` in the rectangle that the text takes.
bool shows_text(const Picture& picture, const std::string& text, int x, int y, Pixel colour);

} // namespace tarvik::test
