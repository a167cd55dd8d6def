// The rows that need a process of their own, with all of its memory fresh.
#pragma once

#include <string>

namespace tarvik::bench {

void add_start_rows();

/// What this program does instead when it has been started for one sample: prints its result.
/// `sample` is the name that add_start_rows' rows have given it.
int print_sample(const std::string& sample);

} // namespace tarvik::bench
