// tarvik-many-laps LAPS: drives so many laps without a display and says how long the slowest frame
// took and whether the memory has grown.
#include "bench/lap_driver.h"
#include "bench/process_memory.h"
#include "bench/row.h"
#include "race/race_frame.h"
#include "race/random.h"
#include "race/track_grid.h"
#include "shell/start_up.h"
#include "tools/demo/data_folder.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

using namespace tarvik;
using namespace tarvik::bench;

constexpr std::uint32_t SEED = 1;
constexpr int LAPS_IN_A_LINE = 100;

void run(int laps) {
    start_up();
    load_track_map(".\\data\\race1.map");
    tarvik::srand(SEED);
    LapDriver driver(SEED);
    long frames = 0;
    double all = 0.0;
    double worst = 0.0;
    for (int lap = 0; lap < laps;) {
        driver.act();
        const double seconds = seconds_of(race_frame);
        ++frames;
        all += seconds;
        worst = std::max(worst, seconds);
        if (driver.has_completed_lap() && (++lap % LAPS_IN_A_LINE == 0 || lap == laps)) {
            std::printf("%d laps, %ld frames: mean %.4f ms, worst %.3f ms, memory %.1f MB\n", lap,
                        frames, all / static_cast<double>(frames) * 1e3, worst * 1e3,
                        memory_now() * 1e-6);
            std::fflush(stdout);
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    const int laps = argc == 2 ? std::atoi(argv[1]) : 0;
    if (laps <= 0) {
        std::fprintf(stderr, "usage: tarvik-many-laps LAPS\n");
        return 2;
    }
    try {
        const std::string fault = demo::enter_data_folder(1);
        if (!fault.empty()) {
            std::fprintf(stderr, "tarvik-many-laps: %s\n", fault.c_str());
            return EXIT_FAILURE;
        }
        run(laps);
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tarvik-many-laps: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
