// When the next frame is due.
#include "platform/common/pacing.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace std::chrono_literals;

// That there are sixty a second is measured where the game is played.
TEST(Pacing, AHaltIsNotMadeUpFor) {
    constexpr PictureClock::time_point START{1h};
    const PictureClock::time_point after_halt = START + 300ms;
    const PictureClock::time_point due = next_due(START, after_halt);
    EXPECT_EQ(due, after_halt);
    EXPECT_EQ(next_due(due, after_halt + 1ms), after_halt + PICTURE_TIME);
}
