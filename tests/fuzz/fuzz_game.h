// The game in a fuzzer: started once, as its buffers take 340 MB, and put back to its start between
// inputs by undoing what the input did.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class FuzzedDataProvider; // of libFuzzer, which only clang has

namespace tarvik::fuzz {

using Input = FuzzedDataProvider;

/// What the fuzzer does with an input. It finds no key down, the car at the start, difficulty
/// "Advanced", track 1, no files and the grid as in `base_map`.
void play(Input& input);

/// TRACK_MAP_BYTES cells, mostly road, with fields of grass everywhere.
const std::vector<std::uint8_t>& base_map();

/// Sets a rectangle of the grid, as far as it lies inside, until the next input.
void paint(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height,
           std::uint8_t value);

/// Says that the first `cells` cells of the grid may have changed.
void mark_loaded(std::size_t cells);

/// One race_frame. Ends the program if an invariant does not hold after it, or if it took more
/// than a second of processor time.
void run_frame();

/// Ends the program with these words unless `holds`, which makes the input a finding.
void require(bool holds, const std::string& what);

} // namespace tarvik::fuzz
