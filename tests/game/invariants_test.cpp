// The check of the invariants itself: silent on a drive, and naming each planted fault.
#include "race/view.h"
#include "render/frame_buffer.h"
#include "render/text.h"
#include "tests/support/invariants.h"
#include "tests/support/race_test.h"

#include <limits>
#include <utility>

namespace tarvik::test {
namespace {

class InvariantCheck : public RaceTest {};

/// Sets `value` to `bad` for as long as it takes to see that the fault is named.
template <typename T>
void expect_named(Invariants& invariants, const char* name, T& value, T bad) {
    const T good = std::exchange(value, bad);
    EXPECT_EQ(invariants.fault().rfind(name, 0), 0U) << name << ", but: " << invariants.fault();
    value = good;
    EXPECT_EQ(invariants.fault(), "");
}

TEST_F(InvariantCheck, NamesEachPlantedFault) {
    Invariants invariants;
    key_down[VK_UP] = 1;
    key_down[VK_LEFT] = 1;
    for (int frame = 0; frame < 400; ++frame) {
        key_down[int{'A'}] = frame % 60 == 0 ? 1 : 0;
        race_frame();
        ASSERT_EQ(invariants.fault(), "");
        ASSERT_TRUE(Invariants::is_picture_whole());
    }
    expect_named(invariants, "speed", velocity, 3.31F);
    expect_named(invariants, "car_x", x, std::numeric_limits<float>::quiet_NaN());
    expect_named(invariants, "gear", gear[PLAYER_SLOT], 7);
    expect_named(invariants, "steer_count", steer_count[PLAYER_SLOT], 41);
    expect_named(invariants, "steer_history", steer_history[42], 180.0F);
    expect_named(invariants, "cycle", cycle[PLAYER_SLOT], 990002);
    expect_named(invariants, "values of slot", penalty[7], 1.0F);
    expect_named(invariants, "ghost buffers", ghost_x[PLAYER_SLOT], ghost_x[FIRST_GHOST_SLOT]);
    expect_named(invariants, "ghost entry", ghost_heading[LAST_GHOST_SLOT][1], 0.0F);
    expect_named(invariants, "view_y", view_y, -1);
    expect_named(invariants, "key_down", key_down[255], 2);
    expect_named(invariants, "not consumed", key_down[int{'Z'}], 1);

    std::memset(text_buffer, 'x', TEXT_BUFFER_SIZE);
    EXPECT_EQ(invariants.fault(), "end of the text within: 110");
    ++pixel_at(1, 1)[0];
    EXPECT_FALSE(Invariants::is_picture_whole());
}

} // namespace
} // namespace tarvik::test
