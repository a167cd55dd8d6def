// From SDL's events to the messages that Windows would have sent.
#pragma once

#include "platform/common/message_queue.h"

namespace tarvik {

/// Reads what has happened since the last call and puts its messages into the queue. Focus and
/// window events, text and whatever else Windows has no message for are left out.
void collect_messages(MessageQueue& queue);

} // namespace tarvik
