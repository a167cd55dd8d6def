// Frames in windows of any size: on the whole screen, as a tile, on dense desktops.
#include "tests/desktop/play_fixture.h"

#include <X11/Xatom.h>

namespace tarvik {

namespace {

struct Screen {
    int width;
    int height;
    int factor; ///< device pixels for each of the 320 by 240 logical ones

    std::string size() const {
        return std::to_string(width) + "x" + std::to_string(height) + "x24";
    }
};

class FullScreen : public PlayTest, public testing::WithParamInterface<Screen> {
  protected:
    FullScreen() : PlayTest({"-screen", "0", GetParam().size()}) {}
};

class Enlargement : public PlayTest {
  protected:
    Enlargement() : PlayTest({"-screen", "0", "1920x1080x24"}) {}
};

} // namespace

TEST_P(FullScreen, UsesWholeBlocksAndLeavingItRestoresTheWindow) {
    const auto [width, height, factor] = GetParam();
    start_race();
    const Pixels frame = player_.look_at(WINDOW);
    ASSERT_EQ(frame, fitted(frame, WINDOW.width, WINDOW.height));
    const Area windowed = {(width - WINDOW.width) / 2, (height - WINDOW.height) / 2, WINDOW.width,
                           WINDOW.height};
    EXPECT_EQ(player_.place(), windowed);

    player_.tap(XK_F11);
    EXPECT_TRUE(player_.sees({0, 0, width, height}, fitted(frame, width, height)));
    EXPECT_EQ(player_.place(), (Area{0, 0, width, height}));

    // The pointer is at twice the mouse's distance from the frame's corner.
    const int left = (width - 320 * factor) / 2;
    const int top = (height - 240 * factor) / 2;
    player_.move_mouse_to(left + 100 * factor, top + 70 * factor);
    const Area pointer = {left + 200 * factor - 1, top + 140 * factor, 2, 1};
    EXPECT_TRUE(player_.sees(pointer, {ROAD_COLOUR, POINTER_COLOUR}));
    player_.move_mouse_to(0, 100); // beside the frame

    player_.press(XK_Alt_L);
    player_.press(XK_Return);
    player_.release(XK_Alt_L);
    player_.release(XK_Return);
    EXPECT_TRUE(player_.waits_until([&] { return player_.place() == windowed; }));
    EXPECT_TRUE(player_.sees({400, 280, 1, 1}, {POINTER_COLOUR}))
        << "the move beside the frame came before";
    const Area tip = {199, 100, 2, 1};
    player_.move_mouse_to(100, 50);
    EXPECT_TRUE(player_.sees(tip, {ROAD_COLOUR, POINTER_COLOUR}));
    player_.move_mouse_to(-30, 50); // outside, where the game is not told of it
    const Pixels difficulty = player_.look_at(DIFFICULTY);
    player_.tap(XK_1); // Alt is not stuck
    EXPECT_TRUE(player_.sees_change(DIFFICULTY, difficulty));
    EXPECT_EQ(player_.look_at(tip), (Pixels{ROAD_COLOUR, POINTER_COLOUR}));
}

INSTANTIATE_TEST_SUITE_P(Desktop, FullScreen,
                         testing::Values(Screen{1280, 720, 3}, Screen{1366, 768, 3},
                                         Screen{1920, 1080, 4}, Screen{3840, 2160, 9}),
                         [](const auto& each) { return each.param.size(); });

// As a tiling window manager does, and on to a window that is smaller than a frame.
TEST_F(Enlargement, TheFrameFitsAWindowOfAnySize) {
    start_race();
    player_.move_mouse_to(1000, 600); // so that no pointer is in the frame
    const Pixels frame = player_.look_at(WINDOW);
    for (const Area& tile : {Area{0, 0, 1001, 733}, Area{0, 0, 639, 700}, Area{0, 0, 200, 150}}) {
        XMoveResizeWindow(player_.display(), player_.window(), tile.x, tile.y,
                          static_cast<unsigned>(tile.width), static_cast<unsigned>(tile.height));
        EXPECT_TRUE(player_.sees(tile, fitted(frame, tile.width, tile.height))) << tile.width;
    }
}

TEST_F(Enlargement, OnADenseDesktopTheWindowOpensLarger) {
    const std::string resources = "Xft.dpi:\t192\n";
    XChangeProperty(player_.display(), DefaultRootWindow(player_.display()), XA_RESOURCE_MANAGER,
                    XA_STRING, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(resources.data()),
                    static_cast<int>(resources.size()));
    XSync(player_.display(), False);
    start_game(server_.display());
    ASSERT_TRUE(
        player_.finds_game_with(MARKER_COLOUR, 2 * MARKER_AT_START.x, 2 * MARKER_AT_START.y));
    EXPECT_EQ(player_.place(), (Area{320, 60, 1280, 960}));
}

} // namespace tarvik
