// Everything that others can do to the running program, and how it ends.
#include "tests/desktop/play_fixture.h"

#include <csignal>
#include <thread>

#include <unistd.h>

namespace fs = std::filesystem;

namespace tarvik {

namespace {

using namespace std::chrono_literals;

using Ending = PlayTest;

constexpr std::chrono::milliseconds AT_ONCE = 10s; // on a busy machine

} // namespace

TEST_F(Ending, TheDisplayGoesAway) {
    std::optional<XServer> doomed(std::in_place);
    start_game(doomed->display());
    {
        Player there(doomed->display());
        ASSERT_TRUE(there.finds_game_with(MARKER_COLOUR, MARKER_AT_START.x, MARKER_AT_START.y));
    }
    doomed.reset();
    expected_exit_code_ = 1;
    EXPECT_EQ(game_->wait(AT_ONCE), 1);
    EXPECT_EQ(read(folder_ / "errors"), "tarvik: the display has been taken away\n");
}

TEST_F(Ending, TheConnectionIsKilledOrTheWindowDestroyed) {
    expected_exit_code_ = 1;
    start_race();
    XKillClient(player_.display(), player_.window());
    XSync(player_.display(), False);
    EXPECT_EQ(game_->wait(AT_ONCE), 1);
    EXPECT_EQ(read(folder_ / "errors"), "tarvik: the display has been taken away\n");
    for (int attempt = 0; attempt < 5; ++attempt) { // at five places of a frame
        start_race();
        std::this_thread::sleep_for(attempt * 3ms);
        XDestroyWindow(player_.display(), player_.window());
        XSync(player_.display(), False);
        EXPECT_EQ(game_->wait(AT_ONCE), 1);
        EXPECT_EQ(read(folder_ / "errors"), "tarvik: the window has been taken away\n");
    }
}

TEST_F(Ending, ClosedDuringAGearChange) {
    start_race();
    player_.tap(XK_a);
    std::this_thread::sleep_for(100ms);
    player_.ask_to_close();
    EXPECT_EQ(game_->wait(AT_ONCE), 0);
}

TEST_F(Ending, SignalsThatWereIgnoredBeforeStayIgnored) {
    start_game(server_.display(), {"sh", "-c", "trap '' HUP INT; exec '" TARVIK_PROGRAM "'"});
    ASSERT_TRUE(player_.finds_game_with(MARKER_COLOUR, MARKER_AT_START.x, MARKER_AT_START.y));
    game_->send(SIGHUP);
    game_->send(SIGINT);
    EXPECT_EQ(game_->wait(500ms), std::nullopt);
    game_->send(SIGTERM);
    EXPECT_EQ(game_->wait(AT_ONCE), 0);
}

// While it is held, 1 would win over 3 again and again.
TEST_F(Ending, AHaltIsNotMadeUpForAndLeavesNoKeyDown) {
    start_race();
    const Pixels advanced = player_.look_at(DIFFICULTY);
    player_.press(XK_1);
    ASSERT_TRUE(player_.waits_until([&] { return player_.look_at(DIFFICULTY) != advanced; }));
    game_->send(SIGSTOP);
    std::this_thread::sleep_for(1s);
    player_.release(XK_1);
    player_.watch_pictures();
    game_->send(SIGCONT);
    const int pictures = pictures_in_a_second(player_);
    EXPECT_GT(pictures, 10);
    EXPECT_LT(pictures, 65);
    player_.tap(XK_3);
    ASSERT_TRUE(player_.waits_until([&] { return player_.look_at(DIFFICULTY) == advanced; }));
    pictures_in_a_second(player_);
    EXPECT_EQ(player_.look_at(DIFFICULTY), advanced);
}

// Neither the display's connection nor a map may take the number of a closed stream.
TEST_F(Ending, ClosedStandardStreamsGoToDevNull) {
    start_game(server_.display(), {"sh", "-c", "exec '" TARVIK_PROGRAM "' <&- >&- 2>&-"});
    ASSERT_TRUE(player_.finds_game_with(MARKER_COLOUR, MARKER_AT_START.x, MARKER_AT_START.y));
    for (const char* stream : {"0", "1", "2"}) {
        const fs::path link = fs::path("/proc") / std::to_string(game_->id()) / "fd" / stream;
        EXPECT_EQ(fs::read_symlink(link), "/dev/null") << stream;
    }
    player_.ask_to_close();
    EXPECT_EQ(game_->wait(AT_ONCE), 0);
}

TEST_F(Ending, StandardErrorHasNoReader) {
    expected_exit_code_ = 1;
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    const std::string to_pipe = " 2>&" + std::to_string(ends[1]);
    start_game(":98765", {"sh", "-c", "exec '" TARVIK_PROGRAM "'" + to_pipe});
    EXPECT_EQ(game_->wait(AT_ONCE), 1);
    close(ends[1]);
}

} // namespace tarvik
