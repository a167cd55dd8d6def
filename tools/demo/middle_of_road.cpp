// Hands the game's cells to the track tools.
#include "tools/demo/middle_of_road.h"

#include "race/track_grid.h"
#include "tools/track/centre_line.h"

namespace tarvik::demo {

std::vector<Point> middle_of_road() {
    std::vector<Point> points;
    for (const CentrePoint& point : centre_line({track_grid, TRACK_WIDTH})) {
        points.push_back({point.x, point.y});
    }
    return points;
}

} // namespace tarvik::demo
