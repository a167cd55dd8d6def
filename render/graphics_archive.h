// The file that holds the game's pictures.
//
// 1400 records, one for each sprite number from 0 on, with nothing before, between or after them.
// A record is three signed 32-bit little-endian integers, width, height and bytes per pixel,
// followed by their product's number of pixel bytes (rows from the top down, red, green, blue).
// The product is taken modulo 2^32 and read as signed; not above 0, it stands for an empty sprite
// and no pixel bytes follow.
#pragma once

#include <cstddef>

namespace tarvik {

/// How many pixel bytes are kept of one archive, all sprites together. The format knows no limit;
/// this one is far above what pictures for a view of 320 by 240 need. No sprite takes more than
/// half of what the ones before it have left; of a larger one the first bytes are kept. So an
/// archive that claims gigabytes, or holds them, costs neither the memory nor the time to draw
/// them.
inline constexpr std::size_t MAX_PIXEL_BYTES = std::size_t{32} * 1024 * 1024;

/// How many pixel bytes that are not kept are read to get at later records. Where they do not
/// suffice, the later sprites stay empty: gigabytes would have the player wait for seconds.
inline constexpr std::size_t MAX_SKIPPED_BYTES = std::size_t{512} * 1024 * 1024;

/// Fills `sprite_table` from ".\data\graphics.dat". Nothing is reported: a missing or unreadable
/// archive leaves every sprite empty, a short one the sprites after its end.
void load_graphics_archive();

} // namespace tarvik
