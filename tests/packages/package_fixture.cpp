// Unpacking a package and looking at its game.
#include "tests/packages/package_fixture.h"

namespace tarvik {

std::filesystem::path PackageTest::unpack(const std::string& package) {
    const std::filesystem::path file = std::filesystem::path(TARVIK_PACKAGES) / package;
    const std::filesystem::path into = folder_ / "my games";
    std::filesystem::create_directory(into);
    const std::string type = file.extension();
    output_of(type == ".zip"   ? Command{"unzip", "-q", file, "-d", into}
              : type == ".deb" ? Command{"dpkg-deb", "-x", file, into}
                               : Command{"tar", "-xf", file, "-C", into});
    const std::filesystem::directory_iterator content(into);
    EXPECT_EQ(std::distance(begin(content), end(content)), 1) << "one folder, with all in it";
    return *std::filesystem::directory_iterator(into);
}

Pixels PackageTest::frame_at_start() {
    Pixels frame;
    while (game_->is_running() && !player_.finds_game_with(GATE_COLOUR, 2 * 152, 2 * 32)) {
        // Wine may take more than the player's minute.
    }
    EXPECT_TRUE(player_.waits_until([&] {
        frame = player_.look_at(WINDOW);
        return !frame.empty() && frame == fitted(frame, WINDOW.width, WINDOW.height);
    })) << read_file(folder_ / "errors");
    return frame;
}

void PackageTest::play() {
    player_.turn_to_game();
    const Pixels neutral = player_.look_at(GEAR);
    player_.tap(XK_a);
    EXPECT_TRUE(player_.sees_change(GEAR, neutral));
    leave();
}

void PackageTest::leave() {
    player_.press(XK_Escape);
    EXPECT_EQ(game_->wait(), 0);
    player_.release(XK_Escape);
}

} // namespace tarvik
