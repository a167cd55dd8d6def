// The whole program: its calls in order, its messages, its end.
#include "platform/driver.h"
#include "platform/scripted/scripted.h"
#include "race/race_state.h"
#include "race/random.h"
#include "shell/input.h"
#include "shell/out_of_memory.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <fstream>

namespace tarvik::test {
namespace {

using scripted::calls;

std::vector<std::string> calls_of_run(int frames, const FrameScript& script = {}) {
    calls.clear();
    scripted::recording = true;
    EXPECT_EQ(run_program(frames, script), 0);
    // An archive without pictures takes 4200 identical calls to read.
    std::erase(calls, "ReadFile 4 null");
    return calls;
}

TEST(Program, MakesItsCallsInOrderFromStartToEnd) {
    std::ifstream file(TARVIK_EXPECTED_CALLS);
    std::vector<std::string> expected;
    for (std::string line; std::getline(file, line);) {
        expected.push_back(line);
    }
    scripted::display_width = 637; // narrower than the window
    scripted::display_height = 1079;
    EXPECT_EQ(calls_of_run(2), expected);
}

TEST(Program, EndsWithoutShowingTheFrameThatFindsEscapeHeld) {
    const auto made = calls_of_run(9, [](int frame) {
        scripted::hold_key(VK_ESCAPE, true);
        scripted::hold_key(VK_ESCAPE, frame == 4); // until then released before it is asked for
    });
    EXPECT_EQ(std::ranges::count(made, "GetAsyncKeyState 0x1B"), 4);
    EXPECT_EQ(std::ranges::count(made, "SwapBuffers dc"), 4); // and the black frame
}

TEST(Program, StartsOnTheFirstTrackAtAdvancedWithTheTimeAsItsSeedAndEndsBlack) {
    const std::time_t before = std::time(nullptr);
    std::time_t after = before;
    std::int32_t drawn = 0;
    run_program(1, [&](int frame) {
        if (frame == 1) {
            drawn = rand();
            after = std::time(nullptr);
        } else {
            EXPECT_EQ(shown_frame.at(300, 200), GRASS);
        }
    });
    const auto is_seed = [&](std::time_t seed) {
        srand(static_cast<std::uint32_t>(seed));
        return rand() == drawn;
    };
    while (before < after && !is_seed(after)) {
        --after;
    }
    EXPECT_TRUE(is_seed(after));
    EXPECT_EQ(race_number, 1);
    EXPECT_EQ(difficulty, ADVANCED);
    EXPECT_EQ(shown_frame.pixels, std::vector<std::uint32_t>(320 * 240, BLACK));
}

TEST(Program, ReportsARefusedWindowAndGoesOn) {
    scripted::refuse_window = true;
    const auto made = calls_of_run(1);
    EXPECT_EQ(made.at(5), "MessageBoxA null \"Window Creation Error\" \"Test\" 0");
    EXPECT_EQ(made.at(6), "GetDC null");
    EXPECT_EQ(made.at(11), "ShowWindow null 5");
    EXPECT_EQ(std::ranges::count(made, "SwapBuffers dc"), 2);
}

#ifndef __SANITIZE_ADDRESS__ // which would end the program by itself
TEST(Program, EndsWithOneLineWhereThereIsNoMemory) {
    EXPECT_EXIT(allocate_buffer<std::uint64_t>(std::size_t{1} << 58U, "track grid"),
                testing::ExitedWithCode(EXIT_FAILURE),
                "^tarvik: not enough memory for the track grid \\(2305843009213693952 bytes\\)\n$");
}
#endif

TEST(Program, TakesFromMessagesOnlyWhatItKnows) {
    const auto made = calls_of_run(16, [](int frame) {
        if (frame != 1) {
            return;
        }
        post_message(WM_SYSKEYDOWN, VK_UP, 1 << 29);
        post_message(WM_SYSCOMMAND, SC_CLOSE, 0);
        for (const UINT button : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN, WM_RBUTTONUP,
                                  WM_MBUTTONDOWN, WM_MBUTTONUP}) {
            post_message(button, 0, 0);
        }
        press(254);
        release(254);
        press(255);
        press(256 + VK_UP); // beyond the key table
        post_message(WM_MOUSEMOVE, 0, static_cast<LPARAM>(0xFFFF0000U | 639U));
    });
    EXPECT_EQ(std::ranges::count(made, "DefWindowProcA window 0x104 0x26"), 1);
    const auto is_default = [](const std::string& call) { return call.starts_with("DefWindow"); };
    EXPECT_EQ(std::ranges::count_if(made, is_default), 1);
    EXPECT_EQ(key_down[VK_UP], 0);
    EXPECT_EQ(key_down[254], 0);
    EXPECT_EQ(key_down[255], 1);
    EXPECT_EQ(mouse_x, 639);
    EXPECT_EQ(mouse_y, 65535);
}

} // namespace
} // namespace tarvik::test
