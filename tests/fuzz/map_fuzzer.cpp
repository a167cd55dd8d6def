// Map files of any length and content, loaded by themselves or by the keys of the race, and frames
// at places all over the grid and beside it.
#include "platform/driver.h"
#include "platform/scripted/scripted.h"
#include "race/race_state.h"
#include "race/track_grid.h"
#include "shell/input.h"
#include "tests/fuzz/fuzz_game.h"

#include <algorithm>
#include <cstring>
#include <fuzzer/FuzzedDataProvider.h>

namespace tarvik::fuzz {

namespace {

using Input = FuzzedDataProvider;

/// The memory that map files are written in: never given back, and zero but for the patches, as
/// inputs change little of it.
std::vector<std::uint8_t> map_memory;
struct Patch {
    std::size_t at;
    std::size_t count;
};
std::vector<Patch> patches;

std::size_t file_length(Input& input) {
    constexpr std::size_t LENGTHS[] = {0,        1,        9999,      10000,     10001,    24800000,
                                       99990000, 99999999, 100000000, 100000001, 100010000};
    switch (input.ConsumeIntegralInRange(0, 11)) {
    case 0:
        return input.PickValueInArray(LENGTHS);
    case 1:
        return input.ConsumeIntegralInRange<std::size_t>(0, 100010000);
    default:
        return input.ConsumeIntegral<std::uint16_t>();
    }
}

void patch_map(Input& input, std::vector<std::uint8_t>& bytes) {
    const std::size_t at = input.ConsumeIntegralInRange<std::size_t>(0, bytes.size() - 1);
    const std::size_t room = bytes.size() - at;
    if (input.ConsumeBool()) {
        const std::size_t count =
            std::min<std::size_t>(room, input.ConsumeIntegral<std::uint16_t>());
        std::memset(&bytes[at], input.ConsumeIntegral<std::uint8_t>(), count);
        patches.push_back({at, count});
    } else {
        const auto cells =
            input.ConsumeBytes<std::uint8_t>(input.ConsumeIntegralInRange<std::size_t>(0, 256));
        const std::size_t count = std::min(room, cells.size());
        std::copy_n(cells.data(), count, &bytes[at]);
        patches.push_back({at, count});
    }
}

/// A file that holds mostly road, and here and there what the input says.
scripted::File& write_map(Input& input, const char* name) {
    scripted::File& file = scripted::memory_files[name];
    file.bytes.swap(map_memory);
    file.bytes.resize(file_length(input));
    for (int count = input.ConsumeIntegralInRange(0, 8); count > 0 && !file.bytes.empty();
         --count) {
        patch_map(input, file.bytes);
    }
    file.read_only = input.ConsumeIntegralInRange(0, 15) == 0;
    return file;
}

void take_memory_back(scripted::File& file) {
    for (const Patch& patch : patches) {
        std::memset(&file.bytes[patch.at], 0, patch.count);
    }
    patches.clear();
    file.bytes.swap(map_memory);
}

/// The file's cells from the first one on, then those that were there before.
void check_grid(const scripted::File& file, const std::vector<std::uint8_t>& before) {
    const std::size_t loaded =
        file.read_only ? 0 : std::min<std::size_t>(file.bytes.size(), TRACK_MAP_BYTES);
    require(std::memcmp(track_grid, file.bytes.data(), loaded) == 0,
            "cells differ from the file's");
    const std::size_t after = std::min<std::size_t>(TRACK_MAP_BYTES - loaded, 1000000);
    require(std::memcmp(track_grid + loaded, before.data() + loaded, after) == 0,
            "cells after the file's end have changed");
}

void load(Input& input) {
    const bool second = input.ConsumeBool();
    const char* name = second ? "data/race2.map" : "data/race1.map";
    scripted::File& file = write_map(input, name);
    mark_loaded(file.bytes.size());
    if (input.ConsumeIntegralInRange(0, 7) == 0) {
        key_down[second ? VK_OEM_6 : VK_OEM_4] = 1;
        run_frame();
        key_down[VK_OEM_6] = key_down[VK_OEM_4] = 0;
        require(race_number == (second ? 2 : 1), "not the track that was asked for");
    } else {
        load_track_map(second ? ".\\data\\race2.map" : ".\\data\\race1.map");
    }
    check_grid(file, base_map());
    take_memory_back(file);
}

void look_round(Input& input) {
    constexpr float PLACES[] = {-1000.0F, -6.5F,   -0.5F,   0.0F,    5.9F,     160.0F,  5000.0F,
                                9840.0F,  9880.0F, 9994.0F, 9999.9F, 10005.9F, 11000.0F};
    difficulty = input.ConsumeIntegralInRange(EASY, ADVANCED);
    for (int frames = input.ConsumeIntegralInRange(1, 8); frames > 0; --frames) {
        const bool anywhere = input.ConsumeBool();
        car_x[PLAYER_SLOT] = anywhere ? input.ConsumeFloatingPointInRange(-20.0F, 10020.0F)
                                      : input.PickValueInArray(PLACES);
        car_y[PLAYER_SLOT] = anywhere ? input.ConsumeFloatingPointInRange(-20.0F, 10020.0F)
                                      : input.PickValueInArray(PLACES);
        run_frame();
    }
}

} // namespace

} // namespace tarvik::fuzz

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    using namespace tarvik::fuzz;
    start_game();
    map_memory.reserve(tarvik::TRACK_MAP_BYTES + 10000);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik::fuzz;
    reset_game();
    FuzzedDataProvider input(data, size);
    load(input);
    look_round(input);
    return 0;
}
