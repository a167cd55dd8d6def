// The game in a fuzzer: started once, as its buffers take 340 MB, and put back to its start between
// inputs by undoing what the input did.
#pragma once

#include <cstdint>
#include <span>
#include <string>

class FuzzedDataProvider; // of libFuzzer, which only clang has

namespace tarvik::fuzz {

using Input = FuzzedDataProvider;

/// What the fuzzer does with an input. It finds no key down, the car at the start, difficulty
/// "Advanced", track 1, no files and a grid that is mostly road, with fields of grass everywhere.
void play(Input& input);

/// Cells of the grid that the input may change: they are put back before the next one.
std::span<std::uint8_t> changing_cells(std::int32_t first, std::int32_t count);

/// One race_frame. Ends the program if an invariant does not hold after it, or if it took more
/// than a second of processor time.
void run_frame();

/// Ends the program with these words unless `holds`, which makes the input a finding.
void require(bool holds, const std::string& what);

} // namespace tarvik::fuzz
