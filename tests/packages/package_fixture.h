// A package of build/package/, unpacked into an empty folder, and its game on a display of its own.
#pragma once

#include "tests/desktop/play_fixture.h"

#include <gmock/gmock.h>

namespace tarvik {

inline constexpr unsigned long GATE_COLOUR = 0xE02020;

class PackageTest : public PlayTest {
  protected:
    /// Unpacks an archive into a folder with a blank in its name, and returns the one folder that
    /// is in it.
    std::filesystem::path unpack(const std::string& file) {
        const std::filesystem::path into = folder_ / "my games";
        std::filesystem::create_directory(into);
        output_of(file.ends_with(".zip")   ? Command{"unzip", "-q", file, "-d", into}
                  : file.ends_with(".deb") ? Command{"dpkg-deb", "-x", file, into}
                                           : Command{"tar", "-xf", file, "-C", into});
        const std::filesystem::directory_iterator content(into);
        EXPECT_EQ(std::distance(begin(content), end(content)), 1);
        return *std::filesystem::directory_iterator(into);
    }

    /// Waits until the first track is seen as it is at the start, in blocks of so many pixels. Wine
    /// may take more than the player's minute.
    void wait_for_start(int factor) {
        while (game_->is_running() &&
               !player_.finds_game_with(GATE_COLOUR, factor * 152, factor * 32)) {
        }
    }

    /// Does so, and until each logical pixel is a block of its own.
    Pixels frame_at_start() {
        Pixels frame;
        wait_for_start(2);
        EXPECT_TRUE(player_.waits_until([&] {
            frame = player_.look_at(WINDOW);
            return !frame.empty() && frame == fitted(frame, WINDOW.width, WINDOW.height);
        })) << read_file(folder_ / "errors");
        return frame;
    }

    /// Shifts up and leaves.
    void play() {
        player_.turn_to(player_.window());
        const Pixels neutral = player_.look_at(GEAR);
        player_.tap(XK_a);
        EXPECT_TRUE(player_.sees_change(GEAR, neutral));
        leave();
    }

    void leave() {
        player_.press(XK_Escape);
        EXPECT_EQ(game_->wait(), 0);
        player_.release(XK_Escape);
    }
};

} // namespace tarvik
