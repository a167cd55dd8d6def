// The rows that need a process of their own, with all of its memory fresh.
#pragma once

#include <string>

namespace tarvik::bench {

/// What this program does instead when a row has started it for one sample: prints its result.
int print_sample(const std::string& name);

} // namespace tarvik::bench
