// How a program instead of a person drives the game: the demo, the tests and the benchmarks.
//
// Two of the platform layers, platform/desktop and platform/scripted, define these two calls. They
// add to what the layer delivers by itself and take nothing away from it.
#pragma once

#include "platform/win32.h"

namespace tarvik {

/// Has `hook` called at the start of every PeekMessageA, that is once a frame and before that
/// frame's one message is taken from the queue. A null pointer removes it.
void set_frame_hook(void (*hook)());

/// Puts a message for the game's window at the end of the queue.
void post_message(UINT message, WPARAM wparam, LPARAM lparam);

} // namespace tarvik
