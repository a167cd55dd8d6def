// The grid's memory and the map loader.
#include "race/track_grid.h"

#include "shell/data_file.h"
#include "shell/out_of_memory.h"

#include <cstring>

namespace tarvik {

std::uint8_t* track_grid = nullptr;

void create_track_grid() {
    track_grid = allocate_buffer<std::uint8_t>(TRACK_MAP_BYTES, "track grid");
    std::memset(track_grid, CELL_OFF_TRACK, TRACK_MAP_BYTES);
}

void release_track_grid() {
    delete[] track_grid;
    track_grid = nullptr;
}

void load_track_map(const char* file_name) {
    DataFile map(file_name);
    if (map.is_open()) {
        map.read(track_grid, TRACK_MAP_BYTES);
    }
}

} // namespace tarvik
