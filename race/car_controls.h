// The player's keys at work: steering, throttle, brake and gears.
#pragma once

namespace tarvik {

/// One steering step for each arrow key that is down, Left before Right. A step turns the car by
/// 1.2 degrees plus its speed and records the heading it had.
void steer();

/// Ends the steering run after two frames without steering or 41 steps.
void end_steering_run();

/// Up: multiplies the speed by the factor of the gear while it lies in the gear's range.
void apply_throttle();

/// Down: divides the speed; the slower the car, the stronger the brake.
void apply_brake();

/// A and Z: one gear up or down. Each stops the whole game for 300 ms, also at the last gear, and
/// consumes the key press.
void shift_gear_up();
void shift_gear_down();

} // namespace tarvik
