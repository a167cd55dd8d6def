// The floors' memory is their own and, but for the last, warm.
#include "bench/floors.h"

#include "race/track_grid.h"
#include "shell/out_of_memory.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace tarvik::bench {

namespace {

constexpr std::size_t PICTURE_BYTES = 921600;
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
    const int file = open("data/race1.map", O_RDONLY | O_CLOEXEC);
    std::size_t done = 0;
    while (done < TRACK_MAP_BYTES) {
        const ssize_t count = read(file, target + done, TRACK_MAP_BYTES - done);
        if (count <= 0) {
            break;
        }
        done += static_cast<std::size_t>(count);
    }
    close(file);
}

} // namespace

void clear_and_copy_picture() {
    static std::uint8_t* const picture = warm(PICTURE_BYTES);
    static std::uint8_t* const copy = warm(PICTURE_BYTES);
    std::memset(picture, 0, PICTURE_BYTES);
    benchmark::ClobberMemory();
    std::memcpy(copy, picture, PICTURE_BYTES);
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
