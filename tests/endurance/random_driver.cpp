// Three styles of driving, in turn.
#include "tests/endurance/random_driver.h"

#include "platform/driver.h"
#include "race/race_state.h"
#include "tests/signature/autopilot.h"
#include "tests/support/program.h"

#include <iterator>

namespace tarvik::test {

namespace {

constexpr int DRIVING_KEYS[] = {VK_UP, VK_UP, VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT,
                                'A',   'A',   'Z',   'Q',     VK_F1,   VK_F2};

} // namespace

void RandomDriver::act() {
    if (frames_left_-- == 0) {
        change_style();
        return;
    }
    switch (style_) {
    case Style::ROUND_THE_RING:
        drive_ring(gear_);
        break;
    case Style::ANYHOW:
        act_anyhow();
        break;
    case Style::STRAIGHT_AWAY: // at full speed, thousands of cells from one frame to the next
        speed[PLAYER_SLOT] = 3.3F;
        if (below(50) == 0) {
            car_x[PLAYER_SLOT] = static_cast<float>(below(12000)) - 1000.0F;
            car_y[PLAYER_SLOT] = static_cast<float>(below(12000)) - 1000.0F;
        }
        act_anyhow();
        break;
    }
}

void RandomDriver::change_style() {
    for (const int key : DRIVING_KEYS) {
        release(key);
    }
    restart_autopilot();
    press(static_cast<int>('1' + below(3)));
    release('1');
    release('2');
    release('3');
    if (below(20) == 0) {
        const int bracket = below(2) == 0 ? VK_OEM_4 : VK_OEM_6;
        press(bracket);
        release(bracket);
    }
    style_ = static_cast<Style>(below(3));
    gear_ = static_cast<std::int32_t>(3 + below(4));
    frames_left_ = static_cast<int>(500 + below(4000));
}

void RandomDriver::act_anyhow() {
    const int key = DRIVING_KEYS[below(std::size(DRIVING_KEYS))];
    switch (below(8)) {
    case 0:
        post_message(WM_MOUSEMOVE, 0, static_cast<LPARAM>(below(480) << 16U | below(640)));
        break;
    case 1:
    case 2:
    case 3:
        release(key);
        break;
    case 4:
    case 5:
    case 6:
        press(key);
        break;
    default:
        break;
    }
}

} // namespace tarvik::test
