// One number that sums up everything the game did, to be compared with another drive's.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tarvik::test {

/// A running hash, eight bytes at a time: FNV-1a's constants on words, with a fold of the high
/// bits so that every bit reaches every other.
class Hash {
  public:
    void add(const void* data, std::size_t size);

    void add_word(std::uint64_t word) {
        state = (state ^ word) * 0x100000001B3U;
        state ^= state >> 29U;
    }

    std::uint64_t value() const {
        return state;
    }

  private:
    std::uint64_t state = 0xCBF29CE484222325U;
};

/// Adds the state of the race, the ghosts' places in this frame included.
void add_state(Hash& hash);

} // namespace tarvik::test
