// The started game, driven a frame at a time and looked at after each.
#pragma once

#include "tests/support/game_hash.h"
#include "tests/support/invariants.h"

#include <cstdint>
#include <ostream>
#include <string>

namespace tarvik::test {

class Run {
  public:
    /// Restarts the race. A run with a trace writes a line of column names to it and then one for
    /// every 20th frame, whose last two columns are hashes of every state and every picture so far.
    /// A run without one leaves out nine pictures of ten.
    explicit Run(std::uint32_t seed, std::ostream* trace = nullptr);

    /// Throws if an invariant does not hold after the frame.
    void frame();

    /// For what a drive wants to be so; throws the frame's number and `what` if it is not.
    void expect(bool holds, const std::string& what) const;

    [[nodiscard]] std::uint32_t seed() const {
        return seed_;
    }

    /// One number for what the run did.
    [[nodiscard]] std::uint64_t number() const;

  private:
    void write_line() const;

    Invariants invariants_;
    Hash states_;
    Hash pictures_;
    std::uint32_t seed_;
    std::ostream* trace_;
    long frame_ = 0;
};

/// A hash as it is written everywhere.
std::string hex(std::uint64_t number);

} // namespace tarvik::test
