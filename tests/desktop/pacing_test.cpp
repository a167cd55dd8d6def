// When the next frame is due.
#include "platform/common/pacing.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace std::chrono_literals;

TEST(Pacing, SixtyFramesTakeASecondAndOnlyALateOneIsMadeUpFor) {
    EXPECT_NEAR(std::chrono::duration<double>(60 * FRAME_TIME).count(), 1, 1e-6);
    constexpr FrameClock::time_point START{1h};
    const FrameClock::time_point after_halt = START + 300ms;
    const FrameClock::time_point due = next_due(START, after_halt);
    EXPECT_EQ(due, after_halt);
    EXPECT_EQ(next_due(due, after_halt + 20ms), after_halt + FRAME_TIME);
}
