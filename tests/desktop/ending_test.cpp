// What others can do to the running program, and how it ends.
#include "tests/desktop/play_fixture.h"

#include <csignal>
#include <thread>

namespace fs = std::filesystem;

namespace tarvik {

namespace {

using namespace std::chrono_literals;

class Ending : public PlayTest {
  protected:
    void expect_failure(const std::string& words) {
        expected_exit_code_ = 1;
        EXPECT_EQ(game_->wait(), 1);
        EXPECT_EQ(read_file(folder_ / "errors"), words);
    }
};

} // namespace

TEST_F(Ending, TheConnectionIsKilledOrTheWindowDestroyed) {
    start_race();
    XKillClient(player_.display(), player_.window());
    XSync(player_.display(), False);
    expect_failure("tarvik: the display has been taken away\n");
    for (int attempt = 0; attempt < 5; ++attempt) { // at five places of a frame
        start_race();
        std::this_thread::sleep_for(attempt * 3ms);
        XDestroyWindow(player_.display(), player_.window());
        XSync(player_.display(), False);
        expect_failure("tarvik: the window has been taken away\n");
    }
}

// F1, held, stops the game for 400 ms after each frame.
TEST_F(Ending, ASignalOrTheCloseButtonEndsItCleanlyEvenDuringAWait) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, 0}) {
        start_race();
        player_.press(XK_F1);
        ASSERT_TRUE(player_.sees_frames(5));
        if (signal == 0) {
            player_.ask_to_close();
        }
        game_->send(signal);
        EXPECT_EQ(game_->wait(), 0) << signal;
        player_.release(XK_F1);
    }
}

TEST_F(Ending, SignalsThatWereIgnoredBeforeStayIgnored) {
    start_race({"sh", "-c", "trap '' HUP INT; exec '" TARVIK_PROGRAM "'"});
    game_->send(SIGHUP);
    game_->send(SIGINT);
    EXPECT_TRUE(player_.sees_frames(20));
}

// Neither the display's connection nor a map may take the number of a closed stream.
TEST_F(Ending, ClosedStandardStreamsGoToDevNull) {
    start_race({"sh", "-c", "exec '" TARVIK_PROGRAM "' <&- >&- 2>&-"});
    for (const char* stream : {"0", "1", "2"}) {
        const fs::path link = fs::path("/proc") / std::to_string(game_->id()) / "fd" / stream;
        EXPECT_EQ(fs::read_symlink(link), "/dev/null") << stream;
    }
}

TEST_F(Ending, WithoutADisplayOneLineSaysSoIfSomebodyReadsIt) {
    expected_exit_code_ = 1;
    start_game(":98765",
               {"sh", "-c", "mkfifo end; : <end & exec 2>end; wait; exec '" TARVIK_PROGRAM "'"});
    EXPECT_EQ(game_->wait(), 1);
    for (const char* display : {"", ":98765"}) {
        start_game(display);
        EXPECT_EQ(game_->wait(), 1);
        const std::string words = read_file(folder_ / "errors");
        EXPECT_TRUE(words.starts_with("tarvik: no display ("));
        EXPECT_EQ(words.find('\n'), words.size() - 1) << words;
    }
}

} // namespace tarvik
