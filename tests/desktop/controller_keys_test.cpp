// Which messages the buttons and axes of game controllers make.
#include "platform/common/controller_keys.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvik {

namespace {

constexpr int TRIGGER = 7;
constexpr int BOTTOM_BUTTON = 0;
constexpr int START = 9;
constexpr int STEERING = 0;

bool held_on_keyboard = false;

class Controllers : public testing::Test {
  protected:
    using Changes = std::vector<int>; // the keys' codes, those of released keys negative

    /// What a frame adds to the queue.
    Changes frame() {
        keys_.append_messages(queue_, 0, [](int) { return held_on_keyboard; });
        Changes changes;
        for (Message message{}; queue_.take(message);) {
            const int key = static_cast<int>(message.wparam);
            changes.push_back(message.message == WM_KEYDOWN ? key : -key);
        }
        return changes;
    }

    bool keyboard_passes(UINT message) {
        held_on_keyboard = message == WM_KEYDOWN;
        return keys_.passes({message, VK_UP, 1, 0});
    }

    void fill_queue() {
        for (std::size_t i = 0; i < ControllerKeys::FEW_WAITING; ++i) {
            queue_.append({WM_KEYUP, VK_F1, 1, 0});
        }
    }

    MessageQueue queue_;
    ControllerKeys keys_;
};

} // namespace

TEST_F(Controllers, AKeyStaysDownUntilEveryControllerReleasesIt) {
    keys_.set_button(1, TRIGGER, 1);
    EXPECT_EQ(frame(), (Changes{VK_UP}));
    keys_.set_button(2, BOTTOM_BUTTON, 1);
    keys_.set_button(1, TRIGGER, 0);
    EXPECT_EQ(frame(), Changes{});
    keys_.remove(2);
    EXPECT_EQ(frame(), (Changes{-VK_UP}));
}

// Otherwise a release would be kept back, and no other would ever come.
TEST_F(Controllers, OnlyAPressThatTheGameWasToldOfKeepsAKeyDown) {
    fill_queue();
    EXPECT_TRUE(keyboard_passes(WM_KEYDOWN));
    keys_.set_button(1, TRIGGER, 1);
    frame(); // without room for it
    EXPECT_TRUE(keyboard_passes(WM_KEYUP));
    EXPECT_EQ(frame(), (Changes{VK_UP}));
    held_on_keyboard = true; // in another window
    keys_.set_button(1, TRIGGER, 0);
    EXPECT_EQ(frame(), (Changes{-VK_UP}));

    keys_.set_button(1, TRIGGER, 1);
    EXPECT_EQ(frame(), (Changes{VK_UP}));
    keyboard_passes(WM_KEYDOWN);
    held_on_keyboard = false; // released in another window
    keys_.set_button(1, TRIGGER, 0);
    EXPECT_EQ(frame(), (Changes{-VK_UP}));
}

TEST_F(Controllers, StartTappedDuringAWaitIsDownForOneFrame) {
    fill_queue(); // whoever asks for the key's state does not wait for messages
    keys_.set_button(1, START, 1);
    keys_.set_button(1, START, 0);
    frame();
    EXPECT_TRUE(keys_.holds(VK_ESCAPE));
    frame();
    EXPECT_FALSE(keys_.holds(VK_ESCAPE));
}

TEST_F(Controllers, ATremblingAxisIsIgnoredAndAWildOneDoesNotFloodTheQueue) {
    keys_.set_axis(1, STEERING, -0.51F);
    EXPECT_EQ(frame(), (Changes{VK_LEFT}));
    for (const float still_held : {-0.31F, -0.49F, -0.31F}) {
        keys_.set_axis(1, STEERING, still_held);
        EXPECT_EQ(frame(), Changes{});
    }
    keys_.set_axis(1, STEERING, -0.29F);
    EXPECT_EQ(frame(), (Changes{-VK_LEFT}));
    keys_.set_axis(1, STEERING, -0.49F);
    EXPECT_EQ(frame(), Changes{});

    for (int wild_frame = 0; wild_frame < 100; ++wild_frame) {
        keys_.set_axis(1, STEERING, wild_frame % 2 == 0 ? -1.0F : 1.0F);
        keys_.append_messages(queue_, 0, [](int) { return false; });
    }
    EXPECT_LE(queue_.size(), ControllerKeys::FEW_WAITING);
    while (!frame().empty()) {
    }
    keys_.remove(1);
    EXPECT_EQ(frame(), (Changes{-VK_RIGHT})) << "what it came to was right";
}

} // namespace tarvik
