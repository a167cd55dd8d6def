// What holds after every frame, whatever was pressed and whatever the files held.
#pragma once

#include "race/race_state.h"
#include "tests/support/guarded_buffer.h"

#include <array>
#include <string>

namespace tarvik::test {

/// Watches a started game. From its construction (after start_up) to its destruction (before
/// shut_down) the frame buffer and the text buffer lie between guard bytes.
class Invariants {
  public:
    Invariants();
    ~Invariants();
    Invariants(const Invariants&) = delete;
    Invariants& operator=(const Invariants&) = delete;

    /// After a race_frame: the first invariant that does not hold, in words with its values; empty
    /// if all hold. Costs a few microseconds.
    [[nodiscard]] std::string fault();

    /// Whether every logical pixel of the frame buffer is a block of four equal device pixels.
    /// Reads the whole picture.
    [[nodiscard]] static bool is_picture_whole();

  private:
    using GhostBuffers = std::array<const float*, 3 * CAR_SLOTS>;
    static GhostBuffers ghost_buffers();

    GuardedBuffer frame_memory_;
    GuardedBuffer text_memory_;
    std::uint8_t* own_frame_buffer_;
    char* own_text_buffer_;
    GhostBuffers ghost_buffers_;
};

} // namespace tarvik::test
