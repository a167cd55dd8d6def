// A package of build/package/, unpacked into an empty folder, and its game on a display of its own.
#pragma once

#include "tests/desktop/play_fixture.h"

namespace tarvik {

/// Runs a command to its end and returns what it prints; the running test fails if the command
/// does.
std::string output_of(const std::vector<std::string>& command);

/// Expects each of some parts in a text.
void expect_parts(const std::string& text, const std::vector<std::string>& parts);

class PackageTest : public PlayTest {
  protected:
    /// Unpacks a package into the test's folder, below a folder with a blank in its name.
    std::filesystem::path unpack(const std::string& package);

    /// Waits until the game shows a status text, and every logical pixel as one block of pixels.
    /// `area` is the picture's place in the window.
    bool waits_for_text(const std::string& text, int x, int y, Area area = {0, 0, 640, 480});

    /// Shifts up and leaves: the start, a key and the end.
    void play();

    std::string errors() const {
        return read(folder_ / "errors");
    }
};

} // namespace tarvik
