// Walks the glyph texts and plots their set cells.
#include "render/text.h"

#include "render/frame_buffer.h"
#include "render/glyph_table.h"
#include "shell/out_of_memory.h"

namespace tarvik {

char* text_buffer = nullptr;

namespace {

const char* glyph_of(char character) {
    const auto code = static_cast<unsigned char>(character);
    return code < GLYPH_COUNT ? glyph_table[code] : nullptr;
}

} // namespace

void create_text_buffer() {
    text_buffer = allocate_buffer<char>(TEXT_BUFFER_SIZE, "text buffer");
}

void release_text_buffer() {
    delete[] text_buffer;
    text_buffer = nullptr;
}

void draw_text(std::int32_t x, std::int32_t y, int red, int green, int blue) {
    std::int32_t pen = x;
    for (const char* character = text_buffer; *character != '\0'; ++character) {
        const char* glyph = glyph_of(*character);
        if (glyph == nullptr) {
            continue;
        }
        const int width = glyph[0] - '0';
        for (int row = 1; row <= GLYPH_ROWS; ++row) {
            for (int column = 0; column < width; ++column) {
                if (glyph[row * GLYPH_ROW_STRIDE + column] != '0') {
                    plot(pen + column, y + row, red, green, blue);
                }
            }
        }
        pen += width + 1;
    }
}

} // namespace tarvik
