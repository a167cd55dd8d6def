// The player's car on its way: motion steps, the move, and what its corners are on.
#pragma once

#include <cstdint>

namespace tarvik {

/// Cells per frame from which a car can skid.
inline constexpr float SKID_SPEED = 0.5F;

/// Computes the outline and this frame's motion from the speed and the heading that the keys have
/// set.
void prepare_move();

/// Moves the car one step: along its heading or, in a long fast turn, in most frames along a
/// heading it had some steps ago.
void move_car();

/// Corners of the player's car that are off the track in this frame, 0 to 4.
extern std::int32_t hits;

/// Draws the car, counts its `hits` and adds them to the penalty.
void draw_car_and_test_road();

} // namespace tarvik
