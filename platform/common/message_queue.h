// The window's message queue: what Windows keeps for a window, without a system under it.
//
// The game takes one message a frame, so each message that waits here costs the player a frame.
// Messages that only repeat or update a waiting one are therefore merged into it, as Windows does.
#pragma once

#include "platform/win32.h"

#include <cstddef>
#include <deque>

namespace tarvik {

/// One waiting message; the window it belongs to is known to whoever takes it.
struct Message {
    UINT message;
    WPARAM wparam;
    LPARAM lparam;
    DWORD time; ///< milliseconds since the layer's start
    bool operator==(const Message&) const = default;
};

/// Bits of a key message's lparam.
inline constexpr LPARAM KEY_REPEAT_COUNT_MASK = 0xFFFF;
inline constexpr LPARAM KEY_ALT_HELD = LPARAM{1} << 29;
inline constexpr LPARAM KEY_WAS_DOWN = LPARAM{1} << 30;
inline constexpr LPARAM KEY_RELEASED = LPARAM{1} << 31;

class MessageQueue {
  public:
    /// As many as Windows lets wait for a thread.
    static constexpr std::size_t CAPACITY = 10000;

    /// Puts a message at the end. Nothing happens when the queue is full.
    void append(const Message& message);

    /// Puts a message from the user at the end, with two exceptions:
    /// a mouse move replaces a mouse move that is last in the queue, and the auto-repeat of a key
    /// joins, by its repeat count, the auto-repeat of the same key that waits last, or last but
    /// for a mouse move. Presses and releases stay as they are, in their order.
    void append_input(const Message& message);

    /// Takes the oldest message. False when there is none.
    bool take(Message& message);

    std::size_t size() const {
        return messages_.size();
    }

  private:
    bool ends_with_mouse_move() const;
    bool merge_repeat(const Message& message);

    std::deque<Message> messages_;
};

} // namespace tarvik
