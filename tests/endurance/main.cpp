// tarvik-endurance DRIVE COUNT [SEED]: drives for hours of play without a display, twice over, and
// says whether both were the same and whether the memory has grown.
//
//   tarvik-endurance random 1000000      any keys at any time, COUNT frames
//   tarvik-endurance endless 1000000     one lap until it is given up, its last COUNT frames
//   tarvik-endurance laps 10000          COUNT laps, each as short as a lap can be
//   tarvik-endurance switches 1000       COUNT track switches
#include "bench/process_memory.h"
#include "game/start_up.h"
#include "tests/endurance/long_drives.h"
#include "tests/signature/drives.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

using namespace tarvik;
using namespace tarvik::test;

// What a kernel that hands out pages in bundles makes of nothing at all.
constexpr double STILL_NO_GROWTH = 256.0 * 1024.0;

bool drive_twice(const LongDrive& drive, long count, std::uint32_t seed) {
    drive.drive(1, seed); // the allocator gets to know the sizes that are asked for again and again
    const long frames_before = frames_driven();
    const auto start = std::chrono::steady_clock::now();
    const std::uint64_t first = drive.drive(count, seed);
    const double memory_before = bench::memory_now();
    const std::uint64_t second = drive.drive(count, seed);
    const double growth = bench::memory_now() - memory_before;
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    std::printf("%s: %ld %s, twice, %ld frames in all, %.0f s\n", drive.name, count, drive.counts,
                frames_driven() - frames_before, time.count());
    std::printf("number %08x%08x, %s; memory %.1f MB, %.0f bytes more than after the first\n",
                static_cast<unsigned>(first >> 32U), static_cast<unsigned>(first),
                first == second ? "the same again" : "ANOTHER THE SECOND TIME",
                memory_before * 1e-6, growth);
#ifdef __SANITIZE_ADDRESS__ // which keeps what was freed
    const bool has_grown = false;
#else
    const bool has_grown = growth > STILL_NO_GROWTH;
#endif
    if (has_grown) {
        std::printf("THE MEMORY HAS GROWN\n");
    }
    return first == second && !has_grown;
}

} // namespace

int main(int argc, char** argv) {
    const LongDrive* drive = argc >= 2 ? find_long_drive(argv[1]) : nullptr;
    const long count = argc >= 3 ? std::atol(argv[2]) : 0;
    if (drive == nullptr || count <= 0 || argc > 4) {
        std::fprintf(stderr, "usage: tarvik-endurance random|endless|laps|switches COUNT [SEED]\n");
        return 2;
    }
    const auto seed = static_cast<std::uint32_t>(argc == 4 ? std::atol(argv[3]) : 1);
    install_drive_data();
    start_up();
    bool good = false;
    try {
        good = drive_twice(*drive, count, seed);
    } catch (const std::exception& fault) {
        std::printf("%s: %s\n", drive->name, fault.what());
    }
    shut_down();
    return good ? EXIT_SUCCESS : EXIT_FAILURE;
}
