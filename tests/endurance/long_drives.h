// The drives that take hours at the pace of play.
#pragma once

#include <cstdint>
#include <string>

namespace tarvik::test {

struct LongDrive {
    const char* name;
    const char* counts; ///< what is counted, in the plural
    /// Drives until so many are counted, on a game that is started; asks for every invariant after
    /// every frame. Returns the number of its states and pictures, or throws with what went wrong.
    std::uint64_t (*drive)(long count, std::uint32_t seed);
};

/// Null for a name that is none.
const LongDrive* find_long_drive(const std::string& name);

/// Frames of all drives so far.
long frames_driven();

} // namespace tarvik::test
