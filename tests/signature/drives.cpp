// What is driven, and what has to come of it.
#include "tests/signature/drives.h"

#include "platform/driver.h"
#include "race/laps.h"
#include "race/race_state.h"
#include "tests/support/program.h"
#include "tests/support/ring.h"

#include <algorithm>
#include <iterator>

namespace tarvik::test {

namespace {

constexpr int KEYS[] = {VK_UP, VK_UP,   VK_UP, VK_UP, VK_UP, VK_LEFT, VK_RIGHT, 'A',   'A',
                        'A',   VK_DOWN, 'Z',   '1',   '2',   '1',     VK_F1,    VK_F2, 'Q'};

std::uint32_t luck = 0; // the same on every machine

std::uint32_t below(std::uint32_t limit) {
    luck = luck * 1664525U + 1013904223U;
    return (luck >> 8U) % limit;
}

void tap(int key) {
    press(key);
    release(key);
}

/// Any key at any time, as from a child at the keyboard, and a wandering mouse.
void mash() {
    const int key = KEYS[below(std::size(KEYS))];
    switch ((luck >> 20U) % 5) {
    case 0:
        release(VK_DOWN);
        break;
    case 1:
        post_message(WM_MOUSEMOVE, 0,
                     static_cast<LPARAM>(((luck >> 4U) % 480) << 16U | (luck >> 12U) % 640));
        break;
    case 2:
        release(key);
        break;
    default:
        press(key);
    }
}

void stand_at(float x, float y) {
    car_x[PLAYER_SLOT] = x;
    car_y[PLAYER_SLOT] = y;
    speed[PLAYER_SLOT] = 0.0F;
}

/// In fourth gear, each completed lap a new ghost.
void drive_laps(Run& run, long count) {
    for (long frame = 0; frame < count; ++frame) {
        drive_ring(4);
        run.frame();
    }
}

/// Round and round in top gear with the arrow held, far beyond the grip of the tyres.
void skid(Run& run, long count) {
    press('1'); // "Easy": the car goes off the road
    run.frame();
    for (long frame = 2; frame <= count; ++frame) {
        if (frame < 300) {
            drive_ring(TOP_GEAR);
        } else if (frame % 300 == 0) {
            gear[PLAYER_SLOT] = TOP_GEAR; // spares thousands of frames of speeding up
            speed[PLAYER_SLOT] = 3.2F;
        } else if (frame % 97 == 0) {
            press(VK_LEFT);
        } else if (frame % 97 == 60) {
            release(VK_LEFT);
        } else if (frame % 97 == 70) {
            press(VK_RIGHT);
        } else if (frame % 97 == 90) {
            release(VK_RIGHT);
        }
        run.frame();
    }
}

void mash_keys(Run& run, long count) {
    luck = 4711;
    for (long frame = 1; frame <= count; ++frame) {
        mash();
        if (frame % 150 == 0) {
            tap(frame % 300 == 0 ? VK_OEM_4 : VK_OEM_6);
        }
        run.frame();
    }
}

/// Now round the ring, now anyhow, now far off the road and off the grid; with a new difficulty
/// each time, and a switch of tracks now and then.
void drive_at_random(Run& run, long count) {
    enum class Style { ROUND_THE_RING, ANYHOW, STRAIGHT_AWAY };
    auto style = Style::ROUND_THE_RING;
    std::int32_t ring_gear = 0;
    std::uint32_t frames_left = 0; // in this style
    luck = run.seed();
    for (long frame = 0; frame < count; ++frame) {
        if (frames_left-- == 0) {
            std::for_each(std::begin(KEYS), std::end(KEYS), release);
            take_wheel();
            tap(static_cast<int>('1' + below(3)));
            if (below(20) == 0) {
                tap(below(2) == 0 ? VK_OEM_4 : VK_OEM_6);
            }
            style = static_cast<Style>(below(3));
            ring_gear = static_cast<std::int32_t>(3 + below(4));
            frames_left = 500 + below(4000);
        } else if (style == Style::ROUND_THE_RING) {
            drive_ring(ring_gear);
        } else {
            mash();
        }
        if (style == Style::STRAIGHT_AWAY) {
            speed[PLAYER_SLOT] = 3.3F;
            if (below(50) == 0) { // thousands of cells from one frame to the next
                car_x[PLAYER_SLOT] = static_cast<float>(below(12000)) - 1000.0F;
                car_y[PLAYER_SLOT] = static_cast<float>(below(12000)) - 1000.0F;
            }
        }
        run.frame();
    }
}

/// Leaves a lap running until it is given up. Of the lap only the last frames are driven where
/// fewer are asked for than it may have.
void leave_lap_running(Run& run, long count) {
    stand_at(BOX_LEFT + BOX_SIZE / 2, BOX_TOP + BOX_SIZE / 2);
    run.frame();
    run.expect(cycle[PLAYER_SLOT] == 2, "no lap has started");
    stand_at(START_X, START_Y + 1);
    cycle[PLAYER_SLOT] =
        std::max<std::int32_t>(2, CYCLE_LIMIT + 1 - static_cast<std::int32_t>(count));
    for (std::int32_t next = cycle[PLAYER_SLOT] + 1; next <= CYCLE_LIMIT + 1; ++next) {
        run.frame();
        run.expect(cycle[PLAYER_SLOT] == next, "the lap was not counted");
    }
    run.frame();
    run.expect(cycle[PLAYER_SLOT] == 0 && car_y[PLAYER_SLOT] == START_Y, "it was not given up");
    run.expect(ghost_y[PLAYER_SLOT][CYCLE_LIMIT + 1] == START_Y + 1, "its end is not recorded");
}

/// A car that is left in the box completes a lap as soon as a lap may end. After every
/// tenth come two switches of the track, which forget all ghosts.
void complete_laps(Run& run, long count) {
    for (long lap = 1; lap <= count; ++lap) {
        // Each lap a little further along, so that its ghost is known by its place.
        const float x = BOX_LEFT + 1 + static_cast<float>(lap % 14);
        stand_at(x, BOX_TOP + BOX_SIZE / 2);
        for (int frame = 0; frame <= MIN_LAP_FRAMES; ++frame) {
            run.frame();
        }
        run.expect(cycle[PLAYER_SLOT] == 0 && last_cycle[PLAYER_SLOT] == MIN_LAP_FRAMES + 1,
                   "lap " + std::to_string(lap) + " was not completed");
        run.expect(ghost_x[FIRST_GHOST_SLOT][MIN_LAP_FRAMES] == x, "it has no ghost");
        if (lap % 10 == 0) {
            for (const int race : {2, 1}) {
                tap(race == 2 ? VK_OEM_6 : VK_OEM_4);
                run.frame();
                run.expect(race_number == race, "the track was not switched");
                run.frame(); // takes the key's release
            }
        }
    }
}

} // namespace

const std::vector<Drive>& signature_drives() {
    static const std::vector<Drive> drives = {
        {"laps", drive_laps, 4200, 1}, {"skids", skid, 1500, 20}, {"keys", mash_keys, 900, 300}};
    return drives;
}

const Drive* find_long_drive(const std::string& name) {
    static const std::vector<Drive> drives = {
        {"random", drive_at_random}, {"endless", leave_lap_running}, {"laps", complete_laps}};
    const auto found = std::find_if(drives.begin(), drives.end(),
                                    [&](const Drive& each) { return each.name == name; });
    return found == drives.end() ? nullptr : &*found;
}

} // namespace tarvik::test
