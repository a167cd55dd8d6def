// Frame pacing: 60 a second at most, on every display.
//
// The game moves by one step a frame, so this also sets the speed of the car. Vsync alone would
// make it faster on a faster display, and unlimited where the driver has none.
#pragma once

#include <chrono>

namespace tarvik {

using PictureClock = std::chrono::steady_clock;

/// The time between two frames.
inline constexpr std::chrono::nanoseconds PICTURE_TIME{1'000'000'000 / 60 + 1};

/// When the frame after the one due at `due` may begin. A frame that is a little late does not move
/// the later ones; after a halt (a Sleep, a track being loaded) the pace starts afresh instead of
/// making up for it.
constexpr PictureClock::time_point next_due(PictureClock::time_point due,
                                            PictureClock::time_point now) {
    const PictureClock::time_point next = due + PICTURE_TIME;
    return now - next > PICTURE_TIME ? now : next;
}

/// Waits, after a frame was shown, until the next one may begin; each layer has its own way.
void wait_for_next_picture();

} // namespace tarvik
