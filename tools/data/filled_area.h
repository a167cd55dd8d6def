// Finds what no road looks like: a large area that is all road, as a filled loop is.
#pragma once

#include "tools/track/track.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tarvik {

/// Roads and wide places are narrower than this; the inside of a loop hardly ever is.
inline constexpr int FILLED_SIDE = 400;

/// The middle of the largest square that is all road, if its sides are FILLED_SIDE or more.
std::optional<Cell> filled_area(const std::vector<std::uint8_t>& cells);

} // namespace tarvik
