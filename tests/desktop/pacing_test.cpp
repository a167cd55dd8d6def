// When the next frame is due.
#include "platform/common/pacing.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace std::chrono_literals;

namespace {

constexpr PictureClock::time_point START{1h};

} // namespace

TEST(Pacing, SixtyFramesTakeASecondEvenIfSomeAreLate) {
    PictureClock::time_point due = START;
    for (int picture = 0; picture < 60; ++picture) {
        const auto lateness = picture % 7 * 1ms;
        due = next_due(due, due + lateness);
    }
    EXPECT_NEAR(std::chrono::duration<double>(due - START).count(), 1.0, 1e-6);
}

TEST(Pacing, AHaltIsNotMadeUpFor) {
    const PictureClock::time_point after_halt = START + 300ms;
    const PictureClock::time_point due = next_due(START, after_halt);
    EXPECT_EQ(due, after_halt);
    EXPECT_EQ(next_due(due, after_halt + 1ms), after_halt + PICTURE_TIME);
}
