// The real program under a tiling Wayland compositor, with an ordinary keyboard.
#include "tests/desktop/play_fixture.h"
#include "tests/wayland/sway.h"
#include "tests/wayland/virtual_keyboard.h"

#include <algorithm>

#include <linux/input-event-codes.h>

namespace tarvik {

namespace {

constexpr int WIDTH = 320;
constexpr int HEIGHT = 240;
constexpr unsigned long ROAD = 0x3C3C3C;

/// What the screen shows as the game's logical pixels, if it is a whole frame of them, centred on
/// black, each enlarged to one block by the largest factor that fits. Otherwise none.
Pixels read_logical_pixels(const Picture& screen) {
    const int factor = std::min(screen.width / WIDTH, screen.height / HEIGHT);
    const int left = (screen.width - WIDTH * factor) / 2;
    const int top = (screen.height - HEIGHT * factor) / 2;
    Pixels logical(WIDTH * HEIGHT);
    for (int y = 0; y < screen.height; ++y) {
        for (int x = 0; x < screen.width; ++x) {
            const auto* byte = &screen.rgba[static_cast<std::size_t>(4 * (y * screen.width + x))];
            const unsigned long pixel = byte[0] * 0x10000UL + byte[1] * 0x100UL + byte[2];
            const int inner_x = x - left;
            const int inner_y = y - top;
            if (inner_x < 0 || inner_y < 0 || inner_x >= WIDTH * factor ||
                inner_y >= HEIGHT * factor) {
                if (pixel != 0) {
                    return {};
                }
                continue;
            }
            auto& block =
                logical[static_cast<std::size_t>(inner_y / factor * WIDTH + inner_x / factor)];
            if (inner_x % factor == 0 && inner_y % factor == 0) {
                block = pixel;
            } else if (block != pixel) {
                return {};
            }
        }
    }
    return logical;
}

class Wayland : public testing::Test {
  protected:
    void SetUp() override {
        if (!Sway::is_installed()) {
            GTEST_SKIP() << "sway, swaymsg, grim and setpriv are needed";
        }
        sway_.emplace();
        ASSERT_FALSE(sway_->socket().empty()) << "sway did not start";
        keyboard_.emplace(sway_->socket());
        folder_ = make_folder("wayland");
        make_data(folder_);
    }

    void TearDown() override {
        game_.reset();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    void start_game() {
        auto environment = sway_->environment();
        environment["TARVIK_DISPLAY"] = "wayland";
        environment["ASAN_OPTIONS"] = "detect_leaks=0"; // the drivers keep memory to the end
        game_.emplace(std::vector<std::string>{TARVIK_PROGRAM},
                      ChildProcess::Options{.folder = folder_,
                                            .environment = environment,
                                            .errors = folder_ / "errors"});
    }

    /// Whether the whole picture is there, with the car at the start.
    bool shows_start() {
        picture_ = read_logical_pixels(sway_->look());
        return part(MARKER_AT_START) == Pixels{MARKER_COLOUR} &&
               part({0, 0, 2, 2}) == Pixels{POINTER_COLOUR} &&
               part({638, 478, 2, 2}) == Pixels{ROAD};
    }

    /// A part of the frame that was captured last; areas are in the game's own pixels.
    Pixels part(const Area& area) const {
        Pixels pixels;
        for (int y = area.y / 2; y < (area.y + area.height + 1) / 2 && !picture_.empty(); ++y) {
            const auto row = picture_.begin() + y * WIDTH;
            pixels.insert(pixels.end(), row + area.x / 2, row + (area.x + area.width + 1) / 2);
        }
        return pixels;
    }

    /// Waits until a part of the frame is, or is no longer, what it was.
    bool waits_for(const Area& area, const Pixels& pixels, bool equal) {
        return Player::waits_until([&] {
            picture_ = read_logical_pixels(sway_->look());
            return !picture_.empty() && (part(area) == pixels) == equal;
        });
    }

    void expect_end() {
        EXPECT_EQ(game_->wait(), 0);
        EXPECT_TRUE(std::filesystem::is_empty(folder_ / "errors"));
    }

    std::optional<Sway> sway_;
    std::optional<VirtualKeyboard> keyboard_;
    std::filesystem::path folder_;
    std::optional<ChildProcess> game_;
    Pixels picture_;
};

constexpr const char* CLOSE = "[app_id=tarvik] kill";

} // namespace

TEST_F(Wayland, ThePictureIsWholeInTheMiddleAndEnlargedInEveryTile) {
    constexpr const char* SCREENS_AT_START_AND_LATER[][2] = {
        {"1920x1080 scale 1", "1367x751 scale 1"},
        {"1367x751 scale 1", "1920x1080 scale 2"},
        {"1920x1080 scale 2", "2560x1440 scale 2"},
    };
    for (const auto& screens : SCREENS_AT_START_AND_LATER) {
        ASSERT_TRUE(sway_->tell(std::string("output * resolution ") + screens[0]));
        start_game();
        EXPECT_TRUE(Player::waits_until([this] { return shows_start(); })) << screens[0];
        ASSERT_TRUE(sway_->tell(std::string("output * resolution ") + screens[1]));
        EXPECT_TRUE(Player::waits_until([this] { return shows_start(); }))
            << "from " << screens[0] << " to " << screens[1];
        ASSERT_TRUE(sway_->tell(CLOSE));
        expect_end();
    }
}

TEST_F(Wayland, KeysChangeGearAndDriveAndEscapeEndsTheGame) {
    start_game();
    ASSERT_TRUE(Player::waits_until([this] { return shows_start(); }));
    const Pixels neutral = part(GEAR);
    keyboard_->tap(KEY_A);
    EXPECT_TRUE(waits_for(GEAR, neutral, false));
    keyboard_->press(KEY_UP);
    EXPECT_TRUE(waits_for(MARKER_AT_START, {MARKER_COLOUR}, false));
    keyboard_->release(KEY_UP);
    keyboard_->tap(KEY_Z);
    EXPECT_TRUE(waits_for(GEAR, neutral, true));
    keyboard_->press(KEY_ESC);
    expect_end();
}

// As on Windows: nobody tells the game that the key went up meanwhile. While 1 counts as held, 3
// holds only as long as it is pressed.
TEST_F(Wayland, TheGameKeepsItsKeysWithoutFocusAndCanBeClosedWhileHidden) {
    start_game();
    ASSERT_TRUE(Player::waits_until([this] { return shows_start(); }));
    const Pixels advanced = part(DIFFICULTY);
    keyboard_->press(KEY_1);
    ASSERT_TRUE(waits_for(DIFFICULTY, advanced, false));
    const Pixels easy = part(DIFFICULTY);
    ASSERT_TRUE(sway_->tell("workspace 2"));
    keyboard_->release(KEY_1);
    keyboard_->tap(KEY_ESC); // goes to nobody
    ASSERT_TRUE(sway_->tell("workspace 1"));
    keyboard_->press(KEY_3);
    EXPECT_TRUE(waits_for(DIFFICULTY, advanced, true));
    keyboard_->release(KEY_3);
    EXPECT_TRUE(waits_for(DIFFICULTY, easy, true));
    ASSERT_TRUE(sway_->tell("workspace 2"));
    ASSERT_TRUE(sway_->tell(CLOSE));
    expect_end();
}

// Ended at different times from the first frame on. --gtest_repeat runs it hundreds of times.
TEST_F(Wayland, StartsAndEndsAgainAndAgain) {
    for (int i = 0; i < 5; ++i) {
        start_game();
        keyboard_->press(KEY_UP);
        ASSERT_TRUE(Player::waits_until([this] { return sway_->tell("[app_id=tarvik] focus"); }));
        keyboard_->tap(KEY_A);
        if (i % 2 == 0) {
            keyboard_->press(KEY_ESC);
        } else {
            ASSERT_TRUE(sway_->tell(CLOSE));
        }
        expect_end();
        keyboard_->release(KEY_ESC);
        keyboard_->release(KEY_UP);
    }
}

} // namespace tarvik
