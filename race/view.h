// Which part of the track the view shows.
#pragma once

#include <cstdint>

namespace tarvik {

/// Track cell in the view's top-left corner, at most 9680 and 9760: the view never sticks out of
/// the grid.
extern std::int32_t view_x;
extern std::int32_t view_y;

/// Centres the view on the player's car as far as the grid's edges allow, for the next frame.
void follow_car();

} // namespace tarvik
