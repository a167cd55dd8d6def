// How far every cell of the road is from the grass: the exact Euclidean distance transform in two
// passes, by columns and then by rows. Only road costs anything in the second pass.
#include "tools/track/clearance.h"

#include <algorithm>

namespace tarvik {
namespace {

constexpr int CAP = LARGEST_CLEARANCE;

// Per cell the distance to the nearest grass in its own column, at most CAP.
std::vector<std::uint8_t> column_distances(TrackView track) {
    const auto side = static_cast<std::size_t>(track.side);
    std::vector<std::uint8_t> result(side * side);
    const auto next = [](std::uint8_t distance) {
        return static_cast<std::uint8_t>(distance < CAP ? distance + 1 : CAP);
    };
    const std::vector<std::uint8_t> outside(side, 0);
    const std::uint8_t* before = outside.data();
    for (std::size_t y = 0; y < side; ++y) {
        const std::uint8_t* cells = track.cells + y * side;
        std::uint8_t* row = &result[y * side];
        for (std::size_t x = 0; x < side; ++x) {
            row[x] = cells[x] == CELL_GRASS ? std::uint8_t{0} : next(before[x]);
        }
        before = row;
    }
    before = outside.data();
    for (std::size_t y = side; y-- > 0;) {
        std::uint8_t* row = &result[y * side];
        for (std::size_t x = 0; x < side; ++x) {
            row[x] = std::min(row[x], next(before[x]));
        }
        before = row;
    }
    return result;
}

// The lower envelope of the parabolas (x - site)^2 + height(site)^2 over one stretch of road.
class RowEnvelope {
  public:
    // The stretch is the columns first to last; the columns on both sides of it are grass.
    void fill(const std::uint8_t* heights, int first, int last, std::uint16_t* squares) {
        sites_.clear();
        for (int x = first - 1; x <= last + 1; ++x) {
            const int height = x < first || x > last ? 0 : heights[x];
            add({x, height * height, first - 1});
        }
        std::size_t k = sites_.size() - 1;
        for (int x = last; x >= first; --x) {
            while (sites_[k].start > x) {
                --k;
            }
            const int across = x - sites_[k].x;
            squares[x] = static_cast<std::uint16_t>(across * across + sites_[k].square);
        }
    }

  private:
    struct Site {
        int x;
        int square;
        int start; // the first column in which it is the lowest
    };

    void add(Site site) {
        for (; !sites_.empty(); sites_.pop_back()) {
            site.start = overtakes(sites_.back(), site);
            if (site.start > sites_.back().start) {
                break;
            }
        }
        sites_.push_back(site);
    }

    // The first column from which `later` is at least as low as `earlier`.
    static int overtakes(const Site& earlier, const Site& later) {
        const int rise = later.square + later.x * later.x - earlier.square - earlier.x * earlier.x;
        const int run = 2 * (later.x - earlier.x);
        return rise >= 0 ? (rise + run - 1) / run : -(-rise / run);
    }

    std::vector<Site> sites_;
};

} // namespace

std::vector<std::uint16_t> squared_clearance(TrackView track) {
    const auto side = static_cast<std::size_t>(track.side);
    const std::vector<std::uint8_t> columns = column_distances(track);
    std::vector<std::uint16_t> squares(side * side);
    RowEnvelope envelope;
    for (int y = 0; y < track.side; ++y) {
        const std::size_t row = track.index(0, y);
        const std::uint8_t* heights = &columns[row];
        for (int x = 0; x < track.side; ++x) {
            if (heights[x] == 0) {
                continue;
            }
            const int first = x;
            while (x + 1 < track.side && heights[x + 1] != 0) {
                ++x;
            }
            envelope.fill(heights, first, x, &squares[row]);
        }
    }
    return squares;
}

} // namespace tarvik
