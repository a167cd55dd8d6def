// A few drives that between them go through all of the game.
#include "tests/signature/drives.h"

#include "platform/driver.h"
#include "race/race_selection.h"
#include "race/race_state.h"
#include "race/random.h"
#include "race/track_grid.h"
#include "race/view.h"
#include "shell/input.h"
#include "tests/signature/autopilot.h"
#include "tests/support/program.h"

#include <algorithm>

namespace tarvik::test {

namespace {

/// Laps in fourth gear, each completed lap a new ghost.
void drive_laps(int) {
    drive_ring(4);
}

/// Round and round in top gear with the arrow held, far beyond the grip of the tyres.
void drive_skids(int frame) {
    if (frame == 1) {
        press('1'); // "Easy": the car goes off the road
    } else if (frame < 300) {
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
}

/// Any key at any time, as from a child at the keyboard, and a wandering mouse.
void mash_keys(int frame) {
    static std::uint32_t state;
    if (frame == 1) {
        state = 4711;
    }
    state = state * 1664525U + 1013904223U;
    constexpr int KEYS[] = {VK_UP, VK_UP,   VK_UP, VK_UP, VK_UP, VK_LEFT, VK_RIGHT, 'A',   'A',
                            'A',   VK_DOWN, 'Z',   '1',   '2',   '1',     VK_F1,    VK_F2, 'Q'};
    const int key = KEYS[(state >> 8U) % std::size(KEYS)];
    switch ((state >> 20U) % 5) {
    case 0:
        release(VK_DOWN);
        break;
    case 2:
        release(key);
        break;
    case 1:
        post_message(WM_MOUSEMOVE, 0,
                     static_cast<LPARAM>(((state >> 4U) % 480) << 16U | (state >> 12U) % 640));
        break;
    default:
        press(key);
    }
    if (frame % 150 == 0) {
        press(frame % 300 == 0 ? VK_OEM_4 : VK_OEM_6);
        release(frame % 300 == 0 ? VK_OEM_4 : VK_OEM_6);
    }
}

/// A marker with a picture on it and a pointer with holes.
std::vector<std::uint8_t> pictures_archive() {
    Image marker = plain_image(30, 16, {9, 30, 200});
    Image pointer = plain_image(250, 12, {250, 250, 250});
    for (std::size_t i = 0; i < marker.bytes.size(); i += 7) {
        marker.bytes[i] = static_cast<std::uint8_t>(i);
    }
    for (std::size_t i = 0; i + 2 < pointer.bytes.size(); i += 15) {
        pointer.bytes[i] = pointer.bytes[i + 1] = pointer.bytes[i + 2] = 0;
    }
    return archive_of({marker, pointer});
}

} // namespace

void install_drive_data() {
    std::vector<std::uint8_t> checks = ring_map();
    for (std::size_t i = 0; i < checks.size() / 2; i += 3) {
        checks[i] = CELL_OFF_TRACK;
    }
    checks.resize(checks.size() / 2); // the second half stays that of the first track
    install_data(ring_map(), std::move(checks), pictures_archive());
}

const std::vector<Drive>& all_drives() {
    static const std::vector<Drive> drives = {
        {"laps", 4200, 1, drive_laps},
        {"skids", 1500, 20, drive_skids},
        {"keys", 900, 300, mash_keys},
    };
    return drives;
}

void restart_game(const Drive& drive) {
    MSG left_over{};
    while (PeekMessageA(&left_over, nullptr, 0, 0, PM_REMOVE) != 0) {
    }
    std::fill(std::begin(key_down), std::end(key_down), 0);
    mouse_x = 0;
    mouse_y = 0;
    difficulty = ADVANCED;
    race_number = 1;
    load_track_map(".\\data\\race1.map");
    reset_race();
    view_x = 0;
    view_y = 0;
    restart_autopilot();
    srand(drive.seed);
}

} // namespace tarvik::test
