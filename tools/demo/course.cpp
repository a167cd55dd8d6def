// Evening out a chain of points and measuring it.
#include "tools/demo/course.h"

#include "race/heading.h"
#include "race/track_grid.h"

#include <cmath>
#include <limits>

namespace tarvik::demo {

namespace {

/// Places to each side over which positions and bends are averaged: 20 cells, less than half of
/// the tightest radius that is a pleasure to drive.
constexpr std::size_t SMOOTHING = 5;

double distance(Point a, Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// Points PLACE_SPACING apart along the closed chain `loop`.
std::vector<Point> evenly_spaced(const std::vector<Point>& loop) {
    std::vector<Point> even;
    double to_next = 0.0; // cells left to the next point to be put down
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const Point from = loop[i];
        const Point to = loop[(i + 1) % loop.size()];
        const double length = distance(from, to);
        while (to_next < length) {
            const double part = to_next / length;
            even.push_back({from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
            to_next += PLACE_SPACING;
        }
        to_next -= length;
    }
    return even;
}

std::vector<Point> smoothed(const std::vector<Point>& chain) {
    const std::size_t size = chain.size();
    std::vector<Point> result(size);
    for (std::size_t i = 0; i < size; ++i) {
        Point sum{0.0, 0.0};
        for (std::size_t k = 0; k <= 2 * SMOOTHING; ++k) {
            const Point& p = chain[(i + size + k - SMOOTHING) % size];
            sum.x += p.x;
            sum.y += p.y;
        }
        const auto count = static_cast<double>(2 * SMOOTHING + 1);
        result[i] = {sum.x / count, sum.y / count};
    }
    return result;
}

/// Cells of road from a point along a direction, up to ROOM_SEEN.
double room_along(Point point, double degrees) {
    const double dx = std::sin(degrees * DEG_TO_RAD);
    const double dy = std::cos(degrees * DEG_TO_RAD);
    double room = 0.0;
    while (room < ROOM_SEEN && !is_off_track(static_cast<std::int32_t>(point.x + dx * room),
                                             static_cast<std::int32_t>(point.y + dy * room))) {
        room += 1.0;
    }
    return room;
}

} // namespace

Course::Course(const std::vector<Point>& loop, int smoothing_rounds) {
    std::vector<Point> chain = evenly_spaced(loop);
    for (int round = 0; round < smoothing_rounds; ++round) {
        chain = smoothed(chain);
    }
    const std::size_t count = chain.size();
    places.reserve(count);
    double direction = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        const Point& before = chain[(i + count - 1) % count];
        const Point& after = chain[(i + 1) % count];
        const double degrees = std::atan2(after.x - before.x, after.y - before.y) / DEG_TO_RAD;
        direction += std::remainder(degrees - direction, 360.0);
        places.push_back({chain[i], direction, 0.0, room_along(chain[i], direction + 90.0),
                          room_along(chain[i], direction - 90.0)});
    }
    for (std::size_t i = 0; i < count; ++i) {
        const double turned = at(i + SMOOTHING).heading - at(i + count - SMOOTHING).heading;
        const double cells = PLACE_SPACING * static_cast<double>(2 * SMOOTHING);
        places[i].bend = std::remainder(turned, 360.0) * DEG_TO_RAD / cells;
    }
}

std::size_t Course::nearest(Point point, std::size_t from, std::size_t count) const {
    std::size_t best = from;
    double best_distance = std::numeric_limits<double>::infinity();
    for (std::size_t i = from; i < from + count; ++i) {
        const double d = distance(at(i).at, point);
        if (d < best_distance) {
            best = i;
            best_distance = d;
        }
    }
    return best % size();
}

} // namespace tarvik::demo
