// The middle of the road: a path that keeps away from the grass, drawn to the middle and smoothed.
#include "tools/track/centre_line.h"

#include "tools/track/clearance.h"
#include "tools/track/ways.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tarvik {
namespace {

constexpr int CENTRING_ROUNDS = 24;
constexpr double FEELER = 6.0;    // cells to either side where the clearance is looked at
constexpr int TANGENT_POINTS = 4; // a point's direction is taken this far ahead and behind

using Point = CentrePoint;
using Line = std::vector<CentrePoint>;

// The points before and after i on the closed line.
const Point& around(const Line& line, std::size_t i, int offset) {
    const auto size = static_cast<std::ptrdiff_t>(line.size());
    const std::ptrdiff_t place = (static_cast<std::ptrdiff_t>(i) + offset % size + size) % size;
    return line[static_cast<std::size_t>(place)];
}

// The same closed line with points at even distances of about CENTRE_SPACING.
Line respaced(const Line& line) {
    double length = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const Point& next = around(line, i, 1);
        length += std::hypot(next.x - line[i].x, next.y - line[i].y);
    }
    const double spacing = length / std::max(1.0, std::round(length / CENTRE_SPACING));
    Line result;
    double travelled = 0;
    double wanted = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const Point& next = around(line, i, 1);
        const double step = std::hypot(next.x - line[i].x, next.y - line[i].y);
        for (; wanted < travelled + step && wanted < length - spacing / 2; wanted += spacing) {
            const double share = (wanted - travelled) / step;
            result.push_back({line[i].x + share * (next.x - line[i].x),
                              line[i].y + share * (next.y - line[i].y)});
        }
        travelled += step;
    }
    return result;
}

// Moves every point along its normal half-way towards the middle, as far as it can be told from the
// clearance on both sides. (Where both edges are would not do: around a sharp corner the far one is
// none of the road's.)
void centre(TrackView track, const std::vector<std::uint16_t>& clearance, Line& line) {
    const Line old = line;
    const auto clearance_at = [&](double x, double y) {
        const Cell cell{static_cast<int>(x), static_cast<int>(y)};
        return track.contains(cell.x, cell.y)
                   ? std::sqrt(static_cast<double>(clearance[track.index(cell.x, cell.y)]))
                   : 0;
    };
    for (std::size_t i = 0; i < line.size(); ++i) {
        const Point& ahead = around(old, i, TANGENT_POINTS);
        const Point& behind = around(old, i, -TANGENT_POINTS);
        const double length = std::hypot(ahead.x - behind.x, ahead.y - behind.y);
        if (length == 0) {
            continue;
        }
        const double nx = (ahead.y - behind.y) / length;
        const double ny = -(ahead.x - behind.x) / length;
        const Point& here = old[i];
        const double one = clearance_at(here.x + FEELER * nx, here.y + FEELER * ny);
        const double other = clearance_at(here.x - FEELER * nx, here.y - FEELER * ny);
        // At `d` cells from the middle, the two differ by 2 d, or by all that is between them.
        const double shift = (one - other) / 4;
        line[i] = {here.x + shift * nx, here.y + shift * ny};
    }
}

void smooth(Line& line) {
    const Line old = line;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const Point& before = around(old, i, -1);
        const Point& after = around(old, i, 1);
        line[i] = {(before.x + 2 * old[i].x + after.x) / 4,
                   (before.y + 2 * old[i].y + after.y) / 4};
    }
}

// The line begun at its point nearest to the middle of the box.
void begin_in_box(Line& line) {
    const auto distance = [](const Point& point) {
        return std::hypot(point.x - BOX_CENTRE_X, point.y - BOX_CENTRE_Y);
    };
    std::rotate(line.begin(), std::ranges::min_element(line, {}, distance), line.end());
}

} // namespace

std::vector<CentrePoint> centre_line(TrackView track) {
    const std::vector<std::uint16_t> clearance = squared_clearance(track);
    const Round round = once_around(track, clearance);
    if (!track.is_road(START.x, START.y) || !round.is_closed) {
        return {};
    }
    Line line;
    for (const Cell& cell : round.way) {
        line.push_back({cell.x + 0.5, cell.y + 0.5});
    }
    line = respaced(line);
    for (int i = 0; i < CENTRING_ROUNDS; ++i) {
        centre(track, clearance, line);
        smooth(line);
        smooth(line);
        line = respaced(line);
    }
    begin_in_box(line);
    return line;
}

} // namespace tarvik
