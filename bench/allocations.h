// Counting what is asked of the heap.
#pragma once

#include <cstdint>

namespace tarvik::bench {

/// Calls of malloc, calloc and realloc since the program started; operator new is among them.
std::uint64_t allocations();

} // namespace tarvik::bench
