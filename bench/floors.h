// What the machine needs for the bytes alone, with the fastest plain means: memset, memcpy and
// read, into memory as the game's own is allocated.
#pragma once

namespace tarvik::bench {

/// Clearing and copying the bytes of a frame buffer once.
void clear_and_copy_picture();

/// Copying as much as a completed lap: 12,000,000 bytes.
void copy_lap();

/// Reading a map from the page cache and storing as much as all ghost laps: 240,000,000 bytes.
void read_map_and_store_ghosts();

/// Reading the map into the first of 340,000,000 fresh bytes and touching the pages of the rest.
void touch_all_and_read_map();

} // namespace tarvik::bench
