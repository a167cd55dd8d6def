// Drives that between them go through all of the game.
#pragma once

#include "tests/signature/run.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarvik::test {

struct Drive {
    const char* name = nullptr;
    void (*drive)(Run& run, long count) = nullptr;
    long count = 0; ///< frames of those that make the signature
    std::uint32_t seed = 1;
};

/// Those that make the signature, in the order in which they do.
const std::vector<Drive>& signature_drives();

/// Those for minutes or hours of play; null for a name that is none.
const Drive* find_long_drive(const std::string& name);

} // namespace tarvik::test
