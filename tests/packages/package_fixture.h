// A package of build/package/, unpacked into an empty folder, and its game on a display of its own.
#pragma once

#include "tests/desktop/play_fixture.h"

#include <gmock/gmock.h>

namespace tarvik {

class PackageTest : public PlayTest {
  protected:
    /// Runs a command to its end and returns what it prints; the running test fails if the command
    /// does.
    static std::string output_of(const Command& command);

    /// Unpacks a package into the test's folder, below a folder with a blank in its name.
    std::filesystem::path unpack(const std::string& package);

    /// Waits until a window of this size shows the start of the first track, each logical pixel as
    /// one block, and black beside it.
    bool shows_start(int width = 640, int height = 480);

    /// Shifts up and leaves: the start, a key and the end.
    void play();

    std::string errors() const {
        return read(folder_ / "errors");
    }
};

} // namespace tarvik
