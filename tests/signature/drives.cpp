// What is driven.
#include "tests/signature/drives.h"

#include "platform/driver.h"
#include "race/laps.h"
#include "race/race_state.h"
#include "tests/support/program.h"
#include "tests/support/ring.h"

#include <algorithm>
#include <iterator>

namespace tarvik::test {

std::uint32_t luck = 0;

namespace {

constexpr int KEYS[] = {VK_UP, VK_UP,   VK_UP, VK_UP, VK_UP, VK_LEFT, VK_RIGHT, 'A',   'A',
                        'A',   VK_DOWN, 'Z',   '1',   '2',   '1',     VK_F1,    VK_F2, 'Q'};

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

void park(float x, float y) {
    car_x[PLAYER_SLOT] = x;
    car_y[PLAYER_SLOT] = y;
    speed[PLAYER_SLOT] = 0.0F;
}

/// In fourth gear, each completed lap a new ghost.
void drive_laps(long /*frame*/) {
    drive_ring(4);
}

/// Round and round in top gear with the arrow held, far beyond the grip of the tyres.
void skid(long frame) {
    constexpr struct {
        long frame;
        void (*send)(int key);
        int key;
    } SWERVES[] = {{0, press, VK_LEFT},
                   {60, release, VK_LEFT},
                   {70, press, VK_RIGHT},
                   {90, release, VK_RIGHT}};

    if (frame == 1) {
        press('1'); // "Easy": the car goes off the road
    } else if (frame < 300) {
        drive_ring(TOP_GEAR);
    } else if (frame % 300 == 0) {
        gear[PLAYER_SLOT] = TOP_GEAR; // spares thousands of frames of speeding up
        speed[PLAYER_SLOT] = 3.2F;
    } else {
        for (const auto& swerve : SWERVES) {
            if (frame % 97 == swerve.frame) {
                swerve.send(swerve.key);
            }
        }
    }
}

void mash_keys(long frame) {
    mash();
    if (frame % 150 == 0) {
        tap(frame % 300 == 0 ? VK_OEM_4 : VK_OEM_6);
    }
}

} // namespace

const Drive SIGNATURE_DRIVES[] = {{"laps", drive_laps, 4200, 1, 0},
                                  {"skids", skid, 1500, 20, 0},
                                  {"keys", mash_keys, 900, 300, 4711}};

void steer_at_random(long frame) {
    enum Style { ROUND_THE_RING, ANYHOW, STRAIGHT_AWAY, IN_THE_BOX, LEFT_RUNNING, STYLES };
    static std::uint32_t style;
    static std::int32_t ring_gear;
    static std::uint32_t frames_left; // in this style
    if (frame == 1 || frames_left-- == 0) {
        std::for_each(std::begin(KEYS), std::end(KEYS), release);
        take_wheel();
        tap(static_cast<int>('1' + below(3)));
        if (below(20) == 0) {
            tap(below(2) == 0 ? VK_OEM_4 : VK_OEM_6);
        }
        style = below(STYLES);
        ring_gear = static_cast<std::int32_t>(3 + below(4));
        frames_left = 500 + below(4000);
        if (style == LEFT_RUNNING) { // of the lap only the end
            cycle[PLAYER_SLOT] = CYCLE_LIMIT - static_cast<std::int32_t>(below(1000));
        }
    }
    if (style == ROUND_THE_RING) {
        drive_ring(ring_gear);
    } else if (style == IN_THE_BOX) {
        park(BOX_LEFT + BOX_SIZE / 2.0F, BOX_TOP + BOX_SIZE / 2.0F);
    } else if (style == LEFT_RUNNING) {
        park(2400.0F, 2479.0F);
    } else {
        mash();
    }
    if (style == STRAIGHT_AWAY) {
        speed[PLAYER_SLOT] = 3.3F;
        if (below(50) == 0) { // thousands of cells from one frame to the next
            car_x[PLAYER_SLOT] = static_cast<float>(below(12000));
            car_y[PLAYER_SLOT] = static_cast<float>(below(12000));
        }
    }
}

} // namespace tarvik::test
