// Game controllers by way of SDL, plugged in and out at any time.
#pragma once

#include "platform/common/controller_keys.h"

union SDL_Event;

namespace tarvik {

/// From here on SDL reports controllers, including those already plugged in. If the system refuses,
/// there are none.
void watch_game_controllers();

/// Notes what an event says about a controller; ignores all other events.
void note_controller_event(const SDL_Event& event);

/// Puts what was noted since the last call into the queue.
void append_controller_messages(MessageQueue& queue);

/// Notes a message on its way to the queue. False for a key's release by the keyboard while a
/// controller holds the key too: it is down until both have let go of it.
bool passes_controllers(const Message& message);

/// Whether a controller held or pressed the key when messages were last put into the queue.
bool controller_holds(int virtual_key);

} // namespace tarvik
