// The C library's own allocation functions under a counter; they can be replaced in every program.
#include "bench/allocations.h"

#include <cstddef>

namespace {

std::uint64_t count = 0;

} // namespace

namespace tarvik::bench {

std::uint64_t allocations() {
    return count;
}

} // namespace tarvik::bench

// NOLINTBEGIN: these names are the C library's.
extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t items, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);

void* malloc(std::size_t size) {
    ++count;
    return __libc_malloc(size);
}

void* calloc(std::size_t items, std::size_t size) {
    ++count;
    return __libc_calloc(items, size);
}

void* realloc(void* memory, std::size_t size) {
    ++count;
    return __libc_realloc(memory, size);
}
}
// NOLINTEND
