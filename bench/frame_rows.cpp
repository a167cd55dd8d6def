// The rows about frames of a running game.
#include "bench/allocations.h"
#include "bench/floors.h"
#include "bench/race.h"
#include "bench/row.h"
#include "platform/win32.h"
#include "race/laps.h"
#include "race/race_frame.h"
#include "race/race_state.h"
#include "shell/input.h"

namespace tarvik::bench {

namespace {

constexpr int BATCH = 20; // frames, and floors, by turns

/// The demo's driver at the wheel, with all five ghosts on the road.
class Race {
  public:
    Race() {
        while (laps < LAST_GHOST_SLOT - FIRST_GHOST_SLOT + 1) {
            frame();
        }
    }

    /// Drives one frame and returns its seconds, the driver's own work left out.
    double frame() {
        driver.act();
        const std::uint64_t allocations_before = allocations();
        const double seconds = seconds_of(race_frame);
        allocated += allocations() - allocations_before;
        laps += driver.look() == demo::LapEvent::LAP ? 1 : 0;
        return seconds;
    }

    int laps = 0;
    std::uint64_t allocated = 0;

  private:
    demo::Driver driver = start_race();
};

void whole_frame(benchmark::State& state) {
    Race race;
    const auto batch = [](const auto& one) {
        double seconds = 0.0;
        for (int i = 0; i < BATCH; ++i) {
            seconds += one();
        }
        return seconds / BATCH;
    };
    compare(
        state, 3.5, [&] { return batch([&] { return race.frame(); }); },
        [&] { return batch([] { return seconds_of(clear_and_copy_frame); }); });
}
BENCHMARK(whole_frame)->Name("a whole frame")->Iterations(400)->UseManualTime();

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
    return frame_in_box(MIN_LAP_FRAMES + 1) - usual;
}

void lap_end(benchmark::State& state) {
    const Race race;
    compare(state, 1.5, completion, [] { return seconds_of(copy_lap); });
}
BENCHMARK(lap_end)
    ->Name("completing a lap, beyond a usual frame")
    ->Iterations(100)
    ->UseManualTime();

void track_switch(benchmark::State& state) {
    const Race race;
    const auto switching_frame = [] {
        key_down[VK_OEM_4] = 1; // from track 1 to track 1: the same work again
        const double seconds = seconds_of(race_frame);
        key_down[VK_OEM_4] = 0;
        return seconds;
    };
    compare(state, 1.3, switching_frame, [] { return seconds_of(read_map_and_store_ghosts); });
}
BENCHMARK(track_switch)->Name("the frame of a track switch")->Iterations(15)->UseManualTime();

/// Its end included.
void lap_allocations(benchmark::State& state) {
    Race race;
    const int laps_before = race.laps;
    race.allocated = 0;
    int frames = 0;
    while (state.KeepRunning()) {
        double seconds = 0.0;
        for (; race.laps == laps_before; ++frames) {
            seconds += race.frame();
        }
        state.SetIterationTime(seconds);
    }
    fill_row(state, 0.0, static_cast<double>(race.allocated), frames);
}
BENCHMARK(lap_allocations)
    ->Name("allocations in a lap, beside its frames")
    ->Iterations(1)
    ->UseManualTime();

} // namespace

} // namespace tarvik::bench
