// The started game, driven a frame at a time and looked at after each.
#pragma once

#include "tests/signature/drives.h"

#include <ostream>
#include <string>

namespace tarvik::test {

/// One number for what the game did. With a trace, a line of column names is written to it and then
/// one for every 20th, whose last two columns are hashes of every state and of every frame's pixels
/// so far; without one, the pixels of nine frames in ten are left out. Throws if an invariant does
/// not hold after a frame.
std::uint64_t run(const Drive& drive, std::ostream* trace = nullptr);

/// A hash as it is written everywhere.
std::string hex(std::uint64_t number);

} // namespace tarvik::test
