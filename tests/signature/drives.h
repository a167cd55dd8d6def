// The scripted drives behind the signature.
#pragma once

#include <cstdint>
#include <vector>

namespace tarvik::test {

struct Drive {
    const char* name;
    int frames;
    std::uint32_t seed;
    /// Called before each frame, from 1 on; posts messages.
    void (*script)(int frame);
};

/// Puts maps and pictures under the game; called once, before start-up.
void install_drive_data();

const std::vector<Drive>& all_drives();

/// Puts everything that a drive depends on to its start, after whatever ran before.
void restart_game(const Drive& drive);

} // namespace tarvik::test
