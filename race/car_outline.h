// A car's shape, five points round its position, and where they appear in the view.
#pragma once

#include <cstdint>

namespace tarvik {

inline constexpr int OUTLINE_POINTS = 5;
/// Points after this one are the corners, which are checked against the road.
inline constexpr int OUTLINE_NOSE = 0;
/// Distance of every point from the car's position, cells.
inline constexpr double OUTLINE_RADIUS = 6.0;

/// Offsets of the outline points from a car's position, cells, for the car computed last.
extern float outline_dx[OUTLINE_POINTS];
extern float outline_dy[OUTLINE_POINTS];

/// Computes the offsets for a car that points along `degrees`.
void compute_outline(float degrees);

/// Draws outline point p of a car at (x, y), track cells, in the colour of the car slot.
void draw_outline_point(float x, float y, int p, int slot);

} // namespace tarvik
