// Drawing text with the built-in font.
#pragma once

#include <cstdint>

namespace tarvik {

inline constexpr int TEXT_BUFFER_SIZE = 110;

/// The text to draw, NUL-terminated, at most TEXT_BUFFER_SIZE - 1 characters: format into it, then
/// call draw_text. It stays there until the next text is formatted.
extern char* text_buffer;

void create_text_buffer();
void release_text_buffer();

/// Draws `text_buffer` with its top-left corner at logical (x, y). Capitals and digits take the
/// five rows from y + 3 on, and the lowest letters end two rows below them. Only set cells are
/// drawn; what is beneath the others stays. Characters without a glyph are skipped and take up no
/// width.
void draw_text(std::int32_t x, std::int32_t y, int red, int green, int blue);

} // namespace tarvik
