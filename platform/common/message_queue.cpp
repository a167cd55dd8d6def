// The waiting messages, and the two ways they merge.
#include "platform/common/message_queue.h"

namespace tarvik {

void MessageQueue::append(const Message& message) {
    if (size() < CAPACITY) {
        messages_.push_back(message);
    }
}

void MessageQueue::append_input(const Message& message) {
    if (message.message == WM_MOUSEMOVE && ends_with_mouse_move()) {
        messages_.back() = message;
    } else if (!merge_repeat(message)) {
        append(message);
    }
}

bool MessageQueue::take(Message& message) {
    if (messages_.empty()) {
        return false;
    }
    message = messages_.front();
    messages_.pop_front();
    return true;
}

bool MessageQueue::ends_with_mouse_move() const {
    return !messages_.empty() && messages_.back().message == WM_MOUSEMOVE;
}

bool MessageQueue::merge_repeat(const Message& message) {
    const bool is_repeat = (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) &&
                           (message.lparam & KEY_WAS_DOWN) != 0;
    // Between two repeats of a held key there is at most one mouse move. Without looking behind
    // it, a moving mouse and a quick auto-repeat together would outrun one message a frame.
    const std::size_t distance = ends_with_mouse_move() ? 1 : 0;
    if (!is_repeat || size() <= distance) {
        return false;
    }
    Message& waiting = messages_[size() - 1 - distance];
    if (waiting.message != message.message || waiting.wparam != message.wparam ||
        (waiting.lparam & ~KEY_REPEAT_COUNT_MASK) != (message.lparam & ~KEY_REPEAT_COUNT_MASK)) {
        return false;
    }
    if ((waiting.lparam & KEY_REPEAT_COUNT_MASK) != KEY_REPEAT_COUNT_MASK) {
        ++waiting.lparam;
    }
    return true;
}

} // namespace tarvik
