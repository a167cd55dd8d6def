// tarvik-frame-times: drives a lap in the game's window and prints a line for each frame, in
// milliseconds: the processor time of its work, the time until the next frame, and what happened.
//
// The demo's driver drives two laps, the second with a ghost beside it, and then the track is
// switched. The lines are the second lap, its end and the switch. bench/frame-times.gnuplot draws
// them.
#include "bench/race.h"
#include "bench/row.h"
#include "game/start_up.h"
#include "platform/desktop/display.h"
#include "platform/driver.h"
#include "race/race_frame.h"
#include "race/race_state.h"
#include "race/track_grid.h"
#include "shell/input.h"

#include <chrono>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <sstream>

namespace {

using namespace tarvik;

constexpr int FRAMES_AROUND_SWITCH = 600;

/// A frame's line without what happened. A gear key holds the game up for 300 ms, as it should:
/// the time until the next frame is left out.
std::string timed_frame() {
    const std::int32_t gear_before = gear[PLAYER_SLOT];
    const auto start = std::chrono::steady_clock::now();
    const double work = bench::seconds_of(race_frame);
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    std::ostringstream line;
    line << work * 1e3 << ' ';
    if (gear[PLAYER_SLOT] == gear_before || cycle[PLAYER_SLOT] == 0) {
        line << time.count();
    } else {
        line << '-';
    }
    return line.str();
}

/// The lines of the second lap.
std::string drive_laps() {
    demo::Driver driver = bench::start_race();
    std::string lines;
    for (int laps = 0; laps < 2 && quit_requested == 0;) {
        driver.act();
        lines += timed_frame();
        const bool is_lap_end = driver.look() == demo::LapEvent::LAP;
        lines += is_lap_end ? " \"lap end\"\n" : " -\n";
        if (is_lap_end && ++laps == 1) {
            lines.clear();
        }
    }
    return lines;
}

void switch_track() {
    load_track_map(".\\data\\race2.map"); // into the page cache: the switch is not to show the disk
    load_track_map(".\\data\\race1.map");
    for (int i = 0; i < 2 * FRAMES_AROUND_SWITCH; ++i) {
        if (i == FRAMES_AROUND_SWITCH) {
            post_message(WM_KEYDOWN, VK_OEM_6, 0);
            post_message(WM_KEYUP, VK_OEM_6, 0);
        }
        const std::int32_t race_before = race_number;
        std::cout << timed_frame();
        std::cout << (race_number == race_before ? " -\n" : " \"track switch\"\n");
    }
}

} // namespace

int main() {
    try {
        open_display_or_exit();
        std::cout << drive_laps();
        switch_track();
        shut_down();
        close_display();
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "tarvik-frame-times: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
