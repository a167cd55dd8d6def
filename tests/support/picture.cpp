// Reading frames.
#include "tests/support/picture.h"

#include "render/frame_buffer.h"
#include "render/glyph_table.h"

#include <ostream>
#include <stdexcept>

namespace tarvik::test {

std::ostream& operator<<(std::ostream& out, const Pixel& pixel) {
    return out << '(' << pixel.red << ", " << pixel.green << ", " << pixel.blue << ')';
}

Pixel Picture::device(int x, int y) const {
    const auto at = static_cast<std::size_t>(((height - 1 - y) * width + x) * 3);
    return {bytes.at(at), bytes.at(at + 1), bytes.at(at + 2)};
}

Pixel Picture::logical(int x, int y) const {
    const Pixel pixel = device(2 * x, 2 * y);
    if (device(2 * x + 1, 2 * y) != pixel || device(2 * x, 2 * y + 1) != pixel ||
        device(2 * x + 1, 2 * y + 1) != pixel) {
        throw std::runtime_error("a logical pixel is not of one colour: " + std::to_string(x) +
                                 "," + std::to_string(y));
    }
    return pixel;
}

Picture frame_buffer_copy() {
    const std::size_t size = static_cast<std::size_t>(screen_width * screen_height) * 3;
    return {{frame_buffer, frame_buffer + size}, screen_width, screen_height};
}

std::string pixels_of(const Picture& picture, Pixel colour) {
    std::string found;
    for (int y = 0; y < LOGICAL_HEIGHT; ++y) {
        for (int x = 0; x < LOGICAL_WIDTH; ++x) {
            if (picture.logical(x, y) == colour) {
                found += found.empty() ? "" : " ";
                found += std::to_string(x);
                found += ',';
                found += std::to_string(y);
            }
        }
    }
    return found;
}

bool shows_text(const Picture& picture, const std::string& text, int x, int y, Pixel colour) {
    int pen = x;
    for (const char character : text) {
        const char* glyph = glyph_table[static_cast<unsigned char>(character)];
        const int width = glyph[0] - '0';
        for (int row = 1; row <= GLYPH_ROWS; ++row) {
            for (int column = 0; column <= width && pen + column < LOGICAL_WIDTH; ++column) {
                const bool set = column < width && glyph[row * GLYPH_ROW_STRIDE + column] == '1';
                if ((picture.logical(pen + column, y + row) == colour) != set) {
                    return false;
                }
            }
        }
        pen += width + 1;
    }
    return true;
}

} // namespace tarvik::test
