// Where a car can be without leaving the road, found by trying it in a sample of places and
// headings in every cell that is not plainly road or plainly grass.
#include "tools/track/car_room.h"

#include "race/car_outline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <vector>

namespace tarvik {
namespace {

// The grid is looked at in blocks: a corner never reaches farther than the next block.
constexpr int BLOCK = 8;
static_assert(BLOCK > OUTLINE_RADIUS + 1);

// The longest way a car drives in a frame is 3.31 cells; from each side half of it, rounded up.
constexpr int LEAP = 2;
constexpr std::array<int, LEAP + 1> LEAP_WIDTH = {2, 1, 0}; // of a disc of that radius, by row

constexpr int HEADINGS = 30; // over a quarter turn: the corners are a square
constexpr int PLACES = 2;    // in each direction within a cell

using Corners = std::array<Cell, CAR_CORNERS>; // the corners' cells relative to the car's

std::vector<Corners> possible_corners() {
    std::vector<Corners> result;
    for (int sample = 0; sample < HEADINGS * PLACES * PLACES; ++sample) {
        const int direction = sample / (PLACES * PLACES);
        const double turned = direction * std::numbers::pi / 2 / HEADINGS;
        const double x = (sample % PLACES + 0.5) / PLACES;
        const double y = (sample / PLACES % PLACES + 0.5) / PLACES;
        Corners corners;
        for (int corner = 0; corner < CAR_CORNERS; ++corner) {
            const double angle = turned + (2 * corner + 1) * std::numbers::pi / 4;
            corners[static_cast<std::size_t>(corner)] = {
                static_cast<int>(std::floor(x + OUTLINE_RADIUS * std::sin(angle))),
                static_cast<int>(std::floor(y + OUTLINE_RADIUS * std::cos(angle)))};
        }
        if (std::find(result.begin(), result.end(), corners) == result.end()) {
            result.push_back(corners);
        }
    }
    return result;
}

enum BlockContent : std::uint8_t { HAS_ROAD = 1, HAS_GRASS = 2 };

// What each block holds; a frame of blocks around the grid is grass.
class Blocks {
  public:
    explicit Blocks(TrackView track)
        : across_((track.side + BLOCK - 1) / BLOCK + 2),
          content_(static_cast<std::size_t>(across_) * static_cast<std::size_t>(across_), 0) {
        for (int y = 0; y < track.side; ++y) {
            const std::uint8_t* row = track.cells + track.index(0, y);
            for (int x = 0; x < track.side; x += BLOCK) {
                const int end = std::min(x + BLOCK, track.side);
                const auto grass = std::count(row + x, row + end, CELL_GRASS);
                std::uint8_t& content = content_[index(x / BLOCK, y / BLOCK)];
                content |= grass > 0 ? HAS_GRASS : 0;
                content |= grass < end - x ? HAS_ROAD : 0;
            }
        }
        for (int i = -1; i < across_ - 1; ++i) {
            for (const std::size_t outside :
                 {index(i, -1), index(i, across_ - 2), index(-1, i), index(across_ - 2, i)}) {
                content_[outside] = HAS_GRASS;
            }
        }
    }

    // What the block and the eight around it hold.
    [[nodiscard]] int around(int x, int y) const {
        int content = 0;
        for (const int dy : {-1, 0, 1}) {
            for (const int dx : {-1, 0, 1}) {
                content |= content_[index(x + dx, y + dy)];
            }
        }
        return content;
    }

  private:
    [[nodiscard]] std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y + 1) * static_cast<std::size_t>(across_) +
               static_cast<std::size_t>(x + 1);
    }
    int across_;
    std::vector<std::uint8_t> content_;
};

std::uint8_t most_corners(TrackView track, const std::vector<Corners>& tries, int x, int y) {
    int most = 0;
    for (const Corners& corners : tries) {
        int on_road = 0;
        for (const Cell& corner : corners) {
            on_road += track.is_road(x + corner.x, y + corner.y) ? 1 : 0;
        }
        most = std::max(most, on_road);
        if (most == CAR_CORNERS) {
            break;
        }
    }
    return static_cast<std::uint8_t>(most);
}

} // namespace

CellMask corners_on_road(TrackView track) {
    const std::vector<Corners> tries = possible_corners();
    const Blocks blocks(track);
    const auto side = static_cast<std::size_t>(track.side);
    CellMask result(side * side, 0);
    for (int top = 0; top < track.side; top += BLOCK) {
        for (int left = 0; left < track.side; left += BLOCK) {
            const int content = blocks.around(left / BLOCK, top / BLOCK);
            if ((content & HAS_ROAD) == 0) {
                continue;
            }
            for (int y = top; y < std::min(top + BLOCK, track.side); ++y) {
                for (int x = left; x < std::min(left + BLOCK, track.side); ++x) {
                    result[track.index(x, y)] = (content & HAS_GRASS) == 0
                                                    ? std::uint8_t{CAR_CORNERS}
                                                    : most_corners(track, tries, x, y);
                }
            }
        }
    }
    return result;
}

CellMask car_space(const CellMask& corners, int side, int fewest_corners, Rectangle closed) {
    const auto length = static_cast<std::size_t>(side);
    CellMask space(corners.size(), 0);
    const auto fits = [&](int x, int y) {
        const bool is_closed =
            x >= closed.left && x <= closed.right && y >= closed.top && y <= closed.bottom;
        const std::size_t index =
            static_cast<std::size_t>(y) * length + static_cast<std::size_t>(x);
        return corners[index] >= fewest_corners && !is_closed;
    };
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            if (!fits(x, y)) {
                continue;
            }
            const int first = x;
            while (x + 1 < side && fits(x + 1, y)) {
                ++x;
            }
            for (int row = std::max(y - LEAP, 0); row <= std::min(y + LEAP, side - 1); ++row) {
                const int width = LEAP_WIDTH[static_cast<std::size_t>(std::abs(row - y))];
                const auto begin = space.begin() + static_cast<std::ptrdiff_t>(row) * side;
                std::fill(begin + std::max(first - width, 0),
                          begin + std::min(x + width, side - 1) + 1, std::uint8_t{1});
            }
        }
    }
    return space;
}

} // namespace tarvik
