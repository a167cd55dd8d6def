// A started game without its main loop, for tests that go frame by frame or call by call.
#pragma once

#include "game/start_up.h"
#include "platform/win32.h"
#include "race/race_frame.h"
#include "race/race_state.h"
#include "race/random.h"
#include "race/track_grid.h"
#include "shell/input.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <cstring>

namespace tarvik::test {

/// The player's values by short names.
inline float& x = car_x[PLAYER_SLOT];
inline float& y = car_y[PLAYER_SLOT];
inline float& degrees = heading[PLAYER_SLOT];
inline float& velocity = speed[PLAYER_SLOT];

class RaceTest : public testing::Test {
  protected:
    /// Road everywhere, no pictures, a known seed.
    void SetUp() override {
        install_data({}, {}, {});
        start_up();
        std::memset(track_grid, 0, TRACK_MAP_BYTES);
        srand(1);
    }

    void TearDown() override {
        shut_down();
    }

    static void frames(int count) {
        for (int i = 0; i < count; ++i) {
            race_frame();
        }
    }

    static void place(float at_x, float at_y, float at_heading, float at_speed) {
        x = at_x;
        y = at_y;
        degrees = at_heading;
        velocity = at_speed;
    }
};

} // namespace tarvik::test
