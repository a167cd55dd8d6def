// The whole program: its calls in order, its messages, its end.
#include "platform/driver.h"
#include "platform/scripted/scripted.h"
#include "race/race_state.h"
#include "race/random.h"
#include "render/frame_buffer.h"
#include "shell/input.h"
#include "shell/out_of_memory.h"
#include "shell/window.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <ctime>
#include <set>

namespace tarvik::test {
namespace {

using scripted::calls;

// Version 1, flags 0x1805, 16 bits of depth, zeroes for the rest.
constexpr const char* FORMAT_BYTES = "28000100051800000000000000000000"
                                     "00000000000000100000000000000000"
                                     "0000000000000000";

std::vector<std::string> calls_of_run(int frames, const FrameScript& script = {}) {
    calls.clear();
    scripted::recording = true;
    EXPECT_EQ(run_program(frames, script), 0);
    // An archive without pictures is read in 4200 calls that are all alike.
    std::erase(calls, "ReadFile 4 null");
    return calls;
}

const std::vector<std::string> START = {
    "GetModuleHandleA null",
    "RegisterClassA style=0x20 extra=0,0 instance=module icon=null cursor=null brush=null "
    "menu=null class=\"Quillaby - Tarvik\"",
    "GetSystemMetrics 0",
    "GetSystemMetrics 1",
    "CreateWindowExA 0x40000 \"Quillaby - Tarvik\" \"Quillaby - Tarvik V0.1\" 0x80000000 "
    "at 640,300 size 640,480 null null null null",
    "GetDC window",
    std::string("ChoosePixelFormat dc ") + FORMAT_BYTES,
    std::string("SetPixelFormat 7 dc ") + FORMAT_BYTES,
    "wglCreateContext dc",
    "wglMakeCurrent dc context",
    "ShowWindow window 5",
    "ShowCursor 0",
    "CreateFileA \".\\data\\graphics.dat\" access=3 share=1 null disposition=4 flags=0x80 null",
    "CloseHandle",
    "CreateFileA \".\\data\\race1.map\" access=3 share=1 null disposition=4 flags=0x80 null",
    "ReadFile 100000000 null",
    "CloseHandle"};

const std::vector<std::string> FRAME = {"glClear 0x4100", "PeekMessageA window 0 0 1",
                                        "GetAsyncKeyState 0x1B",
                                        "glDrawPixels 640 480 0x1907 0x1401", "SwapBuffers dc"};

const std::vector<std::string> CLOSING_FRAME = {"glClear 0x4100", "PeekMessageA window 0 0 1",
                                                "DispatchMessageA 0x10", "PostQuitMessage 0",
                                                "GetAsyncKeyState 0x1B"};

const std::vector<std::string> END = {"glClear 0x4100",
                                      "glDrawPixels 640 480 0x1907 0x1401",
                                      "SwapBuffers dc",
                                      "ChangeDisplaySettingsA null 0",
                                      "ShowCursor 1",
                                      "wglMakeCurrent null null",
                                      "wglDeleteContext context",
                                      "ReleaseDC window dc",
                                      "DestroyWindow window",
                                      "PostQuitMessage 0",
                                      "UnregisterClassA \"Quillaby - Tarvik\" null"};

std::vector<std::string> joined(const std::vector<std::vector<std::string>>& pieces) {
    std::vector<std::string> all;
    for (const auto& piece : pieces) {
        all.insert(all.end(), piece.begin(), piece.end());
    }
    return all;
}

TEST(Program, MakesItsCallsInOrderFromStartToEnd) {
    EXPECT_EQ(calls_of_run(2), joined({START, FRAME, FRAME, CLOSING_FRAME, END}));
}

TEST(Program, EndsAnEscapeFrameUnshown) {
    const auto made = calls_of_run(9, [](int frame) { scripted::hold_key(VK_ESCAPE, frame == 2); });
    const std::vector<std::string> escape_frame(FRAME.begin(), FRAME.begin() + 3);
    EXPECT_EQ(made, joined({START, FRAME, escape_frame, END}));
}

TEST(Program, IgnoresAnEscapeThatIsOverBeforeTheLook) {
    const auto made = calls_of_run(1, [](int) {
        scripted::hold_key(VK_ESCAPE, true);
        scripted::hold_key(VK_ESCAPE, false);
    });
    EXPECT_EQ(made, joined({START, FRAME, CLOSING_FRAME, END}));
}

TEST(Program, StartsOnTheFirstTrackAtAdvancedWithTheTimeAsItsSeed) {
    const auto first_draw = [](std::time_t seed) {
        srand(static_cast<std::uint32_t>(seed));
        return rand();
    };
    const std::time_t before = std::time(nullptr);
    std::time_t after = before;
    std::int32_t drawn = 0;
    run_program(1, [&](int frame) {
        if (frame == 1) {
            drawn = rand();
            after = std::time(nullptr);
        }
    });
    std::set<std::int32_t> possible;
    for (std::time_t seed = before; seed <= after; ++seed) {
        possible.insert(first_draw(seed));
    }
    EXPECT_EQ(possible.count(drawn), 1U);
    EXPECT_EQ(race_number, 1);
    EXPECT_EQ(difficulty, ADVANCED);
}

TEST(Program, ReportsARefusedWindowAndGoesOn) {
    scripted::refuse_window = true;
    const auto made = calls_of_run(1);
    EXPECT_EQ(made.at(5), "MessageBoxA null \"Window Creation Error\" \"Test\" 0");
    EXPECT_EQ(made.at(6), "GetDC null");
    EXPECT_EQ(made.at(11), "ShowWindow null 5");
    EXPECT_EQ(std::count(made.begin(), made.end(), "SwapBuffers dc"), 2);
}

#ifndef __SANITIZE_ADDRESS__ // which would end the program by itself
TEST(Program, EndsWithOneLineWhereThereIsNoMemory) {
    EXPECT_EXIT(allocate_buffer<std::uint64_t>(std::size_t{1} << 58U, "track grid"),
                testing::ExitedWithCode(EXIT_FAILURE),
                "^tarvik: not enough memory for the track grid \\(2305843009213693952 bytes\\)\n$");
}
#endif

TEST(Program, CentresTheWindowTruncatingTowardsZero) {
    scripted::display_width = 637;
    scripted::display_height = 1079;
    EXPECT_NE(calls_of_run(1).at(4).find(" at -1,299 size 640,480 "), std::string::npos);
}

TEST(Program, ShowsABlackPictureLast) {
    keep_pictures = true;
    run_program(1);
    ASSERT_EQ(pictures.size(), 2U);
    EXPECT_EQ(pictures[0].logical(300, 200), GRASS);
    EXPECT_EQ(pictures[1].bytes, std::vector<std::uint8_t>(640 * 480 * 3, 0));
}

TEST(Program, MovesTheCarAndTheViewInAFrameThatEndsByClosing) {
    install_data(plain_map(0), {}, {});
    float y_before = 0.0F;
    run_program(9, [&](int frame) {
        speed[PLAYER_SLOT] = 3.0F;
        if (frame == 4) {
            y_before = car_y[PLAYER_SLOT];
            post_message(WM_CLOSE, 0, 0);
        }
    });
    EXPECT_FLOAT_EQ(car_y[PLAYER_SLOT], y_before - 3.0F);
}

TEST(Program, HandlesOneMessageAFrame) {
    std::vector<std::int32_t> seen;
    run_program(4, [&](int frame) {
        seen.push_back(key_down[VK_UP] * 10 + mouse_x);
        if (frame == 1) {
            press(VK_UP);
            post_message(WM_MOUSEMOVE, 0, 7);
            release(VK_UP);
        }
    });
    EXPECT_EQ(seen, (std::vector<std::int32_t>{0, 10, 17, 7, 7}));
}

TEST(Program, TakesFromMessagesOnlyWhatItKnows) {
    std::vector<std::string> made = calls_of_run(14, [](int frame) {
        if (frame != 1) {
            return;
        }
        post_message(WM_SYSKEYDOWN, VK_UP, 1 << 29);
        post_message(WM_SYSCOMMAND, SC_CLOSE, 0);
        for (const UINT button : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN, WM_RBUTTONUP,
                                  WM_MBUTTONDOWN, WM_MBUTTONUP}) {
            post_message(button, 0, 0);
        }
        post_message(WM_KEYDOWN, 255, 0);
        post_message(WM_KEYDOWN, 256 + VK_UP, 0); // beyond the key table
        post_message(WM_MOUSEMOVE, 0, static_cast<LPARAM>(0xFFFF0000U | 639U));
    });
    EXPECT_EQ(std::count(made.begin(), made.end(), "DefWindowProcA window 0x104 0x26"), 1);
    const auto is_default = [](const std::string& call) { return call.starts_with("DefWindow"); };
    EXPECT_EQ(std::count_if(made.begin(), made.end(), is_default), 1);
    EXPECT_EQ(key_down[VK_UP], 0);
    EXPECT_EQ(key_down[255], 1);
    EXPECT_EQ(mouse_x, 639);
    EXPECT_EQ(mouse_y, 65535);
}

TEST(Program, RunsWithoutADataFolderAndCreatesNothing) {
    scripted::memory_folder_exists = false;
    run_program(2);
    EXPECT_TRUE(scripted::memory_files.empty());
}

TEST(Program, LeavesEmptyFilesBehindInAnEmptyDataFolder) {
    run_program(2);
    ASSERT_EQ(scripted::memory_files.size(), 2U);
    EXPECT_TRUE(scripted::memory_files.at("data/race1.map").bytes.empty());
    EXPECT_TRUE(scripted::memory_files.at("data/graphics.dat").bytes.empty());
}

} // namespace
} // namespace tarvik::test
