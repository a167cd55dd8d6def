// Starts this program again for each sample and reads the one number that it prints.
#include "bench/start_rows.h"

#include "bench/floors.h"
#include "bench/process_memory.h"
#include "bench/row.h"
#include "game/start_up.h"
#include "platform/scripted/scripted.h"
#include "race/laps.h"
#include "race/race_frame.h"
#include "race/race_state.h"
#include "race/track_grid.h"
#include "shell/input.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace tarvik::bench {

namespace {

constexpr double GAME_BYTES = 340e6; // grid and ghost laps

double start_time = 0.0;

void on_first_picture(const std::uint8_t*, int, int) {
    std::printf("%.9f\n", now() - start_time);
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS);
}

/// Start, some driving, more laps than there are ghosts, a track switch.
void play_everything() {
    start_up();
    load_track_map(".\\data\\race1.map");
    for (int i = 0; i < 2000; ++i) {
        if (i % 250 == 0) {
            car_x[PLAYER_SLOT] = BOX_LEFT + BOX_SIZE / 2.0F;
            car_y[PLAYER_SLOT] = BOX_TOP + BOX_SIZE / 2.0F;
            cycle[PLAYER_SLOT] = MIN_LAP_FRAMES + 1;
        }
        key_down[VK_OEM_6] = i == 1000 ? 1 : 0;
        race_frame();
    }
}

double sample(const std::string& name) {
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    const std::string command = "'" + program + "' --sample " + name;
    std::FILE* output = popen(command.c_str(), "r");
    double result = 0.0;
    const bool read = output != nullptr && std::fscanf(output, "%lf", &result) == 1;
    if (output == nullptr || pclose(output) != 0 || !read) {
        throw std::runtime_error("no result from " + command);
    }
    return result;
}

void start(benchmark::State& state) {
    compare(
        state, [] { return sample("start"); }, [] { return sample("start-floor"); });
}

void memory(benchmark::State& state) {
    while (state.KeepRunning()) {
        fill_row(state, sample("memory"), GAME_BYTES);
        state.SetIterationTime(1.0);
    }
}

} // namespace

int print_sample(const std::string& name) {
    if (name == "start") {
        scripted::set_picture_hook(on_first_picture);
        start_time = now();
        WinMain(nullptr, nullptr, nullptr, 0);
    } else if (name == "start-floor") {
        std::printf("%.9f\n", seconds_of(store_fresh_and_read_map));
        return EXIT_SUCCESS;
    } else if (name == "memory") {
        play_everything();
        std::printf("%.0f\n", memory_at_peak());
        return EXIT_SUCCESS;
    }
    return EXIT_FAILURE;
}

void add_start_rows() {
    add_row("start to first frame", MILLISECONDS, 1.3, 15, start);
    add_row("memory at its peak", MEGABYTES, 400.0 / 340.0, 1, memory);
}

} // namespace tarvik::bench
