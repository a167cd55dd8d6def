// Unpacking a package and looking at its game.
#include "tests/packages/package_fixture.h"

#include <algorithm>

namespace tarvik {

std::string PackageTest::output_of(const Command& command) {
    const std::filesystem::path folder = make_folder("output");
    ChildProcess process(command, {.output = folder / "output"});
    EXPECT_EQ(process.wait(std::chrono::minutes(2)), 0) << command.front();
    const std::string output = read(folder / "output");
    std::filesystem::remove_all(folder);
    return output;
}

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

bool PackageTest::shows_start(int width, int height) {
    constexpr unsigned long GATE_COLOUR = 0xE02020;
    const int factor = std::min(width / 320, height / 240);
    for (int minute = 0; minute < 6 && game_->is_running(); ++minute) { // Wine takes its time
        if (player_.finds_game_with(GATE_COLOUR, width / 2 - 8 * factor,
                                    height / 2 - 88 * factor)) {
            return player_.waits_until(
                [&] { return !player_.logical_pixels(width, height).empty(); });
        }
    }
    return false;
}

void PackageTest::play() {
    ASSERT_TRUE(shows_start()) << errors();
    player_.turn_to_game();
    const Pixels neutral = player_.look_at(GEAR);
    player_.tap(XK_a);
    EXPECT_TRUE(player_.sees_change(GEAR, neutral));
    leave();
}

} // namespace tarvik
