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

struct Place {
    int x, y, width, height;
    bool operator==(const Place&) const = default;
};

Place place_of_window(const Player& player) {
    XWindowAttributes window{};
    XGetWindowAttributes(player.display(), player.window(), &window);
    return {window.x, window.y, window.width, window.height};
}

/// Whether each logical pixel of the small picture is one block, in the middle of black.
bool is_enlarged(const Player& player, const Pixels& small, const Screen& screen) {
    const auto [width, height, factor] = screen;
    const Pixels large = player.look_at({0, 0, width, height});
    const int left = (width - 320 * factor) / 2;
    const int top = (height - 240 * factor) / 2;
    std::size_t at = 0;
    for (int y = -top; at < large.size(); ++y) {
        for (int x = -left; x < width - left; ++x, ++at) {
            const bool inside = x >= 0 && x < 320 * factor && y >= 0 && y < 240 * factor;
            const int device = inside ? y / factor * 2 * SMALL_WIDTH + x / factor * 2 : 0;
            if (large[at] != (inside ? small[static_cast<std::size_t>(device)] : 0)) {
                return false;
            }
        }
    }
    return at > 0;
}

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
        const Pixels small = player.look_at({0, 0, SMALL_WIDTH, SMALL_HEIGHT});
        const Place windowed = {(width - SMALL_WIDTH) / 2, (height - SMALL_HEIGHT) / 2, SMALL_WIDTH,
                                SMALL_HEIGHT};
        EXPECT_EQ(place_of_window(player), windowed);

        player.tap(XK_F11);
        EXPECT_TRUE(player.waits_until([&] { return is_enlarged(player, small, screen); }));
        EXPECT_EQ(place_of_window(player), (Place{0, 0, width, height}));

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
        EXPECT_TRUE(player.waits_until([&] { return place_of_window(player) == windowed; }));
        EXPECT_TRUE(player.waits_until([&] {
            return player.look_at({400, 280, 1, 1}) == Pixels{POINTER_COLOUR};
        })) << "the move beside the picture came before";
        const Pixels difficulty = player.look_at(DIFFICULTY);
        player.tap(XK_1); // Alt is not stuck
        EXPECT_TRUE(player.waits_until([&] { return player.look_at(DIFFICULTY) != difficulty; }));
        game_.reset(); // its display is going away
    }
}

// As a tiling window manager does, and on to a window that is smaller than the picture.
TEST_F(Enlargement, ThePictureFitsAWindowOfAnySize) {
    start_race();
    player_.move_mouse_to(1000, 600); // so that no pointer is in the picture
    const Pixels small = player_.look_at({0, 0, SMALL_WIDTH, SMALL_HEIGHT});
    for (const Screen& tile : {Screen{1001, 733, 3}, Screen{639, 700, 1}, Screen{200, 150, 1}}) {
        XMoveResizeWindow(player_.display(), player_.window(), 0, 0,
                          static_cast<unsigned>(tile.width), static_cast<unsigned>(tile.height));
        EXPECT_TRUE(player_.waits_until([&] { return is_enlarged(player_, small, tile); }))
            << tile.width;
    }
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
    EXPECT_EQ(place_of_window(player), (Place{320, 60, 1280, 960}));
    game_.reset();
}

} // namespace tarvik
