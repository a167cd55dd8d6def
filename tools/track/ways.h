// The ways that a lap can take.
#pragma once

#include "race/laps.h"
#include "tools/track/search.h"
#include "tools/track/track.h"

#include <optional>
#include <vector>

namespace tarvik {

inline constexpr double TOP_SPEED = 3.3034; ///< cells a frame, the most the highest gear can reach

/// A way shorter than this is no lap: a car can get this far before a lap counts.
inline constexpr double SHORTEST_LAP = MIN_LAP_FRAMES * TOP_SPEED;

/// What saves less than this, about a third of a second, is no shortcut.
inline constexpr double LARGEST_SAVING = 60;

/// Ways lead from the road just above the start/finish box around to here.
inline constexpr Cell START = {START_CELL_X, START_CELL_Y};

/// A byte for every cell of a track.
using Cells = std::vector<std::uint8_t>;
/// The square of a cell's distance to the grass, for every cell.
using Clearance = std::vector<std::uint16_t>;

/// The shortest ways on the road from above the box.
Search shortest_ways(TrackView road, std::optional<Cell> around = {});

/// Ways from above the box that keep to the middle of the road, as far as its clearance tells; road
/// without any is to be avoided.
Search middle_ways(TrackView road, const Clearance& clearance, std::optional<Cell> around = {});

double length_of(const std::vector<Cell>& way); ///< cells

/// Once around in the middle of the road, from the box up to the start and on to the box.
struct Round {
    bool is_closed = false;
    Cell end; ///< where a road that is not closed ends
    std::vector<Cell> way;
};
Round once_around(TrackView track, const Clearance& clearance);

/// How wide the road is in a place, cells.
struct Width {
    Cell cell;
    int cells = 0;
};
/// The narrowest place on a way in the middle of the road that is at least `distance` cells from
/// the box.
Width narrowest(TrackView track, const Clearance& clearance, const std::vector<Cell>& way,
                double distance);

/// Roads and wide places are narrower than this; the inside of a loop hardly ever is.
inline constexpr int FILLED_WIDTH = 400;
/// A cell in the middle of so much road.
std::optional<Cell> filled_area(TrackView track, const Clearance& clearance);

/// Two ways from above the box to the start, on both sides of something.
struct TwoWays {
    std::vector<Cell> shorter; ///< in the middle of the road
    double shorter_length = 0; ///< of the shortest way on that side
    double longer_length = 0;
    std::vector<Cell> apart; ///< what the shorter one has for itself; may be empty
};

/// For every piece of grass that these cells of road enclose and that is large enough to be worth a
/// way round it, the ways on its two sides. With the box closed, a road that goes once around
/// encloses nothing.
std::vector<TwoWays> second_ways(TrackView road, const Clearance& clearance,
                                 const std::vector<Cell>& cells);

/// The road and all that is within `radius` cells of it.
Cells grown(TrackView road, int radius);

} // namespace tarvik
