// A platform with no display, no keyboard and no waiting: the program that runs the game on it
// plays the system's part. It feeds messages and key states, sees each frame that is shown and, on
// request, each call in order. The messages come through platform/driver.h.
#pragma once

#include "platform/win32.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tarvik::scripted {

// --- What the game finds -----------------------------------------------------------------------

/// Size of the display, pixels.
extern int display_width;
extern int display_height;

/// Whether CreateWindowExA fails.
extern bool refuse_window;

/// Sets what GetAsyncKeyState answers for a key from now on.
void hold_key(int virtual_key, bool down);

/// A file of the game's data folder, in memory.
struct File {
    std::vector<std::uint8_t> bytes;
    std::uint64_t times = 1; ///< how often the file holds `bytes`, one after the other
    bool read_only = false;
};

/// Files by name with forward slashes ("data/race1.map"), when `use_memory_files` is set; else
/// files are those of the current working directory.
extern bool use_memory_files;
extern std::map<std::string, File> memory_files;
/// Whether the folder of the files in memory exists, so that missing ones are created empty.
extern bool memory_folder_exists;

// --- What the game does ------------------------------------------------------------------------

/// Called with each frame as it is shown: rows from the bottom up, red, green, blue.
using FrameHook = void (*)(const std::uint8_t* pixels, int width, int height);
void set_frame_hook(FrameHook hook);

/// Whether calls are written down, and the calls written down so far, a line each: the name and
/// the arguments that matter, handles by name.
extern bool recording;
extern std::vector<std::string> calls;

/// Milliseconds that the game has slept in total; no real time passes.
extern std::uint64_t slept_ms;

} // namespace tarvik::scripted
