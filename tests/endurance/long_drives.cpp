// What is driven, and what has to come of it.
#include "tests/endurance/long_drives.h"

#include "platform/win32.h"
#include "race/laps.h"
#include "race/race_frame.h"
#include "race/race_state.h"
#include "tests/endurance/random_driver.h"
#include "tests/signature/drives.h"
#include "tests/support/game_hash.h"
#include "tests/support/invariants.h"
#include "tests/support/program.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace tarvik::test {

namespace {

long frames = 0;

void expect(bool holds, const std::string& what) {
    if (!holds) {
        throw std::runtime_error("frame " + std::to_string(frames) + ": " + what);
    }
}

void drive_frame(Invariants& invariants) {
    constexpr long WHOLE_PICTURE_INTERVAL = 100;
    race_frame();
    ++frames;
    const std::string fault = invariants.fault();
    expect(fault.empty(), fault);
    expect(frames % WHOLE_PICTURE_INTERVAL != 0 || Invariants::is_picture_whole(),
           "a logical pixel is not of one colour");
}

void start_afresh(std::uint32_t seed) {
    restart_game({"", 0, seed, nullptr});
}

void stand_at(float x, float y) {
    car_x[PLAYER_SLOT] = x;
    car_y[PLAYER_SLOT] = y;
    speed[PLAYER_SLOT] = 0.0F;
}

std::uint64_t drive_anyhow(long count, std::uint32_t seed) {
    start_afresh(seed);
    RandomDriver driver(seed);
    Invariants invariants;
    Hash hash;
    for (long frame = 0; frame < count; ++frame) {
        driver.act();
        drive_frame(invariants);
        add_state(hash);
        add_picture(hash);
    }
    return hash.value();
}

/// Starts a lap and leaves the car beside the box until the lap is given up.
std::uint64_t leave_lap_running(long count, std::uint32_t seed) {
    start_afresh(seed);
    Invariants invariants;
    stand_at(BOX_LEFT + BOX_SIZE / 2, BOX_TOP + BOX_SIZE / 2);
    drive_frame(invariants);
    expect(cycle[PLAYER_SLOT] == 2, "no lap has started");
    stand_at(START_X, START_Y + 1);
    // Only the last frames, where fewer are asked for than a lap may have.
    cycle[PLAYER_SLOT] =
        std::max<std::int32_t>(2, CYCLE_LIMIT + 1 - static_cast<std::int32_t>(count));
    Hash hash;
    while (cycle[PLAYER_SLOT] <= CYCLE_LIMIT) {
        const std::int32_t before = cycle[PLAYER_SLOT];
        drive_frame(invariants);
        add_state(hash);
        expect(cycle[PLAYER_SLOT] == before + 1, "the lap was not counted");
    }
    drive_frame(invariants);
    expect(cycle[PLAYER_SLOT] == 0 && car_y[PLAYER_SLOT] == START_Y,
           "a lap of " + std::to_string(CYCLE_LIMIT + 1) + " frames was not given up");
    expect(ghost_y[PLAYER_SLOT][CYCLE_LIMIT + 1] == START_Y + 1, "its last frame is not recorded");
    return hash.value();
}

/// A car that stands in the box completes a lap as soon as a lap may end.
std::uint64_t complete_laps(long count, std::uint32_t seed) {
    start_afresh(seed);
    Invariants invariants;
    Hash hash;
    stand_at(BOX_LEFT + BOX_SIZE / 2, BOX_TOP + BOX_SIZE / 2);
    for (long lap = 0; lap < count; ++lap) {
        // Each lap a little further along, so that its ghost is known by its place.
        const float x = BOX_LEFT + 1 + static_cast<float>(lap % 14);
        car_x[PLAYER_SLOT] = x;
        for (int frame = 0; frame <= MIN_LAP_FRAMES; ++frame) {
            drive_frame(invariants);
        }
        add_state(hash);
        expect(cycle[PLAYER_SLOT] == 0 && last_cycle[PLAYER_SLOT] == MIN_LAP_FRAMES + 1,
               "lap " + std::to_string(lap + 1) + " was not completed");
        for (long ago = 0; ago < std::min(lap, 4L); ++ago) {
            const auto slot = FIRST_GHOST_SLOT + ago;
            const float place = BOX_LEFT + 1 + static_cast<float>((lap - ago) % 14);
            expect(ghost_x[slot][MIN_LAP_FRAMES] == place,
                   "another ghost in slot " + std::to_string(slot));
        }
    }
    return hash.value();
}

std::uint64_t switch_tracks(long count, std::uint32_t seed) {
    start_afresh(seed);
    Invariants invariants;
    Hash hash;
    for (long done = 0; done < count; ++done) {
        const bool to_second = done % 2 == 0;
        const int key = to_second ? VK_OEM_6 : VK_OEM_4;
        press(key);
        drive_frame(invariants);
        expect(race_number == (to_second ? 2 : 1), "the track was not switched");
        release(key);
        drive_frame(invariants);
        add_state(hash);
        add_picture(hash);
    }
    return hash.value();
}

constexpr LongDrive DRIVES[] = {
    {"random", "frames", drive_anyhow},
    {"endless", "frames of one lap", leave_lap_running},
    {"laps", "laps", complete_laps},
    {"switches", "track switches", switch_tracks},
};

} // namespace

const LongDrive* find_long_drive(const std::string& name) {
    const auto* found =
        std::ranges::find_if(DRIVES, [&](const LongDrive& each) { return each.name == name; });
    return found == std::end(DRIVES) ? nullptr : found;
}

long frames_driven() {
    return frames;
}

} // namespace tarvik::test
