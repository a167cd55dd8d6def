// Whatever is there instead of the data, the game starts, plays on without it, and ends.
#include "tests/desktop/play_fixture.h"

#include <atomic>
#include <fstream>
#include <functional>
#include <thread>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace tarvik {

namespace {

using namespace std::chrono_literals;

constexpr unsigned long GRASS_COLOUR = 0x00C800;
constexpr Area BARE_PLACE = {600, 300, 1, 1}; // no text and no picture there
constexpr const char* FILES[] = {"race1.map", "race2.map", "graphics.dat"};

class DataFault : public PlayTest {
  protected:
    fs::path data() const {
        return folder_ / "data";
    }

    /// Empties the data folder and puts something in the place of each file.
    void replace_files(const std::function<void(const fs::path&)>& put) const {
        fs::remove_all(data());
        fs::create_directory(data());
        for (const char* file : FILES) {
            put(data() / file);
        }
    }

    /// With the started game: the view has a colour, the other track's key works, frames come,
    /// Escape ends it.
    void expect_play(unsigned long colour) {
        EXPECT_TRUE(player_.finds_game_with(colour, BARE_PLACE.x, BARE_PLACE.y));
        player_.tap(XK_bracketright);
        player_.watch_pictures();
        EXPECT_TRUE(player_.waits_until([this] { return player_.count_pictures() >= 20; }));
        EXPECT_EQ(player_.look_at(BARE_PLACE), Pixels{colour});
        player_.press(XK_Escape);
        EXPECT_EQ(game_->wait(), 0);
        player_.release(XK_Escape);
        EXPECT_EQ(read(folder_ / "errors"), "");
    }

    /// Bytes that the running game has read from anywhere.
    std::uintmax_t bytes_read() const {
        std::ifstream file(fs::path("/proc") / std::to_string(game_->id()) / "io");
        std::string label;
        std::uintmax_t count = 0;
        file >> label >> count;
        return count;
    }
};

void make_socket(const fs::path& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    close(descriptor);
}

void make_file(const fs::path& path, fs::perms permissions) {
    std::ofstream(path) << std::string(1000, '\0');
    fs::permissions(path, permissions);
}

} // namespace

TEST_F(DataFault, SomethingElseInPlaceOfAFile) {
    const std::pair<const char*, std::function<void(const fs::path&)>> cases[] = {
        {"a folder", [](const fs::path& path) { fs::create_directory(path); }},
        {"a pipe", [](const fs::path& path) { mkfifo(path.c_str(), 0666); }},
        {"a socket", make_socket},
        {"/dev/zero", [](const fs::path& path) { fs::create_symlink("/dev/zero", path); }},
        {"/dev/full", [](const fs::path& path) { fs::create_symlink("/dev/full", path); }},
        {"a terminal", [](const fs::path& path) { fs::create_symlink("/dev/ptmx", path); }},
        {"a link to itself", [](const fs::path& path) { fs::create_symlink(path, path); }},
        {"a link to nowhere",
         [](const fs::path& path) { fs::create_symlink(path / "no" / "folder", path); }},
        {"a read-only file", [](const fs::path& path) { make_file(path, fs::perms::owner_read); }},
        {"a write-only file",
         [](const fs::path& path) { make_file(path, fs::perms::owner_write); }},
        {"an empty file", [](const fs::path& path) { std::ofstream file(path); }},
    };
    for (const auto& [name, put] : cases) {
        SCOPED_TRACE(name);
        replace_files(put);
        start_game(server_.display());
        expect_play(GRASS_COLOUR);
    }
}

TEST_F(DataFault, MissingFolder) {
    fs::remove_all(data());
    start_game(server_.display());
    expect_play(GRASS_COLOUR);
    EXPECT_FALSE(fs::exists(data()));

    std::ofstream(data()) << "a file in its place";
    start_game(server_.display());
    expect_play(GRASS_COLOUR);
    fs::remove(data());

    mkfifo(data().c_str(), 0666);
    start_game(server_.display());
    expect_play(GRASS_COLOUR);
}

TEST_F(DataFault, DeletedWorkingFolder) {
    const fs::path gone = folder_ / "gone";
    fs::create_directory(gone);
    start_game(server_.display(),
               {"sh", "-c", "cd gone && rmdir ../gone && exec '" TARVIK_PROGRAM "'"});
    expect_play(GRASS_COLOUR);
}

// Root may enter every folder, so the game runs as another user then.
TEST_F(DataFault, FolderWithoutPermissions) {
    Command command = {TARVIK_PROGRAM};
    if (geteuid() == 0) {
        command.insert(command.begin(), {"setpriv", "--reuid=65534", "--clear-groups"});
        fs::permissions(folder_, fs::perms::all);
        Command trial = command;
        trial.back() = "/bin/test";
        trial.insert(trial.end(), {"-x", TARVIK_PROGRAM});
        if (ChildProcess(trial, {}).wait() != 0) {
            GTEST_SKIP() << "other users cannot reach the program here";
        }
    }
    for (const fs::perms permissions : {fs::perms::none, fs::perms(0555)}) {
        fs::permissions(data(), fs::perms::all);
        replace_files([](const fs::path&) {});
        fs::permissions(data(), permissions);
        start_game(server_.display(), command);
        expect_play(GRASS_COLOUR);
        EXPECT_TRUE(geteuid() != 0 || fs::is_empty(data()));
    }
    fs::permissions(data(), fs::perms::all);
}

TEST_F(DataFault, FullDisk) {
    fs::remove_all(data());
    fs::create_directory(data());
    // One inode, which the folder itself takes.
    const std::string mount = "mount -t tmpfs -o nr_inodes=1 none " + data().string();
    const Command refused = {"unshare", "-rm", "sh", "-c", mount + " && ! touch data/file"};
    if (ChildProcess(refused, {.folder = folder_}).wait() != 0) {
        GTEST_SKIP() << "no file system can be mounted here";
    }
    start_game(server_.display(),
               {"unshare", "-rm", "sh", "-c", mount + " && exec '" TARVIK_PROGRAM "'"});
    expect_play(GRASS_COLOUR);
}

// The bracket key, held, loads a track in every frame while somebody cuts and fills the file.
TEST_F(DataFault, FileThatShrinksAndGrowsWhileItIsRead) {
    constexpr std::uintmax_t MAP_BYTES = 100'000'000;
    for (const char* file : {"race2.map", "graphics.dat"}) {
        fs::remove(data() / file);
        fs::create_hard_link(data() / "race1.map", data() / file);
    }
    std::atomic<int> cuts = 0;
    const std::jthread cutter([&](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            fs::resize_file(data() / "race1.map",
                            ++cuts % 2 == 0 ? MAP_BYTES : static_cast<std::uintmax_t>(cuts % 1000));
            std::this_thread::sleep_for(1ms);
        }
    });
    for (int start = 1; start <= 3; ++start) {
        start_game(server_.display());
        ASSERT_TRUE(player_.waits_until([&] { return player_.count_shown_windows() == start; }));
        player_.press(XK_bracketright);
        const std::uintmax_t before = bytes_read();
        EXPECT_TRUE(player_.waits_until([&] { return bytes_read() > before + MAP_BYTES / 100; }));
        player_.release(XK_bracketright);
        player_.press(XK_Escape);
        EXPECT_EQ(game_->wait(), 0);
        player_.release(XK_Escape);
    }
    EXPECT_GT(cuts, 100);
}

TEST_F(DataFault, TwoGamesInOneFolder) {
    start_race();
    ChildProcess second({TARVIK_PROGRAM}, {.folder = folder_,
                                           .environment = {{"DISPLAY", server_.display()},
                                                           {"ASAN_OPTIONS", "detect_leaks=0"}}});
    EXPECT_TRUE(player_.waits_until([this] { return player_.count_shown_windows() == 2; }));
    player_.ask_to_close();
    EXPECT_EQ(game_->wait(), 0);
    ASSERT_TRUE(player_.finds_game_with(MARKER_COLOUR, MARKER_AT_START.x, MARKER_AT_START.y));
    player_.press(XK_Escape);
    EXPECT_EQ(second.wait(), 0);
    player_.release(XK_Escape);
}

} // namespace tarvik
