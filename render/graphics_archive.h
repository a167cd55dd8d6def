// The file that holds the game's pictures.
//
// 1400 records, one for each sprite number from 0 on, with nothing before, between or after them. A
// record is three signed 32-bit little-endian integers (its width, its height, the bytes of a
// pixel), followed by as many pixel bytes as their product says (rows from the top down, red,
// green, blue). The product is taken modulo 2^32 and read as signed; if it is 0 or negative, the
// sprite is empty and no pixel bytes follow.
#pragma once

#include <cstddef>

namespace tarvik {

// The format has no limits. These are far beyond anything that a view of 320 by 240 can show, and
// keep a file that claims or holds gigabytes from taking all memory or minutes of the player's
// time.

/// Pixel bytes kept of one record. Of a larger one the first are kept, the rest is passed over.
inline constexpr std::size_t MAX_SPRITE_BYTES = std::size_t{64} * 1024 * 1024;

/// Pixel bytes kept of all records together; those read after that keep next to nothing.
inline constexpr std::size_t MAX_PIXEL_BYTES = std::size_t{1024} * 1024 * 1024;

/// Pixel bytes passed over to get at later records, as many as the largest of all records has; that
/// can take seconds. A record that would take more is treated as the archive's last.
inline constexpr std::size_t MAX_SKIPPED_BYTES = std::size_t{2048} * 1024 * 1024;

/// Fills `sprite_table` from ".\data\graphics.dat". Nothing is reported: a missing or unreadable
/// archive leaves every sprite empty, a short one the sprites after its end.
void load_graphics_archive();

} // namespace tarvik
