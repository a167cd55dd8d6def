// tarvik-frame-times FILE: drives a lap in the game's window and draws each frame's time.
//
// The demo's driver drives two laps, the second with a ghost beside it, and then the track is
// switched. The chart shows the second lap, its end and the switch.
#include "bench/chart.h"
#include "game/start_up.h"
#include "platform/desktop/display.h"
#include "platform/driver.h"
#include "race/race_frame.h"
#include "race/race_state.h"
#include "race/random.h"
#include "race/track_grid.h"
#include "shell/input.h"
#include "tools/demo/data_folder.h"
#include "tools/demo/driver.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <filesystem>
#include <fstream>
#include <vector>

namespace {

using namespace tarvik;
using namespace tarvik::bench;

constexpr std::uint32_t SEED = 1;
constexpr int LAPS = 2;
constexpr int FRAMES_AROUND_SWITCH = 600;

double seconds_on(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

FrameTime timed_frame() {
    const std::int32_t gear_before = gear[PLAYER_SLOT];
    const double start = seconds_on(CLOCK_MONOTONIC);
    const double work_start = seconds_on(CLOCK_THREAD_CPUTIME_ID);
    race_frame();
    FrameTime frame{};
    frame.work = seconds_on(CLOCK_THREAD_CPUTIME_ID) - work_start;
    frame.interval = seconds_on(CLOCK_MONOTONIC) - start; // the next frame starts at once
    frame.waited = gear[PLAYER_SLOT] != gear_before;
    return frame;
}

/// Frames of the last lap.
std::vector<FrameTime> drive_laps() {
    demo::Driver driver(demo::Style::BEST, SEED);
    std::vector<FrameTime> frames;
    for (int laps = 0; laps < LAPS && quit_requested == 0;) {
        driver.act();
        frames.push_back(timed_frame());
        if (driver.look() == demo::LapEvent::LAP && ++laps < LAPS) {
            frames.clear();
        }
    }
    if (!frames.empty()) {
        frames.back().event = "lap end";
    }
    return frames;
}

/// A map that nobody has read for a while may have left the page cache; the switch is to show what
/// the game takes, not the disk.
void bring_into_page_cache(const char* file_name) {
    std::ifstream file(file_name, std::ios::binary);
    std::vector<char> part(1 << 20);
    while (file.read(part.data(), static_cast<std::streamsize>(part.size()))) {
    }
}

void switch_track(std::vector<FrameTime>& frames) {
    bring_into_page_cache("data/race2.map");
    for (int i = 0; i < 2 * FRAMES_AROUND_SWITCH; ++i) {
        if (i == FRAMES_AROUND_SWITCH) {
            post_message(WM_KEYDOWN, VK_OEM_6, 0);
            post_message(WM_KEYUP, VK_OEM_6, 0);
        }
        const std::int32_t race_before = race_number;
        frames.push_back(timed_frame());
        if (race_number != race_before) {
            frames.back().event = "track switch";
            frames.back().waited = false; // the gear went with the old race
        }
    }
}

void run(const std::string& file_name) {
    open_display_or_exit();
    start_up();
    load_track_map(".\\data\\race1.map");
    tarvik::srand(SEED);
    std::vector<FrameTime> frames = drive_laps();
    switch_track(frames);
    shut_down();
    close_display();
    draw_chart(frames, file_name);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: tarvik-frame-times FILE.png\n");
        return 2;
    }
    try {
        const std::string file_name = std::filesystem::absolute(argv[1]).string();
        const std::string fault = demo::enter_data_folder({}, 2);
        if (!fault.empty()) {
            std::fprintf(stderr, "tarvik-frame-times: %s\n", fault.c_str());
            return EXIT_FAILURE;
        }
        run(file_name);
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tarvik-frame-times: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
