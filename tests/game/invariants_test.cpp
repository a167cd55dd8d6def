// The check of the invariants itself: it names each planted fault.
#include "race/view.h"
#include "render/frame_buffer.h"
#include "render/text.h"
#include "tests/support/invariants.h"
#include "tests/support/race_test.h"

#include <cstring>
#include <gmock/gmock.h>

#include <limits>
#include <utility>

namespace tarvik::test {
namespace {

class InvariantCheck : public RaceTest {};

template <typename T>
void expect_named(const char* name, T& value, T bad) {
    const T good = std::exchange(value, bad);
    EXPECT_THAT(find_fault(), testing::StartsWith(name));
    value = good;
}

TEST_F(InvariantCheck, NamesEachPlantedFault) {
    key_down[VK_LEFT] = 1;
    frames(60);
    expect_named("speed", velocity, 3.31F);
    expect_named("car_x", x, std::numeric_limits<float>::quiet_NaN());
    expect_named("gear", gear[PLAYER_SLOT], 7);
    expect_named("steer_count", steer_count[PLAYER_SLOT], 41);
    expect_named("steer_history", steer_history[42], 180.0F);
    expect_named("cycle", cycle[PLAYER_SLOT], 990002);
    expect_named("a ghost buffer in two slots", ghost_x[PLAYER_SLOT], ghost_x[FIRST_GHOST_SLOT]);
    expect_named("ghost entry", ghost_heading[LAST_GHOST_SLOT][1], 0.0F);
    expect_named("view_y", view_y, -1);
    expect_named("key_down", key_down[255], 2);
    expect_named("not consumed", key_down[int{'Z'}], 1);
    EXPECT_EQ(find_fault(), "");

    std::memset(text_buffer, 'x', TEXT_BUFFER_SIZE);
    EXPECT_THAT(find_fault(), testing::StartsWith("end of the text within: 110"));
    ++pixel_at(1, 1)[0];
    EXPECT_ANY_THROW(drawn_picture());
}

} // namespace
} // namespace tarvik::test
