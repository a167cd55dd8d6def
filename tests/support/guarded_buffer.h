// A buffer of the game's between guard bytes, so that a write beside it is noticed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarvik::test {

/// Memory of a given size with GUARD_BYTES bytes before and after it that nobody may touch. Under
/// AddressSanitizer a touch ends the program where it happens; elsewhere `is_intact` tells of
/// writes afterwards.
class GuardedBuffer {
  public:
    /// More than two rows of the frame buffer.
    static constexpr std::size_t GUARD_BYTES = 8192;

    explicit GuardedBuffer(std::size_t size);
    ~GuardedBuffer();
    GuardedBuffer(const GuardedBuffer&) = delete;
    GuardedBuffer& operator=(const GuardedBuffer&) = delete;

    [[nodiscard]] std::uint8_t* data();
    [[nodiscard]] bool is_intact();

  private:
    std::uint8_t* guard_after();

    std::vector<std::uint8_t> memory_;
    std::size_t size_;
};

} // namespace tarvik::test
