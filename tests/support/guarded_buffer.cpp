// Guard bytes: a pattern, and poison where a sanitizer is there to enforce it.
#include "tests/support/guarded_buffer.h"

#include <cstring>

#if defined(__SANITIZE_ADDRESS__)
#define TARVIK_POISON
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TARVIK_POISON
#endif
#endif
#ifdef TARVIK_POISON
#include <sanitizer/asan_interface.h>
#endif

namespace tarvik::test {

namespace {

/// No colour component or character that the game writes.
constexpr std::uint8_t PATTERN = 0xB7;

void poison([[maybe_unused]] const std::uint8_t* bytes) {
#ifdef TARVIK_POISON
    __asan_poison_memory_region(bytes, GuardedBuffer::GUARD_BYTES);
#endif
}

void unpoison([[maybe_unused]] const std::uint8_t* bytes) {
#ifdef TARVIK_POISON
    __asan_unpoison_memory_region(bytes, GuardedBuffer::GUARD_BYTES);
#endif
}

bool is_untouched(const std::uint8_t* guard) {
    unpoison(guard);
    const bool untouched =
        guard[0] == PATTERN && std::memcmp(guard, guard + 1, GuardedBuffer::GUARD_BYTES - 1) == 0;
    poison(guard);
    return untouched;
}

} // namespace

GuardedBuffer::GuardedBuffer(std::size_t size)
    : memory_(GUARD_BYTES + size + GUARD_BYTES, PATTERN), size_(size) {
    poison(memory_.data());
    poison(guard_after());
}

GuardedBuffer::~GuardedBuffer() {
    unpoison(memory_.data());
    unpoison(guard_after());
}

std::uint8_t* GuardedBuffer::data() {
    return memory_.data() + GUARD_BYTES;
}

std::uint8_t* GuardedBuffer::guard_after() {
    return data() + size_;
}

bool GuardedBuffer::is_intact() {
    return is_untouched(memory_.data()) && is_untouched(guard_after());
}

} // namespace tarvik::test
