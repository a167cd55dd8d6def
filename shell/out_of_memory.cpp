// Ending early, with one line that says why.
#include "shell/out_of_memory.h"

#include <cstdio>
#include <cstdlib>

namespace tarvik {

void end_out_of_memory(const char* buffer_name, std::size_t bytes) {
    std::fprintf(stderr, "tarvik: not enough memory for the %s (%zu bytes)\n", buffer_name, bytes);
    std::exit(EXIT_FAILURE);
}

} // namespace tarvik
