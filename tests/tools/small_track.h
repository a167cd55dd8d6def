// A small track without faults, for tests to damage.
#pragma once

#include "tools/track/track.h"

#include <cstdint>
#include <vector>

namespace tarvik {

/// A rectangular loop with its middle lines at x 1600 and 2400, y 2150 and 2600; the road is 100
/// cells wide, and a funnel narrows it to 24 cells through the start/finish box. It is driven up
/// through the box, to the left along the top, down, and back along the bottom.
class SmallTrack {
  public:
    static constexpr int SIDE = 2700;
    SmallTrack();

    /// Fills the columns left to right of the rows top to bottom, all included.
    void road(int left, int top, int right, int bottom);
    void grass(int left, int top, int right, int bottom);

    [[nodiscard]] TrackView view() const {
        return {cells_.data(), SIDE};
    }

  private:
    void fill(int left, int top, int right, int bottom, std::uint8_t cell);
    std::vector<std::uint8_t> cells_;
};

} // namespace tarvik
