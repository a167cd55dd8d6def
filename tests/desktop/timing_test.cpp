// How fast pictures and keys come, measured from outside.
#include "tests/desktop/play_fixture.h"

#include <atomic>
#include <chrono>
#include <thread>

#include <X11/extensions/XTest.h>

namespace tarvik {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

using Timing = PlayTest;

// A thousand mouse moves a second, made up for where the machine is late.
class MouseFlood {
  public:
    explicit MouseFlood(const std::string& display)
        : thread_([this, display](const std::stop_token& stop) { flood(display, stop); }) {}

    int count() const {
        return count_;
    }

  private:
    void flood(const std::string& display, const std::stop_token& stop) {
        Display* connection = XOpenDisplay(display.c_str());
        const auto start = Clock::now();
        while (!stop.stop_requested()) {
            while (count_ < (Clock::now() - start) / 1ms) {
                const int x = XServer::WIDTH / 2 + count_ % 100;
                XTestFakeMotionEvent(connection, -1, x, XServer::HEIGHT / 2, CurrentTime);
                ++count_;
            }
            XFlush(connection);
            std::this_thread::sleep_for(1ms);
        }
        XCloseDisplay(connection);
    }

    std::atomic<int> count_ = 0;
    std::jthread thread_;
};

} // namespace

TEST_F(Timing, SixtyPicturesASecond) {
    start_race();
    player_.watch_pictures();
    player_.wait_for_picture();
    const int first = player_.count_pictures();
    const auto start = Clock::now();
    while (Clock::now() - start < 4s) {
        player_.wait_for_picture();
    }
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    EXPECT_NEAR((player_.count_pictures() - first) / seconds, 60.0, 1.0);
}

// From the press of a key to the picture that shows its effect there are three pictures: the one
// being drawn, the one whose frame takes the key, and the next one with the new text. Two more are
// allowed.
TEST_F(Timing, AFloodOfMouseMovesDoesNotDelayAKey) {
    constexpr int MOST_PICTURES = 3 + 2;
    start_race();
    player_.watch_pictures();
    const MouseFlood flood(server_.display());
    std::this_thread::sleep_for(1s);
    const KeySym keys[] = {XK_1, XK_2, XK_3, XK_1, XK_3, XK_2, XK_1, XK_2};
    for (const KeySym key : keys) {
        player_.wait_for_picture();
        const Pixels before = player_.look_at(DIFFICULTY);
        const int first = player_.count_pictures();
        player_.press(key);
        ASSERT_TRUE(player_.waits_until([&] {
            player_.wait_for_picture();
            return player_.look_at(DIFFICULTY) != before;
        }));
        EXPECT_LE(player_.count_pictures() - first, MOST_PICTURES);
        player_.release(key);
        std::this_thread::sleep_for(100ms);
    }
    EXPECT_GT(flood.count(), 1500);
}

} // namespace tarvik
