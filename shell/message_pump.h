// The one place where window messages are taken from the queue.
#pragma once

namespace tarvik {

/// Hands at most one waiting message to the window procedure; called once a frame, so that the
/// input state changes at one point of the frame only.
void pump_messages();

} // namespace tarvik
