// Which part of the track the picture shows.
#pragma once

#include <cstdint>

namespace tarvik {

/// Track cell at the view's top-left logical pixel: 0 to 9680 and 0 to 9760, so that the whole
/// view lies inside the grid.
extern std::int32_t view_x;
extern std::int32_t view_y;

/// Centres the view on the player's car as far as the grid's edges allow, for the next frame.
void follow_car();

} // namespace tarvik
