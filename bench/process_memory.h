// How much memory this process has.
#pragma once

namespace tarvik::bench {

/// Bytes that are in memory now, and that were at most.
double memory_now();
double memory_at_peak();

} // namespace tarvik::bench
