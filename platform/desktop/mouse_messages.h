// SDL's mouse events as messages. Private to the event reading.
#pragma once

#include "platform/common/message_queue.h"

#include <SDL_events.h>

namespace tarvik {

/// Puts what Windows would have sent for a mouse event into the queue; nothing for other events.
void append_mouse_messages(const SDL_Event& event, MessageQueue& queue);

} // namespace tarvik
