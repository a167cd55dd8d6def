// Recording and playing key messages. The race depends on nothing else, so it repeats itself.
#include "bench/recorded_drive.h"

#include "game/start_up.h"
#include "platform/driver.h"
#include "race/race_frame.h"
#include "race/race_selection.h"
#include "race/race_state.h"
#include "race/random.h"
#include "race/track_grid.h"
#include "race/view.h"
#include "shell/input.h"
#include "tools/demo/driver.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace tarvik::bench {

namespace {

constexpr int WARM_UP_LAPS = 5; // so many ghosts
constexpr std::uint32_t SEED = 1;

/// Messages that came before a frame: at most one, and none if `message` is 0.
struct KeyMessage {
    UINT message = 0;
    WPARAM wparam = 0;
    LPARAM lparam = 0;
};
std::vector<KeyMessage> recording;
std::size_t lap_start = 0; // of the lap after the warm-up
std::size_t position = 0;

/// The game as it is right after start-up, with its generator at a known place.
void restart_race() {
    MSG left_over{};
    while (PeekMessageA(&left_over, nullptr, 0, 0, PM_REMOVE) != 0) {
    }
    std::fill(std::begin(key_down), std::end(key_down), 0);
    std::fill(std::begin(steer_history), std::end(steer_history), 0.0F);
    reset_race();
    view_x = 0;
    view_y = 0;
    srand(SEED);
}

/// Takes what the driver has just posted out of the queue, notes it and puts it back.
void record_message() {
    MSG posted{};
    if (PeekMessageA(&posted, nullptr, 0, 0, PM_REMOVE) == 0) {
        recording.emplace_back();
        return;
    }
    recording.push_back({posted.message, posted.wParam, posted.lParam});
    post_message(posted.message, posted.wParam, posted.lParam);
}

void record() {
    demo::Driver driver(demo::Style::BEST, SEED);
    restart_race();
    for (int laps = 0; laps <= WARM_UP_LAPS;) {
        driver.act();
        record_message();
        race_frame();
        if (driver.look() == demo::LapEvent::LAP && ++laps == WARM_UP_LAPS) {
            lap_start = recording.size();
        }
    }
}

} // namespace

void next_frame() {
    if (position == recording.size()) {
        start_recorded_lap();
    }
    const KeyMessage& next = recording[position++];
    if (next.message != 0) {
        post_message(next.message, next.wparam, next.lparam);
    }
}

void start_recorded_lap() {
    if (recording.empty()) {
        start_up();
        load_track_map(".\\data\\race1.map");
        record();
    }
    restart_race();
    for (position = 0; position < lap_start;) {
        next_frame();
        race_frame();
    }
}

int lap_frames() {
    return static_cast<int>(recording.size() - lap_start);
}

} // namespace tarvik::bench
