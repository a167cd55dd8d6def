// The started game, driven a frame at a time and looked at after each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>

namespace tarvik::test {

/// A running hash: FNV-1a's constants on words, with a fold of the high bits so that every bit
/// reaches every other.
class Hash {
  public:
    /// Eight bytes at a time if there is no remainder, else byte by byte.
    void add(const void* data, std::size_t size);

    [[nodiscard]] std::uint64_t value() const {
        return state_;
    }

  private:
    std::uint64_t state_ = 0xCBF29CE484222325U;
};

class Run {
  public:
    /// Restarts the race. A run with a trace writes a line of column names to it and then one for
    /// every 20th frame, whose last two columns are hashes of every state and every picture so far.
    /// A run without one leaves out nine pictures of ten.
    explicit Run(std::uint32_t seed, std::ostream* trace = nullptr);

    /// Throws if an invariant does not hold after the frame.
    void frame();

    /// One number for what the run did.
    [[nodiscard]] std::uint64_t number() const;

  private:
    Hash states_;
    Hash pictures_;
    std::ostream* trace_;
    long frame_ = 0;
};

/// A hash as it is written everywhere.
std::string hex(std::uint64_t number);

} // namespace tarvik::test
