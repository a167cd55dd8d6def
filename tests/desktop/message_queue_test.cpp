// What waits in the queue, in which order, and what is merged.
#include "platform/common/message_queue.h"

#include <gtest/gtest.h>

#include <vector>

using namespace tarvik;

namespace {

using Messages = std::vector<Message>;

Message move_to(int x) {
    return {WM_MOUSEMOVE, 0, x, 0};
}

Message key_down(WPARAM key) {
    return {WM_KEYDOWN, key, 1, 0};
}

Message key_repeat(WPARAM key, int count = 1) {
    return {WM_KEYDOWN, key, count | KEY_WAS_DOWN, 0};
}

Message key_up(WPARAM key) {
    return {WM_KEYUP, key, 1 | KEY_WAS_DOWN | KEY_RELEASED, 0};
}

Messages waiting_after(const Messages& input) {
    MessageQueue queue;
    for (const Message& message : input) {
        queue.append_input(message);
    }
    Messages waiting;
    for (Message message{}; queue.take(message);) {
        waiting.push_back(message);
    }
    return waiting;
}

} // namespace

// The game takes one message a frame. Here more arrive than it takes, unless they merge.
TEST(MessageQueue, AKeyIsNotDelayedByAFloodOfMovesAndRepeats) {
    Messages flood = {key_down('A')};
    for (int i = 1; i <= 100; ++i) {
        flood.insert(flood.end(), {move_to(2 * i), key_repeat('A'), move_to(2 * i + 1)});
    }
    flood.insert(flood.end(), {key_up('A'), move_to(202)});
    EXPECT_EQ(waiting_after(flood), (Messages{key_down('A'), move_to(2), key_repeat('A', 100),
                                              move_to(201), key_up('A'), move_to(202)}));
}

TEST(MessageQueue, RepeatsMergeOnlyWithARepeatOfTheSameKey) {
    const Message with_alt = {WM_SYSKEYDOWN, 'Z', 1 | KEY_WAS_DOWN | KEY_ALT_HELD, 0};
    const Messages different = {key_down('A'),   key_repeat('A'), key_up('A'),   key_repeat('A'),
                                key_repeat('Z'), with_alt,        key_down('Z'), key_down('Z')};
    EXPECT_EQ(waiting_after(different), different);
}
