// The player's car on its way: motion steps, the move, and what its corners stand on.
#pragma once

namespace tarvik {

/// Cells per frame from which a car can skid.
inline constexpr float SKID_SPEED = 0.5F;

/// Computes the outline and this frame's motion from the speed and the heading after the keys.
void prepare_move();

/// Moves the car one step: along its heading or, in a long fast turn, in most frames along a
/// heading it had some steps ago.
void move_car();

/// Draws the car and adds 1 to the penalty for each of its corners that is off the track.
/// Returns how many those are, 0 to 4.
int draw_car_and_test_road();

} // namespace tarvik
