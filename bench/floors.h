// What the machine needs for the bytes alone, with the fastest plain means: memset, memcpy and
// read, into memory that is allocated like the game's.
#pragma once

namespace tarvik::bench {

/// Clearing and copying the bytes of a frame buffer once.
void clear_and_copy_frame();

/// Copying as much as a completed lap: 12,000,000 bytes.
void copy_lap();

/// Reading a map from the page cache and storing as much as all ghost laps: 240,000,000 bytes.
void read_map_and_store_ghosts();

/// Storing 340,000,000 fresh bytes and reading the map into the first of them.
void store_fresh_and_read_map();

} // namespace tarvik::bench
