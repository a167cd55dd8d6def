// What a drive did, as text that can be kept, compared and read.
#pragma once

#include "tests/signature/drives.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarvik::test {

/// A drive's trace: a line of column names, then a line for every TRACE_STEP-th frame. The last
/// two columns stand for every picture and every state since the drive began.
inline constexpr int TRACE_STEP = 20;

struct Trace {
    std::vector<std::string> lines;
    /// Over every picture and every state of the drive.
    std::uint64_t signature = 0;
};

/// Runs a drive on the started game.
Trace run_drive(const Drive& drive);

/// Where two traces first differ, naming frame and column; empty if they do not.
std::string first_difference(const std::vector<std::string>& expected,
                             const std::vector<std::string>& actual);

} // namespace tarvik::test
