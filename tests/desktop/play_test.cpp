// What a player sees and does, from the window's place to the exit code.
#include "tests/desktop/play_fixture.h"

#include <gmock/gmock.h>

namespace tarvik {

namespace {

class BareDisplay : public PlayTest {
  protected:
    BareDisplay() : PlayTest({"-extension", "GLX"}) {}
};

} // namespace

TEST_F(Play, TheWindowIsBorderlessAndCannotBeResized) {
    XInternAtom(player_.display(), "_MOTIF_WM_HINTS", False); // as a window manager does
    start_race();
    const std::string window = std::to_string(player_.window());
    EXPECT_THAT(output_of({"xprop", "-display", server_.display(), "-id", window}),
                testing::AllOf(testing::HasSubstr("_MOTIF_WM_HINTS) = 0x2, 0x0, 0x0,"),
                               testing::HasSubstr("specified minimum size: 640 by 480"),
                               testing::HasSubstr("specified maximum size: 640 by 480")));
    EXPECT_EQ(player_.count_shown_windows(), 1) << "no other window flashes up before it";
}

TEST_F(Play, KeysShiftDriveSwitchTracksAndRepeat) {
    start_race();
    const Pixels neutral = player_.look_at(GEAR);
    const auto start = std::chrono::steady_clock::now();
    player_.tap(XK_a);
    EXPECT_TRUE(player_.sees_change(GEAR, neutral));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(300))
        << "the game stops for it";
    player_.press(XK_Up);
    EXPECT_TRUE(player_.sees_change(MARKER_AT_START, {MARKER_COLOUR}))
        << "the car leaves the start, and the view follows it";
    player_.release(XK_Up);
    player_.tap(XK_z);
    EXPECT_TRUE(player_.sees(GEAR, neutral));
    player_.tap(XK_bracketright);
    EXPECT_TRUE(player_.sees(MARKER_AT_START, {MARKER_COLOUR})) << "the other track's start";
    player_.press(XK_a); // and holds it
    for (int change = 1; change <= 3; ++change) {
        EXPECT_TRUE(player_.sees_change(GEAR, player_.look_at(GEAR))) << "gear change " << change;
    }
}

// On a French keyboard A and Q have changed places, and the digits need Shift.
TEST_F(Play, LettersFollowTheLayoutAndDigitsTheirPosition) {
    start_race();
    const Pixels gear = player_.look_at(GEAR);
    const Pixels difficulty = player_.look_at(DIFFICULTY);
    output_of({"setxkbmap", "-display", server_.display(), "fr"});
    const Player french(server_.display());
    french.tap(XK_q);
    french.tap(XK_ampersand);
    EXPECT_TRUE(player_.sees_change(DIFFICULTY, difficulty));
    EXPECT_EQ(player_.look_at(GEAR), gear);
    french.tap(XK_a);
    EXPECT_TRUE(player_.sees_change(GEAR, gear));
}

TEST_F(Play, AltF4AndF10DoNothing) {
    start_race();
    const Pixels gear = player_.look_at(GEAR);
    const Pixels difficulty = player_.look_at(DIFFICULTY);
    player_.press(XK_Alt_L);
    player_.press(XK_F4);
    player_.ask_to_close(); // as a window manager does at these keys
    ASSERT_TRUE(player_.sees_frames(5));
    player_.release(XK_F4);
    player_.tap(XK_a);
    player_.release(XK_Alt_L);
    player_.tap(XK_F10);
    player_.tap(XK_1); // once it takes effect, all of these have been handled
    EXPECT_TRUE(player_.sees_change(DIFFICULTY, difficulty));
    EXPECT_EQ(player_.look_at(GEAR), gear);
}

// As on Windows: Escape is asked of the keyboard itself, and nobody tells the game that a key went
// up in another window. While 1 counts as held, 3 holds only as long as it is pressed.
TEST_F(Play, AKeyHeldWhileTheFocusLeavesStaysDownAndEscapeWorksFromAnywhere) {
    start_race();
    const Pixels advanced = player_.look_at(DIFFICULTY);
    player_.press(XK_1);
    ASSERT_TRUE(player_.sees_change(DIFFICULTY, advanced));
    const Pixels easy = player_.look_at(DIFFICULTY);
    player_.turn_to(None);
    player_.release(XK_1);
    player_.turn_to(player_.window());
    player_.press(XK_3);
    EXPECT_TRUE(player_.sees(DIFFICULTY, advanced));
    player_.release(XK_3);
    EXPECT_TRUE(player_.sees(DIFFICULTY, easy));
    player_.turn_to(None);
    player_.press(XK_Escape);
    EXPECT_EQ(game_->wait(), 0);
}

TEST_F(BareDisplay, ShowsTheRaceWithoutOpenGL) {
    start_race({}, {{"SDL_RENDER_DRIVER", "opengl"}});
}

} // namespace tarvik
