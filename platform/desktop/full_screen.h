// F11 and Alt+Enter: the whole display and back.
#pragma once

#include "platform/common/message_queue.h"

namespace tarvik {

/// Whether a key message belongs to one of the two and is not for the game. Notes what it asks for.
bool take_full_screen_key(const Message& message);

/// Lets the window take the whole display that it is on, or gives it its place and size back, if
/// that has been asked for since the last call.
void switch_full_screen_if_asked();

} // namespace tarvik
