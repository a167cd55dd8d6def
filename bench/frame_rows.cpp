// The rows about frames of a running game.
#include "bench/frame_rows.h"

#include "bench/allocations.h"
#include "bench/floors.h"
#include "bench/recorded_drive.h"
#include "bench/row.h"
#include "platform/win32.h"
#include "race/laps.h"
#include "race/race_frame.h"
#include "race/race_state.h"
#include "shell/input.h"

#include <cstdint>

namespace tarvik::bench {

namespace {

constexpr double PICTURE_SECONDS = 1.0 / 60.0;
constexpr int BATCH = 20; // frames, and floors, by turns

/// Seconds of one frame of the recorded lap, its messages left out.
double recorded_frame() {
    next_frame();
    return seconds_of(race_frame);
}

double frame_in_batch() {
    double seconds = 0.0;
    for (int i = 0; i < BATCH; ++i) {
        seconds += recorded_frame();
    }
    return seconds / BATCH;
}

void whole_frame(benchmark::State& state) {
    start_recorded_lap();
    compare(state, frame_in_batch, [] {
        return seconds_of([] {
                   for (int i = 0; i < BATCH; ++i) {
                       clear_and_copy_picture();
                   }
               }) /
               BATCH;
    });
}

/// Each frame of the lap for itself; its mean is what the processor has to do.
void core_use(benchmark::State& state) {
    start_recorded_lap();
    double seconds = 0.0;
    while (state.KeepRunning()) {
        double lap = 0.0;
        for (int i = 0; i < lap_frames(); ++i) {
            lap += recorded_frame();
        }
        state.SetIterationTime(lap);
        seconds += lap / lap_frames();
    }
    fill_row(state, seconds / static_cast<double>(state.iterations()), PICTURE_SECONDS);
}

/// Lap ends included.
void frame_allocations(benchmark::State& state) {
    start_recorded_lap();
    std::uint64_t counted = 0;
    while (state.KeepRunning()) {
        for (int i = 0; i < lap_frames(); ++i) {
            next_frame();
            const std::uint64_t before = allocations();
            state.SetIterationTime(seconds_of(race_frame));
            counted += allocations() - before;
        }
    }
    fill_row(state, static_cast<double>(counted), static_cast<double>(lap_frames()));
}

/// The car in the middle of the start/finish box, in the given frame of its lap.
double frame_in_box(std::int32_t lap_frame) {
    car_x[PLAYER_SLOT] = BOX_LEFT + BOX_SIZE / 2.0F;
    car_y[PLAYER_SLOT] = BOX_TOP + BOX_SIZE / 2.0F;
    speed[PLAYER_SLOT] = 0.0F;
    cycle[PLAYER_SLOT] = lap_frame;
    return seconds_of(race_frame);
}

/// The frame that completes a lap, less the one before it.
double completion() {
    const double usual = frame_in_box(MIN_LAP_FRAMES - 1);
    const double completing = frame_in_box(MIN_LAP_FRAMES + 1);
    return completing - usual;
}

void lap_end(benchmark::State& state) {
    start_recorded_lap();
    compare(state, completion, [] { return seconds_of(copy_lap); });
}

double switching_frame() {
    key_down[VK_OEM_4] = 1; // from track 1 to track 1: the same work, and the lap can be repeated
    const double seconds = seconds_of(race_frame);
    key_down[VK_OEM_4] = 0;
    return seconds;
}

void track_switch(benchmark::State& state) {
    start_recorded_lap();
    compare(state, switching_frame, [] { return seconds_of(read_map_and_store_ghosts); });
}

} // namespace

void add_frame_rows() {
    add_row("a whole frame", MICROSECONDS, 3.5, 400, whole_frame);
    add_row("completing a lap, beyond a usual frame", MICROSECONDS, 1.5, 100, lap_end);
    add_row("the frame of a track switch", MILLISECONDS, 1.3, 15, track_switch);
    add_row("a frame's share of 1/60 second", MILLISECONDS, 0.03, 2, core_use);
    add_row("allocations in a lap, beside its frames", PIECES, 0.0, 1, frame_allocations);
}

} // namespace tarvik::bench
