// The game in a fuzzer: started once, as its buffers take 340 MB, and put back to its start between
// inputs by undoing what the input did.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvik::fuzz {

/// Starts the game on the scripted platform; what it is, a frame leaves the invariants of
/// tests/support/invariants.h. For LLVMFuzzerInitialize.
void start_game();

/// Puts race, input, files and grid to where every input finds them: no key down, the car at the
/// start, difficulty "Advanced", track 1, no files, the grid as in `base_map`.
void reset_game();

/// TRACK_MAP_BYTES cells, mostly road, with fields of grass everywhere.
const std::vector<std::uint8_t>& base_map();

/// Sets a rectangle of the grid, as far as it lies inside, until the next reset.
void paint(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height,
           std::uint8_t value);

/// Says that the first `cells` cells of the grid may have changed.
void mark_loaded(std::size_t cells);

/// One race_frame. Ends the program if an invariant does not hold after it, or if it took more
/// than a second of processor time.
void run_frame();

/// Ends the program with these words, which makes the input a finding.
[[noreturn]] void fail(const std::string& what);

inline void require(bool holds, const char* what) {
    if (!holds) {
        fail(what);
    }
}

} // namespace tarvik::fuzz
