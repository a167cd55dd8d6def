// Unpacking, starting and looking.
#include "tests/packages/package_fixture.h"

#include <fstream>
#include <iterator>

#include <pwd.h>
#include <unistd.h>

namespace tarvik {

namespace {

namespace fs = std::filesystem;

constexpr const char* PLAYER = "nobody";

test::Picture picture_of(const Player& player) {
    test::Picture picture{std::vector<std::uint8_t>(640 * 480 * 3), 640, 480};
    const Pixels pixels = player.look_at({0, 0, 640, 480});
    if (pixels.empty()) {
        return picture;
    }
    auto byte = picture.bytes.begin();
    for (std::size_t row = 480; row-- > 0;) {
        for (std::size_t column = 0; column < 640; ++column) {
            for (const unsigned shift : {16U, 8U, 0U}) {
                *byte++ = static_cast<std::uint8_t>(pixels[row * 640 + column] >> shift);
            }
        }
    }
    return picture;
}

} // namespace

std::vector<std::string> as_player(std::vector<std::string> command) {
    if (geteuid() == 0) {
        const std::vector<std::string> user = {
            "setpriv", "--reuid", PLAYER, "--regid=nogroup", "--clear-groups", "--pdeathsig=KILL"};
        command.insert(command.begin(), user.begin(), user.end());
    }
    return command;
}

bool run(const std::vector<std::string>& command, const ChildProcess::Options& options) {
    return ChildProcess(command, options).wait(std::chrono::seconds(120)) == 0;
}

std::string read(const fs::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

void give_to_player(const fs::path& folder) {
    if (geteuid() == 0) {
        ASSERT_TRUE(run({"chown", "-R", PLAYER, folder}));
    }
}

fs::path PackageTest::new_folder() {
    folders_.push_back(make_folder("package"));
    give_to_player(folders_.back());
    return folders_.back();
}

fs::path PackageTest::unpack(const std::string& archive, const fs::path& into) {
    const fs::path file = fs::path(TARVIK_PACKAGES) / archive;
    const bool is_zip = file.extension() == ".zip";
    EXPECT_TRUE(run(is_zip ? std::vector<std::string>{"unzip", "-q", file, "-d", into}
                           : std::vector<std::string>{"tar", "-xf", file, "-C", into}))
        << file << " cannot be unpacked; ./play --package makes it";
    give_to_player(into);
    const fs::directory_iterator content(into);
    EXPECT_EQ(std::distance(begin(content), end(content)), 1) << "one folder, with all in it";
    return *fs::directory_iterator(into);
}

void PackageTest::forbid_writing(const fs::path& folder) {
    ASSERT_TRUE(run({"chmod", "-R", "a-w", folder}));
}

void PackageTest::start(const std::vector<std::string>& command, const fs::path& folder,
                        const Environment& environment) {
    Environment all = environment;
    all.emplace("DISPLAY", server_.display());
    all.emplace("WAYLAND_DISPLAY", "");
    game_.emplace(as_player(command),
                  ChildProcess::Options{.folder = folder, .environment = all, .errors = errors_});
}

void PackageTest::wait_for_game_with(unsigned long colour) {
    bool shown = false;
    for (int attempt = 0; attempt < 6 && !shown && game_->is_running(); ++attempt) {
        shown = player_.finds_game_with(colour, 304, 64);
    }
    ASSERT_TRUE(shown) << "the start is not shown; " << errors();
}

bool PackageTest::waits_a_minute_until(const std::function<bool()>& condition) {
    bool holds = false;
    for (int attempt = 0; attempt < 6 && !holds; ++attempt) {
        holds = Player::waits_until(condition);
    }
    return holds;
}

bool PackageTest::waits_for_text(const std::string& text, int x, int y) const {
    return Player::waits_until([&] { return shows(text, x, y); });
}

bool PackageTest::shows(const std::string& text, int x, int y) const {
    return test::shows_text(picture_of(player_), text, x, y, test::WHITE);
}

std::string PackageTest::errors() const {
    return read(errors_);
}

void PackageTest::TearDown() {
    game_.reset();
    folders_.push_back(errors_.parent_path());
    for (const fs::path& folder : folders_) {
        run({"chmod", "-R", "u+w", folder});
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }
}

} // namespace tarvik
