// Unpacking a package and looking at its game.
#include "tests/packages/package_fixture.h"

#include "tests/support/picture.h"

#include <fstream>
#include <iterator>
#include <optional>

namespace tarvik {

namespace {

// Of the block of device pixels for each logical one, the first; no picture if others differ.
std::optional<test::Picture> picture_of(const Player& player, const Area& area) {
    const Pixels pixels = player.look_at(area);
    const int factor = area.width / 320;
    test::Picture picture;
    for (std::size_t at = 0; at < pixels.size(); ++at) {
        const int x = static_cast<int>(at) % area.width;
        const int y = static_cast<int>(at) / area.width;
        const auto first =
            static_cast<std::size_t>(y / factor * factor * area.width + x / factor * factor);
        if (pixels[at] != pixels[first]) {
            return std::nullopt;
        }
        if (at == first) {
            picture.pixels.push_back(static_cast<std::uint32_t>(pixels[at]));
        }
    }
    return pixels.empty() ? std::nullopt : std::optional(picture);
}

} // namespace

std::string output_of(const std::vector<std::string>& command) {
    const std::filesystem::path folder = make_folder("output");
    ChildProcess process(command, {.output = folder / "output", .errors = folder / "errors"});
    EXPECT_EQ(process.wait(std::chrono::minutes(2)), 0) << command.front();
    std::ifstream file(folder / "output");
    std::string output{std::istreambuf_iterator<char>(file), {}};
    std::filesystem::remove_all(folder);
    return output;
}

void expect_parts(const std::string& text, const std::vector<std::string>& parts) {
    for (const std::string& part : parts) {
        EXPECT_NE(text.find(part), std::string::npos) << part;
    }
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

bool PackageTest::waits_for_text(const std::string& text, int x, int y, Area area) {
    const auto is_shown = [&] {
        const auto picture = picture_of(player_, area);
        return picture && test::shows_text(*picture, text, x, y, test::WHITE);
    };
    const int gate_x = area.x + 152 * area.width / 320;
    const int gate_y = area.y + 32 * area.height / 240;
    for (int attempt = 0; attempt < 6 && game_->is_running(); ++attempt) { // Wine takes its time
        if (player_.finds_game_with(0xE02020, gate_x, gate_y)) {
            return Player::waits_until(is_shown);
        }
    }
    return false;
}

void PackageTest::play() {
    ASSERT_TRUE(waits_for_text("Gear : 0", 30, 30)) << errors();
    player_.turn_to_game();
    player_.tap(XK_a);
    EXPECT_TRUE(waits_for_text("Gear : 1", 30, 30));
    player_.press(XK_Escape);
    EXPECT_EQ(game_->wait(), 0);
    player_.release(XK_Escape);
}

} // namespace tarvik
