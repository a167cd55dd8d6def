// Starts this program again for each sample and reads the one number that it prints.
#include "bench/start_rows.h"

#include "bench/floors.h"
#include "bench/row.h"
#include "game/start_up.h"
#include "platform/scripted/scripted.h"
#include "race/laps.h"
#include "race/race_frame.h"
#include "race/race_state.h"
#include "race/track_grid.h"
#include "shell/input.h"
#include "tools/demo/data_folder.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace tarvik::bench {

namespace {

constexpr double GAME_BYTES = 340e6; // grid and ghost laps

double start_time = 0.0;

void on_first_frame(const std::uint8_t*, int, int) {
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

/// As the kernel counts it. getrusage would count the memory of the process that started this one.
double memory_at_peak() {
    std::ifstream status("/proc/self/status");
    double kibibytes = 0.0;
    for (std::string line; std::getline(status, line);) {
        std::sscanf(line.c_str(), "VmHWM: %lf", &kibibytes);
    }
    return kibibytes * 1024.0;
}

double sample(const std::string& name) {
    const std::string program = demo::program().string();
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
        state, 1.3, [] { return sample("start"); }, [] { return sample("start-floor"); });
}
BENCHMARK(start)->Name("start to first frame")->Iterations(15)->UseManualTime();

void memory(benchmark::State& state) {
    while (state.KeepRunning()) {
        fill_row(state, 400.0 / 340.0, sample("memory"), GAME_BYTES);
        state.SetIterationTime(1.0);
    }
}
BENCHMARK(memory)->Name("memory at its peak")->Iterations(1)->UseManualTime();

} // namespace

int print_sample(const std::string& name) {
    demo::enter_data_folder({}, 2);
    if (name == "start") {
        scripted::set_frame_hook(on_first_frame);
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

} // namespace tarvik::bench
