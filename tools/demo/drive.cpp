// Called back by the platform at the start of every frame, before the frame's message.
#include "tools/demo/drive.h"

#include "platform/driver.h"
#include "race/race_state.h"
#include "race/random.h"
#include "tools/demo/keyboard.h"
#include "tools/demo/lap_book.h"
#include "tools/demo/middle_of_road.h"
#include "tools/demo/pilot.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvik::demo {

namespace {

/// Frames without a completed lap after which the driver is lost: five minutes in a window.
constexpr int LOST_AFTER_FRAMES = 18000;

struct Drive {
    Options options;
    std::uint32_t seed = 0;
    Keyboard keyboard;
    std::optional<Course> course;
    std::unique_ptr<Pilot> pilot;
    int known_race = 0; ///< track that course and pilot are for
    LapBook book;
    bool seeded = false;
    std::vector<int> taps; ///< keys to press before the start
    std::size_t taps_done = 0;
    int frames_since_lap = 0;
    bool failed = false;
};
std::unique_ptr<Drive> state;
Standing public_standing;

void end_game() {
    public_standing.done = true;
    post_message(WM_CLOSE, 0, 0);
}

void fail(const std::string& reason) {
    std::fprintf(stderr, "tarvik-demo: %s\n", reason.c_str());
    state->failed = true;
    end_game();
}

/// Chooses difficulty and track on the keyboard. Returns whether all of it is done.
bool settings_are_made() {
    if (state->taps_done == state->taps.size()) {
        return true;
    }
    state->taps_done += state->keyboard.tap(state->taps[state->taps_done]) ? 1 : 0;
    return false;
}

bool take_the_wheel() {
    const std::vector<Point> loop = middle_of_road();
    if (loop.empty()) {
        fail("track " + std::to_string(race_number) +
             " has no road that leads from the start/finish box round to the start");
        return false;
    }
    state->known_race = race_number;
    state->frames_since_lap = 0;
    state->course.emplace(loop);
    state->pilot = std::make_unique<Pilot>(*state->course, state->seed);
    public_standing.course = &*state->course;
    return true;
}

void note_laps() {
    const LapEvent event = state->book.look();
    if (event == LapEvent::RESET) {
        state->pilot->find_place({car_x[PLAYER_SLOT], car_y[PLAYER_SLOT]});
    }
    if (event != LapEvent::LAP) {
        if (++state->frames_since_lap > LOST_AFTER_FRAMES) {
            fail("no lap completed in " + std::to_string(LOST_AFTER_FRAMES) +
                 " frames; the driver has lost the way");
        }
        return;
    }
    state->frames_since_lap = 0;
    state->pilot->begin_lap();
    public_standing.laps = state->book.laps();
    if (state->options.laps && state->book.laps() >= *state->options.laps) {
        end_game();
    }
}

void steer_the_car() {
    const CarView car{{car_x[PLAYER_SLOT], car_y[PLAYER_SLOT]},
                      heading[PLAYER_SLOT],
                      speed[PLAYER_SLOT],
                      gear[PLAYER_SLOT],
                      steer_count[PLAYER_SLOT]};
    state->keyboard.act(state->pilot->decide(car), car.gear);
    public_standing.place = state->pilot->place();
}

void on_frame() {
    if (public_standing.done) {
        return;
    }
    if (!state->seeded) { // start-up has seeded the generator with the time
        srand(state->seed);
        state->seeded = true;
    }
    if (!settings_are_made()) {
        return;
    }
    // Whoever watches may switch tracks with the brackets.
    if (state->known_race != race_number && !take_the_wheel()) {
        return;
    }
    note_laps();
    if (!public_standing.done) {
        steer_the_car();
    }
}

} // namespace

int drive(const Options& options) {
    state = std::make_unique<Drive>();
    state->options = options;
    state->seed = options.seed.value_or(static_cast<std::uint32_t>(std::time(nullptr)));
    state->taps.push_back('0' + options.difficulty);
    if (options.race == 2) {
        state->taps.push_back(VK_OEM_6); // the game starts with track 1
    }
    char no_command_line[] = "";
    set_frame_hook(on_frame);
    WinMain(nullptr, nullptr, no_command_line, 0);
    set_frame_hook(nullptr);
    state->book.print_summary();
    return state->failed ? EXIT_FAILURE : EXIT_SUCCESS;
}

const Standing& standing() {
    return public_standing;
}

} // namespace tarvik::demo
