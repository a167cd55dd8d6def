// The keyboard as the X server sees it.
//
// SDL tells which keys its window has seen. The X server knows more: which keys are held whichever
// window has the focus, which layout is active for each press, and that nobody has let go of a key
// only because the focus moved on.
#pragma once

#include "platform/common/keys.h"

union _XEvent;

namespace tarvik {

/// Opens a connection of its own to the X server. False if there is none; the other calls must not
/// be made then.
bool open_x11_keyboard();

/// Whether a key with this virtual-key code is held at this moment.
bool x11_key_is_held(int virtual_key);

/// Reads a key change out of an event of the game's window. False when it is about anything else.
bool read_x11_key_event(const _XEvent& event, KeyChange& change);

} // namespace tarvik
