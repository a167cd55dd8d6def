// The ring of waiting messages, and the two ways they merge.
#include "platform/common/message_queue.h"

namespace tarvik {

void MessageQueue::append(const Message& message) {
    if (size_ == CAPACITY) {
        return;
    }
    messages_[(first_ + size_) % CAPACITY] = message;
    ++size_;
}

void MessageQueue::append_input(const Message& message) {
    if (message.message == WM_MOUSEMOVE && size_ > 0 && from_end(0).message == WM_MOUSEMOVE) {
        from_end(0) = message;
    } else if (!merge_repeat(message)) {
        append(message);
    }
}

bool MessageQueue::take(Message& message) {
    if (size_ == 0) {
        return false;
    }
    message = messages_[first_];
    first_ = (first_ + 1) % CAPACITY;
    --size_;
    return true;
}

Message& MessageQueue::from_end(std::size_t distance) {
    return messages_[(first_ + size_ - 1 - distance) % CAPACITY];
}

bool MessageQueue::merge_repeat(const Message& message) {
    const bool is_repeat = (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) &&
                           (message.lparam & KEY_WAS_DOWN) != 0;
    // Between two repeats of a held key there is at most one mouse move. Without looking behind
    // it, a moving mouse and a quick auto-repeat together would outrun one message a frame.
    const std::size_t distance = size_ > 0 && from_end(0).message == WM_MOUSEMOVE ? 1 : 0;
    if (!is_repeat || size_ <= distance) {
        return false;
    }
    Message& waiting = from_end(distance);
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
