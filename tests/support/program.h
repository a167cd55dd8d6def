// The whole game, from WinMain to its end, driven by a script.
#pragma once

#include "tests/support/archive.h"
#include "tests/support/frame.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace tarvik::test {

/// Called at the message pump of every frame, the first being 1. Everything before that point of
/// the frame has happened, nothing after it.
using FrameScript = std::function<void(int frame)>;

/// Runs WinMain with `script` and returns its result. The script posts what it likes through
/// press, release and post_message; after frame `frames` the window is asked to close.
int run_program(int frames, const FrameScript& script = {});

/// The last frame that the program has shown.
extern Frame shown_frame;

/// Posts a key's message; the game handles one message a frame.
void press(int virtual_key);
void release(int virtual_key);

/// A map in memory: TRACK_MAP_BYTES cells of `value`.
std::vector<std::uint8_t> plain_map(std::uint8_t value);

/// Gives the game a data folder in memory: both maps and the archive.
void install_data(std::vector<std::uint8_t> race1, std::vector<std::uint8_t> race2,
                  std::vector<std::uint8_t> archive);

} // namespace tarvik::test
