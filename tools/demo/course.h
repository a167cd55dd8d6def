// A way round a track as the demo's driver sees it: an even chain of places from the start/finish
// box round to where the chain began.
#pragma once

#include "tools/track/centre_line.h"

#include <cstddef>
#include <vector>

namespace tarvik::demo {

using Point = CentrePoint;

/// Distance from one place of a course to the next, cells.
inline constexpr double PLACE_SPACING = 4.0;

struct Place {
    Point at;
    double heading = 0.0; ///< degrees: 0 down the view, 90 right; continuous along the course
    double bend = 0.0;    ///< radians turned per cell, positive to the left
    double left = 0.0;    ///< cells to the grass on the left, at most ROOM_SEEN
    double right = 0.0;
};

/// How far the driver looks for the edge of the road, cells.
inline constexpr double ROOM_SEEN = 250.0;

/// A closed course; index arithmetic goes round.
class Course {
  public:
    /// `loop` is a closed chain of points in driving order that starts near the box; its spacing
    /// and its small steps do not matter. The edges of the road are taken from `track_grid`.
    explicit Course(const std::vector<Point>& loop, int smoothing_rounds = 2);

    std::size_t size() const {
        return places.size();
    }
    const Place& at(std::size_t index) const {
        return places[index % places.size()];
    }

    /// The place nearest to a point among `count` places from `from` on.
    std::size_t nearest(Point point, std::size_t from, std::size_t count) const;

  private:
    std::vector<Place> places;
};

} // namespace tarvik::demo
