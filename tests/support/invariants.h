// What holds after every frame, whatever was pressed and whatever the files held.
#pragma once

#include "race/race_state.h"

#include <array>
#include <string>

namespace tarvik::test {

/// Watches a started game. Writes beside a buffer are left to AddressSanitizer.
class Invariants {
  public:
    /// After a race_frame: the first invariant that does not hold, in words with its values; empty
    /// if all hold. Costs a few microseconds.
    [[nodiscard]] std::string fault() const;

    /// Whether every logical pixel of the frame buffer is a block of four equal device pixels.
    /// Reads the whole frame.
    [[nodiscard]] static bool is_picture_whole();

  private:
    using GhostBuffers = std::array<const float*, 3 * CAR_SLOTS>;
    static GhostBuffers ghost_buffers();

    GhostBuffers ghost_buffers_ = ghost_buffers();
};

} // namespace tarvik::test
