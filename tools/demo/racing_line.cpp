// The rod is relaxed from coarse to fine: first every 64th place moves across the road, then the
// places between them as well.
#include "tools/demo/racing_line.h"

#include "race/heading.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarvik::demo {

namespace {

constexpr std::size_t COARSEST = 64;
constexpr int ROUNDS = 150;
/// A line found becomes the next one's middle: only there are the places evenly spaced.
constexpr int PASSES = 4;

/// Bends much longer than this are cut like a string, shorter ones rounded like a spring.
constexpr double STIFF_LENGTH = 300.0;

struct Rod {
    std::vector<Point> middle;
    std::vector<Point> across; // one cell to the left
    std::vector<double> least, most;
    std::vector<double> offset;

    Rod(const Course& course, double margin) {
        for (std::size_t i = 0; i < course.size(); ++i) {
            const Place& place = course.at(i);
            const double left = (place.heading + 90.0) * DEG_TO_RAD;
            middle.push_back(place.at);
            across.push_back({std::sin(left), std::cos(left)});
            const double halfway = (place.left - place.right) / 2.0;
            least.push_back(std::min(halfway, margin - place.right));
            most.push_back(std::max(halfway, place.left - margin));
            offset.push_back(std::clamp(0.0, least[i], most[i]));
        }
    }

    Point at(std::size_t i) const {
        return {middle[i].x + offset[i] * across[i].x, middle[i].y + offset[i] * across[i].y};
    }

    /// Moves place i to where its neighbours, `stride` places apart, pull it.
    void relax(std::size_t i, std::size_t stride) {
        const std::size_t size = middle.size();
        const Point one = at((i + stride) % size);
        const Point other = at((i + size - stride) % size);
        const Point two = at((i + 2 * stride) % size);
        const Point another = at((i + 2 * size - 2 * stride) % size);
        const double length = PLACE_SPACING * static_cast<double>(stride) / STIFF_LENGTH;
        const double near = length * length + 4.0;
        const double all = 2.0 * near - 2.0;
        const double x = (near * (one.x + other.x) - two.x - another.x) / all - middle[i].x;
        const double y = (near * (one.y + other.y) - two.y - another.y) / all - middle[i].y;
        offset[i] = std::clamp(x * across[i].x + y * across[i].y, least[i], most[i]);
    }

    void fill_between(std::size_t from, std::size_t to) {
        for (std::size_t i = from + 1; i < to; ++i) {
            const double part = static_cast<double>(i - from) / static_cast<double>(to - from);
            const double next = offset[to % offset.size()];
            offset[i] = std::clamp(offset[from] + part * (next - offset[from]), least[i], most[i]);
        }
    }
};

std::vector<Point> relaxed(Rod rod) {
    const std::size_t size = rod.middle.size();
    for (std::size_t stride = COARSEST; stride > 0; stride /= 2) {
        for (int round = 0; round < ROUNDS && 4 * stride < size; ++round) {
            for (std::size_t i = 0; i < size; i += stride) {
                rod.relax(i, stride);
            }
        }
        for (std::size_t i = 0; i < size; i += stride) {
            rod.fill_between(i, std::min(i + stride, size));
        }
    }
    std::vector<Point> line;
    for (std::size_t i = 0; i < size; ++i) {
        line.push_back(rod.at(i));
    }
    return line;
}

} // namespace

Course racing_line(const Course& middle, double margin) {
    Course line = middle;
    for (int pass = 0; pass < PASSES; ++pass) {
        line = Course(relaxed(Rod(line, margin)), 1);
    }
    return line;
}

} // namespace tarvik::demo
