// tarvik-many-laps LAPS: drives so many laps without a display and says how long the slowest frames
// took and whether the memory has grown.
#include "bench/floors.h"
#include "bench/process_memory.h"
#include "bench/row.h"
#include "game/start_up.h"
#include "race/race_frame.h"
#include "race/random.h"
#include "race/track_grid.h"
#include "tools/demo/data_folder.h"
#include "tools/demo/driver.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

using namespace tarvik;
using namespace tarvik::bench;

constexpr std::uint32_t SEED = 1;
constexpr int LAPS_IN_A_REPORT = 100;
constexpr double PICTURE_SECONDS = 1.0 / 60.0;

/// Times of one kind of work, seconds.
class Times {
  public:
    void add(double seconds) {
        ++count;
        sum += seconds;
        worst = std::max(worst, seconds);
        too_long += seconds > PICTURE_SECONDS ? 1 : 0;
    }

    void print(const char* name) const {
        std::printf("  %-12s %8ld: mean %.4f ms, worst %.3f ms, %ld beyond 1/60 s\n", name, count,
                    sum / static_cast<double>(count) * 1e3, worst * 1e3, too_long);
    }

  private:
    long count = 0;
    double sum = 0.0;
    double worst = 0.0;
    long too_long = 0;
};

/// After each frame comes the floor of its drawing: a machine that halts now and then does so in
/// both.
void run(int laps) {
    start_up();
    load_track_map(".\\data\\race1.map");
    tarvik::srand(SEED);
    demo::Driver driver(demo::Style::BEST, SEED);
    Times frames;
    Times lap_ends;
    Times floors;
    for (int lap = 0; lap < laps;) {
        driver.act();
        const double seconds = seconds_of(race_frame);
        floors.add(seconds_of(clear_and_copy_picture));
        if (driver.look() != demo::LapEvent::LAP) {
            frames.add(seconds);
            continue;
        }
        lap_ends.add(seconds);
        if (++lap % LAPS_IN_A_REPORT == 0 || lap == laps) {
            std::printf("%d laps, memory %.1f MB\n", lap, memory_now() * 1e-6);
            frames.print("frames");
            lap_ends.print("lap ends");
            floors.print("floors");
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
        const std::string fault = demo::enter_data_folder({}, 1);
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
