// Called back by the platform at the start of every frame, before the frame's message.
#include "tools/demo/drive.h"

#include "platform/driver.h"
#include "race/race_state.h"
#include "race/random.h"
#include "tools/demo/driver.h"
#include "tools/demo/keyboard.h"
#include "tools/demo/lap_book.h"
#include "tools/demo/report.h"

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
    Keyboard keyboard; ///< for the settings
    std::optional<Driver> driver;
    int known_race = 0; ///< track that the driver knows
    LapBook book;
    Report report;
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
    state->driver.emplace(state->options.style, state->seed);
    if (!state->driver->knows_the_way()) {
        fail("track " + std::to_string(race_number) +
             " has no road that leads from the start/finish box round to the start");
        return false;
    }
    state->known_race = race_number;
    state->frames_since_lap = 0;
    public_standing.course = &state->driver->course();
    return true;
}

void note_laps() {
    const LapEvent event = state->driver->look();
    state->book.enter(event);
    public_standing.laps = state->book.laps();
    if (event == LapEvent::LAP) {
        state->report.end_lap(last_cycle[PLAYER_SLOT]);
        state->frames_since_lap = 0;
        if (state->options.laps && state->book.laps() >= *state->options.laps) {
            end_game();
        }
        return;
    }
    if (event == LapEvent::RESET) {
        state->report.break_off();
    }
    if (++state->frames_since_lap > LOST_AFTER_FRAMES) {
        fail("no lap completed in " + std::to_string(LOST_AFTER_FRAMES) +
             " frames; the driver has lost the way");
    }
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
        state->report.note_frame();
        state->driver->act();
        public_standing.place = state->driver->place();
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
    if (options.headless) {
        std::printf("seed %u\n", state->seed);
    }
    WinMain(nullptr, nullptr, no_command_line, 0);
    set_frame_hook(nullptr);
    state->book.print_summary();
    if (options.report && state->driver) {
        state->report.print(state->driver->middle());
    }
    return state->failed ? EXIT_FAILURE : EXIT_SUCCESS;
}

const Standing& standing() {
    return public_standing;
}

} // namespace tarvik::demo
