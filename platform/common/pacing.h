// Frame pacing: 60 a second at most, on every display.
//
// The game moves by one step a frame, so this also sets the speed of the car. Vsync alone would
// make it faster on a faster display, and unlimited where the driver has none.
#pragma once

#include <chrono>

namespace tarvik {

using FrameClock = std::chrono::steady_clock;

/// The time between two frames.
inline constexpr std::chrono::nanoseconds FRAME_TIME{1'000'000'000 / 60 + 1};

/// When the frame after the one due at `due` may begin. A frame that is a little late does not move
/// the later ones; after a halt (a Sleep, a track being loaded) the pace starts afresh instead of
/// making up for it.
constexpr FrameClock::time_point next_due(FrameClock::time_point due, FrameClock::time_point now) {
    const FrameClock::time_point next = due + FRAME_TIME;
    return now - next > FRAME_TIME ? now : next;
}

/// Waits, after a frame was shown, until the next one may begin; each layer has its own way.
void wait_for_next_frame();

} // namespace tarvik
