// A package of build/package/, unpacked into an empty folder, and its game on a display of its own.
#pragma once

#include "tests/desktop/play_fixture.h"

#include <gmock/gmock.h>

namespace tarvik {

inline constexpr Area WINDOW = {0, 0, 640, 480};
inline constexpr unsigned long GATE_COLOUR = 0xE02020;

class PackageTest : public PlayTest {
  protected:
    /// Unpacks a package into the test's folder, below a folder with a blank in its name.
    std::filesystem::path unpack(const std::string& package);

    /// Waits until the first track is seen as it is at the start, in whole blocks.
    Pixels frame_at_start();

    /// Shifts up and leaves.
    void play();
    void leave();
};

} // namespace tarvik
