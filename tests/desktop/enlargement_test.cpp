// The picture in windows of any size: on the whole screen, as a tile, on dense desktops.
#include "tests/desktop/play_fixture.h"

#include <X11/Xatom.h>

namespace tarvik {

namespace {

using Enlargement = PlayTest;

constexpr int SMALL_WIDTH = 640;
constexpr int SMALL_HEIGHT = 480;

struct Screen {
    int width;
    int height;
    int factor; // device pixels for each of the 320 by 240 logical ones
};

} // namespace

TEST_F(Enlargement, FullScreenUsesWholeBlocksAndLeavingItRestoresTheWindow) {
    for (const Screen& screen : {Screen{1280, 720, 3}, Screen{1366, 768, 3}, Screen{1920, 1080, 4},
                                 Screen{3840, 2160, 9}}) {
        SCOPED_TRACE(screen.width);
        const auto [width, height, factor] = screen;
        const XServer server(
            {"-screen", "0", std::to_string(width) + "x" + std::to_string(height) + "x24"});
        Player player(server.display());
        start_game(server.display());
        ASSERT_TRUE(player.finds_game_with(MARKER_COLOUR, MARKER_AT_START.x, MARKER_AT_START.y));
        const Pixels small = player.logical_pixels(SMALL_WIDTH, SMALL_HEIGHT);
        const Area windowed = {(width - SMALL_WIDTH) / 2, (height - SMALL_HEIGHT) / 2, SMALL_WIDTH,
                               SMALL_HEIGHT};
        EXPECT_EQ(player.place(), windowed);

        player.tap(XK_F11);
        EXPECT_TRUE(player.waits_until(
            [&] { return player.logical_pixels(screen.width, screen.height) == small; }));
        EXPECT_EQ(player.place(), (Area{0, 0, width, height}));

        // The pointer is at twice the mouse's distance from the picture's corner.
        const int left = (width - 320 * factor) / 2;
        const int top = (height - 240 * factor) / 2;
        const Area pointer = {left + 200 * factor, top + 140 * factor, 1, 1};
        const Area before_pointer = {pointer.x - 1, pointer.y, 1, 1};
        const auto pointer_is_there = [&] {
            return player.look_at(pointer) == Pixels{POINTER_COLOUR} &&
                   player.look_at(before_pointer) != Pixels{POINTER_COLOUR};
        };
        player.move_mouse_to(left + 100 * factor, top + 70 * factor);
        EXPECT_TRUE(player.waits_until(pointer_is_there));
        player.move_mouse_to(0, 100); // beside the picture

        player.press(XK_Alt_L);
        player.press(XK_Return);
        player.release(XK_Alt_L);
        player.release(XK_Return);
        EXPECT_TRUE(player.waits_until([&] { return player.place() == windowed; }));
        EXPECT_TRUE(player.sees({400, 280, 1, 1}, {POINTER_COLOUR}))
            << "the move beside the picture came before";
        const Pixels difficulty = player.look_at(DIFFICULTY);
        player.tap(XK_1); // Alt is not stuck
        EXPECT_TRUE(player.sees_change(DIFFICULTY, difficulty));
        game_.reset(); // its display is going away
    }
}

// As a tiling window manager does, and on to a window that is smaller than the picture.
TEST_F(Enlargement, ThePictureFitsAWindowOfAnySize) {
    start_race();
    player_.move_mouse_to(1000, 600); // so that no pointer is in the picture
    const Pixels small = player_.logical_pixels(SMALL_WIDTH, SMALL_HEIGHT);
    ASSERT_FALSE(small.empty());
    const std::pair<int, int> tiles[] = {{1001, 733}, {639, 700}};
    for (const auto& [width, height] : tiles) {
        XMoveResizeWindow(player_.display(), player_.window(), 0, 0, static_cast<unsigned>(width),
                          static_cast<unsigned>(height));
        EXPECT_TRUE(player_.waits_until([&, w = width, h = height] {
            return player_.logical_pixels(w, h) == small;
        })) << width;
    }
    XResizeWindow(player_.display(), player_.window(), 200, 150);
    Pixels middle;
    for (int y = 45; y < 195; ++y) {
        const auto row = small.begin() + y * 320 + 60;
        middle.insert(middle.end(), row, row + 200);
    }
    EXPECT_TRUE(player_.sees({0, 0, 200, 150}, middle));
}

TEST_F(Enlargement, TheWindowOpensLargerOnADenseDesktop) {
    const XServer dense({"-screen", "0", "1920x1080x24"});
    Player player(dense.display());
    const std::string resources = "Xft.dpi:\t192\n";
    XChangeProperty(player.display(), DefaultRootWindow(player.display()), XA_RESOURCE_MANAGER,
                    XA_STRING, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(resources.data()),
                    static_cast<int>(resources.size()));
    XSync(player.display(), False);
    start_game(dense.display());
    ASSERT_TRUE(
        player.finds_game_with(MARKER_COLOUR, 2 * MARKER_AT_START.x, 2 * MARKER_AT_START.y));
    EXPECT_EQ(player.place(), (Area{320, 60, 1280, 960}));
    game_.reset();
}

} // namespace tarvik
