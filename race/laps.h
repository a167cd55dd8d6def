// Timing laps through the start/finish box and recording them.
//
// The box is the open square of 16 by 16 cells round cell (2400, 2400), the same on every track.
#pragma once

#include <cstdint>

namespace tarvik {

/// Cells; a car on the box's outline is not yet inside.
inline constexpr std::int32_t BOX_LEFT = 2392;
inline constexpr std::int32_t BOX_TOP = 2392;
inline constexpr std::int32_t BOX_SIZE = 16;

/// A pass through the box completes a lap only after more than this many frames.
inline constexpr std::int32_t MIN_LAP_FRAMES = 300;
/// A lap of more than this many frames is given up, so that its recording stays in its buffers.
inline constexpr std::int32_t CYCLE_LIMIT = 990000;

/// Records where the car is in the frame of the lap in progress, if one is timed.
void record_lap_frame();

/// Starts or completes a lap if the car is in the box.
void check_lap();

/// Counts the frame when a lap is timed.
void advance_lap_clock();

} // namespace tarvik
