// The real program under a tiling Wayland compositor, with keyboard and mouse.
#include "tests/desktop/play_fixture.h"
#include "tests/wayland/sway.h"

#include <algorithm>
#include <tuple>

namespace tarvik {

namespace {

constexpr unsigned long EMPTY_COLOUR = 0x3F3F3F; // of a screen without windows
constexpr const char* CLOSE = "[app_id=tarvik] kill";

class Wayland : public PlayTest {
  protected:
    // The compositor's window has the keyboard from before the game to after it.
    void SetUp() override {
        ASSERT_TRUE(finds_screen_with(EMPTY_COLOUR, 320, 240));
        player_.turn_to(player_.window());
    }

    bool finds_screen_with(unsigned long colour, int x, int y) {
        constexpr const char* NO_TITLE = "";
        return player_.finds_game_with(colour, x, y, NO_TITLE);
    }

    void start(const std::string& x_display = "", const std::string& wanted = "") {
        Environment environment = sway_.environment();
        environment["TARVIK_DISPLAY"] = wanted;
        start_game(x_display, {}, environment);
    }

    void start_race() {
        start();
        ASSERT_TRUE(finds_screen_with(MARKER_COLOUR, MARKER_AT_START.x, MARKER_AT_START.y));
    }

    void expect_end() {
        EXPECT_EQ(game_->wait(), 0);
        EXPECT_EQ(read_file(folder_ / "errors"), "");
    }

    Sway sway_{server_.display()};
};

} // namespace

TEST_F(Wayland, TheFrameIsWholeInTheMiddleAndEnlargedInEveryTileAndThePointerFollowsTheMouse) {
    start_race();
    player_.move_mouse_to(200, 140);
    ASSERT_TRUE(player_.sees({400, 280, 1, 1}, {POINTER_COLOUR}));
    const Pixels frame = player_.look_at(WINDOW);
    for (const auto& [width, height, scale] :
         {std::tuple(1366, 768, 1), {1001, 733, 1}, {1280, 480, 2}, {1280, 720, 2}}) {
        const std::string mode = std::to_string(width) + "x" + std::to_string(height) + " scale " +
                                 std::to_string(scale);
        SCOPED_TRACE(mode);
        ASSERT_TRUE(sway_.tell("output * resolution " + mode));
        const int factor = std::min(width / 320, height / 240);
        const int mouse_x = (width - 320 * factor) / 2 + 100 * factor;
        const int mouse_y = (height - 240 * factor) / 2 + 70 * factor;
        const Area screen = {0, 0, width, height};
        const Pixels expected = fitted(frame, width, height);
        const auto shows_it = [&] {
            player_.move_mouse_to(0, 0);
            player_.move_mouse_to(mouse_x, mouse_y);
            return player_.look_at(screen) == expected;
        };
        EXPECT_TRUE(player_.waits_until(shows_it));
        EXPECT_TRUE(sway_.tell(CLOSE));
        expect_end();
        start();
        EXPECT_TRUE(player_.waits_until(shows_it)) << "from the start";
    }
}

// As on Windows: nobody tells the game that the key went up meanwhile. While 1 counts as held, 3
// holds only as long as it is pressed.
TEST_F(Wayland, TheGameKeepsItsKeysWithoutFocusAndCanBeClosedWhileHidden) {
    start_race();
    const Pixels neutral = player_.look_at(GEAR);
    player_.tap(XK_a);
    ASSERT_TRUE(player_.sees_change(GEAR, neutral));
    const Pixels advanced = player_.look_at(DIFFICULTY);
    player_.press(XK_1);
    ASSERT_TRUE(player_.sees_change(DIFFICULTY, advanced));
    const Pixels easy = player_.look_at(DIFFICULTY);
    ASSERT_TRUE(sway_.tell("workspace 2"));
    player_.release(XK_1);
    player_.tap(XK_Escape); // goes to nobody
    ASSERT_TRUE(sway_.tell("workspace 1"));
    player_.press(XK_3);
    EXPECT_TRUE(player_.sees(DIFFICULTY, advanced));
    player_.release(XK_3);
    EXPECT_TRUE(player_.sees(DIFFICULTY, easy));
    ASSERT_TRUE(sway_.tell("workspace 2"));
    EXPECT_TRUE(sway_.tell(CLOSE));
    expect_end();
}

// Ended at different times from the first frame on; where X11 would do as well, Wayland has to be
// asked for. --gtest_repeat runs it hundreds of times.
TEST_F(Wayland, StartsAndEndsAgainAndAgain) {
    for (int i = 0; i < 5; ++i) {
        i == 0 ? start(server_.display(), "wayland") : start();
        player_.press(XK_Up);
        ASSERT_TRUE(Player::waits_until([this] { return sway_.tell("[app_id=tarvik] focus"); }));
        player_.tap(XK_a);
        if (i % 2 == 0) {
            player_.press(XK_Escape);
        } else {
            EXPECT_TRUE(sway_.tell(CLOSE));
        }
        expect_end();
        player_.release(XK_Escape);
        player_.release(XK_Up);
    }
}

} // namespace tarvik
