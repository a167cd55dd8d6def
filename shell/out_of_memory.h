// The one way out when the system has no memory for the game's buffers.
#pragma once

#include <cstddef>
#include <new>

namespace tarvik {

/// Says on standard error which buffer could not be allocated, and ends the program with exit code
/// 1.
[[noreturn]] void end_out_of_memory(const char* buffer_name, std::size_t bytes);

/// Allocates `count` uninitialised `T`, to be released with delete[], or ends the program.
template <typename T>
T* allocate_buffer(std::size_t count, const char* buffer_name) {
    T* buffer = new (std::nothrow) T[count];
    if (buffer == nullptr) {
        end_out_of_memory(buffer_name, count * sizeof(T));
    }
    return buffer;
}

} // namespace tarvik
