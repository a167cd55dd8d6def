// The player's keys at work: steering, throttle, brake and gears.
#pragma once

#include "race/race_state.h"

namespace tarvik {

/// A steering step turns by so many degrees, plus the speed in cells a frame.
inline constexpr float STEER_DEGREES = 1.2F;

/// Virtual-key codes.
inline constexpr int KEY_GEAR_UP = 'A';
inline constexpr int KEY_GEAR_DOWN = 'Z';

/// Speeds between which a gear pulls, and what it multiplies the speed by in a frame.
struct GearRange {
    float above;
    float below;
    float factor;
};
inline constexpr GearRange GEAR_RANGES[TOP_GEAR + 1] = {
    {0.0F, 0.0F, 1.0F}, // neutral pulls nowhere
    {0.1F, 0.6F, 1.06F},  {0.3F, 1.0F, 1.03F},  {0.4F, 1.6F, 1.01F},
    {0.5F, 2.1F, 1.006F}, {0.6F, 2.7F, 1.003F}, {0.7F, 3.3F, 1.001F},
};

/// One steering step for each arrow key that is down, Left before Right. A step turns the car by
/// 1.2 degrees plus its speed and records the heading it had.
void steer();

/// Ends the steering run after two frames without steering or 41 steps.
void end_steering_run();

/// Up: multiplies the speed by the factor of the gear while it lies in the gear's range.
void apply_throttle();

/// Down: divides the speed; the slower the car, the stronger the brake.
void apply_brake();

/// A and Z: one gear up or down. Each stops the whole game for 300 ms, even at the last gear, and
/// consumes the key press.
void shift_gear_up();
void shift_gear_down();

} // namespace tarvik
