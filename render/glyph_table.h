// The built-in font.
//
// A glyph text is a string of rows of GLYPH_ROW_STRIDE characters. Row 0 is the header: its first
// character is the glyph's width in cells, "1" to "7", the rest is not used for drawing. Rows 1 to
// GLYPH_ROWS are the glyph from its top down, "1" for a set cell; cells beyond the width are
// padding and never drawn, like the row that all but the space have at their end.
#pragma once

namespace tarvik {

inline constexpr int GLYPH_COUNT = 128;
inline constexpr int GLYPH_ROW_STRIDE = 8;
inline constexpr int GLYPH_ROWS = 9;

/// Glyph texts by character code; null where a code has none (0 to 31, 96 and 123 to 127).
extern const char* const glyph_table[GLYPH_COUNT];

} // namespace tarvik
