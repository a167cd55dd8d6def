// Called back by the platform at the start of every frame, before the frame's message.
#include "tools/demo/drive.h"

#include "platform/driver.h"
#include "race/race_state.h"
#include "race/random.h"
#include "tools/demo/report.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <optional>
#include <string>

namespace tarvik::demo {

namespace {

/// Frames without a completed lap after which the driver is lost: five minutes in a window.
constexpr int LOST_AFTER_FRAMES = 18000;

struct Drive {
    Options options;
    std::uint32_t seed = 0;
    bool has_begun = false;
    std::optional<Driver> driver;
    int known_race = 0; ///< track that the driver knows
    Report report;
    int clean_laps = 0; ///< completed without a penalty
    int resets = 0;
    int resets_in_lap = 0;
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

/// Before the first frame: start-up has seeded the generator with the time.
void begin() {
    srand(state->seed);
    tap('0' + state->options.difficulty);
    if (state->options.race == 2) {
        tap(VK_OEM_6); // the game starts with track 1
    }
    state->has_begun = true;
}

void take_the_wheel() {
    state->driver.emplace(state->options.style, state->seed);
    state->known_race = race_number;
    state->frames_since_lap = 0;
    public_standing.course = &state->driver->course();
    if (!state->driver->knows_the_way()) {
        fail("track " + std::to_string(race_number) +
             " has no road that leads from the start/finish box round to the start");
    }
}

void note_lap() {
    const int result = last_cycle[PLAYER_SLOT];
    const int off_road = static_cast<int>(penalty[PLAYER_SLOT]);
    state->clean_laps += off_road == 0 ? 1 : 0;
    std::printf("lap %d: result %d (frames %d, penalty %d), resets %d\n", ++public_standing.laps,
                result, result - off_road, off_road, state->resets_in_lap);
    std::fflush(stdout);
    state->resets_in_lap = 0;
    state->frames_since_lap = 0;
    state->report.end_lap(result);
    if (public_standing.laps == state->options.laps) {
        end_game();
    }
}

void note_reset() {
    std::printf("put back to the start\n");
    ++state->resets;
    ++state->resets_in_lap;
    state->report.break_off();
}

void on_frame() {
    if (public_standing.done) {
        return;
    }
    if (!state->has_begun) {
        begin();
    }
    // Whoever watches may switch tracks with the brackets.
    if (state->known_race != race_number && (state->driver || race_number == state->options.race)) {
        take_the_wheel();
    }
    if (!state->driver || public_standing.done) {
        return;
    }
    const LapEvent event = state->driver->look();
    if (event == LapEvent::LAP) {
        note_lap();
    } else if (event == LapEvent::RESET) {
        note_reset();
    }
    if (++state->frames_since_lap > LOST_AFTER_FRAMES) {
        fail("no lap completed in " + std::to_string(LOST_AFTER_FRAMES) +
             " frames; the driver has lost the way");
    }
    if (!public_standing.done) {
        state->report.note_frame();
        state->driver->act();
        public_standing.place = state->driver->place();
    }
}

void print_summary() {
    const int laps = public_standing.laps;
    if (laps > 0) {
        std::printf("%d lap%s, %d without penalty, %d resets, best result %d\n", laps,
                    laps == 1 ? "" : "s", state->clean_laps, state->resets,
                    best_cycle[PLAYER_SLOT]);
    }
    if (state->options.report && state->driver) {
        state->report.print(state->driver->middle());
    }
}

} // namespace

int drive(const Options& options) {
    state = std::make_unique<Drive>();
    state->options = options;
    state->seed = options.seed.value_or(static_cast<std::uint32_t>(std::time(nullptr)));
    if (options.headless) {
        std::printf("seed %u\n", state->seed);
    }
    char no_command_line[] = "";
    set_frame_hook(on_frame);
    WinMain(nullptr, nullptr, no_command_line, 0);
    set_frame_hook(nullptr);
    print_summary();
    return state->failed ? EXIT_FAILURE : EXIT_SUCCESS;
}

const Standing& standing() {
    return public_standing;
}

} // namespace tarvik::demo
