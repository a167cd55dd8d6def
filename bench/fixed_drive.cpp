// tarvik-fixed-drive: the same frames every time, for counting their instructions.
//
// Driving, the end of a lap and a track switch on a map that is made here, so that neither the
// game's data nor its tracks change the count. bench/check-instructions runs it under callgrind.
#include "game/start_up.h"
#include "platform/win32.h"
#include "race/laps.h"
#include "race/race_frame.h"
#include "race/race_state.h"
#include "tests/support/program.h"
#include "tests/support/ring.h"

namespace {

constexpr int FRAMES = 400;
constexpr int LAP_END_FRAME = 150;
constexpr int TRACK_SWITCH_FRAME = 300;

void play(int frame) {
    using namespace tarvik;
    if (frame == LAP_END_FRAME) {
        car_x[PLAYER_SLOT] = BOX_LEFT + BOX_SIZE / 2.0F;
        car_y[PLAYER_SLOT] = BOX_TOP + BOX_SIZE / 2.0F;
        cycle[PLAYER_SLOT] = MIN_LAP_FRAMES + 1;
    }
    if (frame == TRACK_SWITCH_FRAME) {
        test::press(VK_OEM_4);
        test::release(VK_OEM_4);
    }
}

} // namespace

int main() {
    tarvik::test::install_ring_data();
    tarvik::start_up();
    tarvik::test::restart_on_ring(1);
    for (int frame = 1; frame <= FRAMES; ++frame) {
        tarvik::test::drive_ring(4);
        play(frame);
        tarvik::race_frame();
    }
    return 0;
}
