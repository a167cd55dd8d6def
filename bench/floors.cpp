// Each floor has memory of its own; all but the last have touched it before they are timed.
#include "bench/floors.h"

#include "race/track_grid.h"
#include "shell/out_of_memory.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <fstream>

namespace tarvik::bench {

namespace {

constexpr std::size_t FRAME_BYTES = 921600;
constexpr std::size_t LAP_BYTES = 12000000;
constexpr std::size_t GHOST_BYTES = 240000000;

std::uint8_t* fresh(std::size_t bytes) {
    return allocate_buffer<std::uint8_t>(bytes, "benchmark");
}

std::uint8_t* warm(std::size_t bytes) {
    std::uint8_t* memory = fresh(bytes);
    std::memset(memory, 1, bytes);
    return memory;
}

void read_map(std::uint8_t* target) {
    std::ifstream("data/race1.map", std::ios::binary) // reads this much with one call
        .read(reinterpret_cast<char*>(target), TRACK_MAP_BYTES);
}

} // namespace

void clear_and_copy_frame() {
    static std::uint8_t* const frame = warm(FRAME_BYTES);
    static std::uint8_t* const copy = warm(FRAME_BYTES);
    std::memset(frame, 0, FRAME_BYTES);
    benchmark::ClobberMemory();
    std::memcpy(copy, frame, FRAME_BYTES);
    benchmark::ClobberMemory();
}

void copy_lap() {
    static std::uint8_t* const lap = warm(LAP_BYTES);
    static std::uint8_t* const ghost = warm(LAP_BYTES);
    std::memcpy(ghost, lap, LAP_BYTES);
    benchmark::ClobberMemory();
}

void read_map_and_store_ghosts() {
    static std::uint8_t* const map = warm(TRACK_MAP_BYTES);
    static std::uint8_t* const ghosts = warm(GHOST_BYTES);
    read_map(map);
    std::memset(ghosts, 111, GHOST_BYTES); // not 0, for which some processors have a short cut
    benchmark::ClobberMemory();
}

void store_fresh_and_read_map() {
    std::uint8_t* memory = fresh(TRACK_MAP_BYTES + GHOST_BYTES);
    std::memset(memory, 1, TRACK_MAP_BYTES + GHOST_BYTES);
    benchmark::ClobberMemory();
    read_map(memory);
    benchmark::ClobberMemory();
}

} // namespace tarvik::bench
