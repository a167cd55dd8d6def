// What waits in the queue, in which order, and what is merged.
#include "platform/common/message_queue.h"

#include <gtest/gtest.h>

#include <vector>

using namespace tarvik;

namespace {

Message move_to(int x) {
    return {WM_MOUSEMOVE, 0, x, 0};
}

Message key_down(WPARAM key) {
    return {WM_KEYDOWN, key, 1, 0};
}

Message key_repeat(WPARAM key) {
    return {WM_KEYDOWN, key, 1 | KEY_WAS_DOWN, 0};
}

Message key_up(WPARAM key) {
    return {WM_KEYUP, key, 1 | KEY_WAS_DOWN | KEY_RELEASED, 0};
}

std::vector<Message> take_all(MessageQueue& queue) {
    std::vector<Message> all;
    for (Message message{}; queue.take(message);) {
        all.push_back(message);
    }
    return all;
}

} // namespace

TEST(MessageQueue, MovesCollapseIntoTheNewestButNeverAcrossAKey) {
    MessageQueue queue;
    for (int x = 0; x < 200; ++x) {
        queue.append_input(move_to(x));
    }
    queue.append_input(key_down('A'));
    for (int x = 200; x < 400; ++x) {
        queue.append_input(move_to(x));
    }
    const std::vector<Message> all = take_all(queue);
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0].lparam, 199);
    EXPECT_EQ(all[1].wparam, WPARAM{'A'});
    EXPECT_EQ(all[2].lparam, 399);
}

// The game takes one message a frame. Here a key repeats in every frame and the mouse moves before
// and after it: more arrives than is taken, unless it merges.
TEST(MessageQueue, AKeyWaitsAtMostTwoFramesUnderAFloodOfMovesAndRepeats) {
    MessageQueue queue;
    queue.append_input(key_down('A'));
    Message taken{};
    for (int frame = 0; frame < 100; ++frame) {
        queue.append_input(move_to(2 * frame));
        queue.append_input(key_repeat('A'));
        queue.append_input(move_to(2 * frame + 1));
        ASSERT_TRUE(queue.take(taken));
    }
    queue.append_input(key_up('A'));
    queue.append_input(move_to(1000));
    int frames_waited = -1;
    do {
        ASSERT_TRUE(queue.take(taken));
        ++frames_waited;
    } while (taken.message != WM_KEYUP);
    EXPECT_LE(frames_waited, 2);
}

TEST(MessageQueue, RepeatsMergeOnlyWithARepeatOfTheSameKeyAndCountUp) {
    MessageQueue queue;
    queue.append_input(key_down('A'));
    queue.append_input(key_repeat('A'));
    queue.append_input(key_repeat('A'));
    queue.append_input(key_up('A'));
    queue.append_input(key_repeat('A'));
    queue.append_input(key_repeat('Z'));
    queue.append_input({WM_SYSKEYDOWN, 'Z', 1 | KEY_WAS_DOWN | KEY_ALT_HELD, 0});
    queue.append_input(key_down('Z'));
    queue.append_input(key_down('Z'));
    const std::vector<Message> all = take_all(queue);
    ASSERT_EQ(all.size(), 8U);
    EXPECT_EQ(all[0].lparam & KEY_REPEAT_COUNT_MASK, 1);
    EXPECT_EQ(all[1].lparam, 2 | KEY_WAS_DOWN);
    EXPECT_EQ(all[2].message, WM_KEYUP);
    EXPECT_EQ(all[3].lparam & KEY_REPEAT_COUNT_MASK, 1);
    EXPECT_EQ(all[4].wparam, WPARAM{'Z'});
    EXPECT_EQ(all[5].message, WM_SYSKEYDOWN);
    for (const std::size_t press : {6U, 7U}) {
        EXPECT_EQ(all[press].message, WM_KEYDOWN);
        EXPECT_EQ(all[press].lparam & (KEY_WAS_DOWN | KEY_REPEAT_COUNT_MASK), 1);
    }
}

TEST(MessageQueue, ButtonsAndPostedMessagesKeepTheirPlaces) {
    MessageQueue queue;
    queue.append_input(move_to(1));
    queue.append_input({WM_LBUTTONDOWN, 1, 0, 0});
    queue.append_input({WM_LBUTTONUP, 0, 0, 0});
    queue.append(move_to(2));
    queue.append(move_to(3));
    EXPECT_EQ(take_all(queue).size(), 5U);
}

TEST(MessageQueue, AFullQueueDropsWhatComesLastAndGoesOnAfterwards) {
    MessageQueue queue;
    for (std::size_t i = 0; i < MessageQueue::CAPACITY + 10; ++i) {
        queue.append_input(key_down(i));
    }
    EXPECT_EQ(queue.size(), MessageQueue::CAPACITY);
    Message taken{};
    ASSERT_TRUE(queue.take(taken));
    EXPECT_EQ(taken.wparam, 0U);
    queue.append_input(key_up(7));
    const std::vector<Message> rest = take_all(queue);
    ASSERT_EQ(rest.size(), MessageQueue::CAPACITY);
    EXPECT_EQ(rest[rest.size() - 2].wparam, MessageQueue::CAPACITY - 1);
    EXPECT_EQ(rest.back().message, WM_KEYUP);
}
