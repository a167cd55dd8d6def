// Pixels, sprites at the edges, and what covers what.
#include "race/view.h"
#include "render/frame_buffer.h"
#include "render/graphics_archive.h"
#include "render/presentation.h"
#include "render/sprite.h"
#include "render/sprite_drawing.h"
#include "tests/support/race_test.h"

#include <algorithm>
#include <sstream>

namespace tarvik::test {
namespace {

class Drawing : public RaceTest {
  protected:
    static void load_images(const std::vector<Image>& images) {
        release_sprite_table();
        create_sprite_table();
        install_data({}, {}, archive_of(images));
        load_graphics_archive();
    }

    /// What sprite 30 leaves in a white frame, as "x,y=red ..." in rows from the top.
    static std::string drawn_by(void (*draw)(std::int32_t, std::int32_t, std::int32_t), int at_x,
                                int at_y) {
        std::memset(frame_buffer, 255, frame_bytes());
        draw(at_x, at_y, 30);
        const Frame frame = drawn_frame();
        std::ostringstream found;
        for (int i = 0; i < LOGICAL_WIDTH * LOGICAL_HEIGHT; ++i) {
            if (const auto pixel = frame.at(i, 0); pixel != WHITE) {
                found << i % LOGICAL_WIDTH << ',' << i / LOGICAL_WIDTH << '=' << (pixel >> 16U)
                      << ' ';
            }
        }
        return found.str();
    }
};

TEST_F(Drawing, StoresTheBottomRowFirstAndDropsWhatIsOutside) {
    clear_frame();
    put_pixel(0, 0, 1, 2, 3);
    put_pixel(639, 479, 4, 5, 256 + 6);
    EXPECT_EQ(frame_buffer[919680], 1);
    EXPECT_EQ(frame_buffer[1919], 6);
    clear_frame();
    for (const auto& [at_x, at_y] : {std::pair(640, 5), {-1, 5}, {0, 480}, {0, -1}}) {
        put_pixel(at_x, at_y, 255, 255, 255);
    }
    for (const auto& [at_x, at_y] :
         {std::pair(320, 0), {0, 240}, {-1, 5}, {5, -1}, {INT32_MAX, 5}, {5, INT32_MIN}}) {
        plot(at_x, at_y, 255, 255, 255);
    }
    EXPECT_EQ(pixels_of(WHITE), "");
    plot(319, 0, 255, 256 + 255, 255); // of which the low 8 bits count
    plot(0, 239, 255, 255, 255);
    EXPECT_EQ(pixels_of(WHITE), "319,0 0,239");
    clear_frame();
    EXPECT_EQ(pixels_of(WHITE), "");
}

TEST_F(Drawing, SpritesAreTransparentWhereBlackAndCutAtTheEdgesOrClampedToThem) {
    Image image = plain_image(30, 4, 0x000007);
    for (std::size_t i = 0; i < 16; ++i) { // red is 10 * row + column + 1
        image.bytes[i * 3] = static_cast<std::uint8_t>(i / 4 * 10 + i % 4 + 1);
    }
    std::fill_n(image.bytes.end() - 3, 3, std::uint8_t{0});
    load_images({image});
    for (auto* draw : {draw_sprite, draw_sprite_clamped}) {
        EXPECT_EQ(drawn_by(draw, -2, -1), "0,0=13 1,0=14 0,1=23 1,1=24 0,2=33 ");
        EXPECT_EQ(drawn_by(draw, 318, 238), "318,238=1 319,238=2 318,239=11 319,239=12 ");
    }
    EXPECT_EQ(drawn_by(draw_sprite_clamped, -100, 50), "0,50=4 0,51=14 0,52=24 0,53=33 ");
    EXPECT_EQ(drawn_by(draw_sprite_clamped, 50, -100), "50,0=31 51,0=32 52,0=33 53,0=24 ");
}

TEST_F(Drawing, OddlyShapedSpritesShowOnlyWhatTheyHold) {
    load_images({{30, 4, 1, 1, {9, 9, 9, 9}}}); // one whole pixel
    EXPECT_EQ(drawn_by(draw_sprite, 0, 0), "0,0=9 ");
    load_images({{30, 2, 3, 4, std::vector<std::uint8_t>(24, 9)}}); // more than its square
    EXPECT_EQ(drawn_by(draw_sprite, 0, 0), "0,0=9 1,0=9 0,1=9 1,1=9 ");
    load_images({{30, -1, -1, 3, {9, 9, 9}}});
    EXPECT_EQ(drawn_by(draw_sprite, 0, 0), "");
    for (const std::int32_t none : {7, -1, SPRITE_COUNT}) {
        draw_sprite(0, 0, none);
    }
    EXPECT_EQ(drawn_frame().at(0, 0), WHITE);

    constexpr std::int32_t WIDTH = 26754; // whose square just fits the archive's sizes
    constexpr int HELD = WIDTH + 2;       // one row and two pixels
    load_images({{30, WIDTH, WIDTH, 3, std::vector<std::uint8_t>(std::size_t{HELD} * 3, 9)}});
    EXPECT_EQ(drawn_by(draw_sprite, -WIDTH + 2, 7), "0,7=9 1,7=9 ");
    EXPECT_EQ(drawn_by(draw_sprite_clamped, -WIDTH + 2, 7), "0,7=9 1,7=9 0,8=9 ");
    EXPECT_TRUE(drawn_by(draw_sprite_clamped, -1, -1).ends_with(" 318,0=9 319,0=9 "));
    for (const std::int32_t far : {INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(drawn_by(draw_sprite, far, far), "");
        EXPECT_EQ(drawn_by(draw_sprite, far, 0), "");
        EXPECT_EQ(drawn_by(draw_sprite_clamped, INT32_MAX, far), "");
    }
    EXPECT_EQ(drawn_by(draw_sprite_clamped, 0, INT32_MAX), "");
}

TEST_F(Drawing, AFrameStacksTrackCarMarkerTextsGhostsAndPointer) {
    load_images({plain_image(30, 16, 0x010101), plain_image(250, 2, 0x020202)});
    place(2400.0F, 2396.0F, 180.0F, 1.0F);
    cycle[PLAYER_SLOT] = 4;
    ghost_x[2][5] = 2400.0F;
    ghost_y[2][5] = 2400.0F;
    mouse_x = 160;
    mouse_y = 126;
    view_x = 2240;
    view_y = 2280;
    race_frame();
    const Frame frame = drawn_frame();
    EXPECT_EQ(frame.at(155, 119), 0x010101U); // the marker covers a rear corner
    EXPECT_EQ(frame.at(155, 110), WHITE);     // and not a front one
    EXPECT_EQ(frame.at(160, 109), WHITE);     // the car is drawn after its move
    EXPECT_EQ(frame.at(160, 114), 0xFF0000U); // the ghost covers the marker
    EXPECT_EQ(frame.at(161, 127), 0x020202U); // the pointer covers it all
    EXPECT_EQ(std::pair(view_x, view_y), std::pair(2240, 2275));
}

TEST_F(Drawing, GhostsCoverTheTextsAndAMarkerPassedByStaysAtTheViewsEdge) {
    load_images({plain_image(30, 16, 0x010101)});
    cycle[PLAYER_SLOT] = 4;
    ghost_x[2][5] = 2450.0F + 14.5F; // its nose on the second bar of the overlay's first letter
    ghost_y[2][5] = 2300.0F + 25.5F;
    view_x = 2450;
    view_y = 2300;
    race_frame();
    const Frame frame = drawn_frame();
    EXPECT_EQ(frame.at(12, 19), YELLOW);
    EXPECT_EQ(frame.at(14, 19), 0xFF0000U);
    EXPECT_EQ(frame.at(0, 92), 0x010101U);
    EXPECT_EQ(frame.at(1, 92), ROAD);
}

TEST_F(Drawing, EveryCellOfTheViewIsPainted) {
    view_x = view_y = 5000;
    std::vector<std::uint32_t> expected(320, ROAD);
    for (const int column : {0, 5, 10, 16, 17, 18, 19, 319}) {
        expected[static_cast<std::size_t>(column)] = GRASS;
        track_grid[5100 * 10000 + 5000 + column] = CELL_OFF_TRACK;
        track_grid[5239 * 10000 + 5000 + column] = CELL_OFF_TRACK;
    }
    race_frame();
    const Frame frame = drawn_frame();
    for (const std::size_t row : {100U, 239U}) {
        EXPECT_TRUE(std::equal(expected.begin(), expected.end(), &frame.pixels[row * 320]));
    }
}

TEST_F(Drawing, AFrameThatIsNotShownMovesTheCarAndHasNoTrack) {
    place(5000.0F, 5000.0F, 180.0F, 3.0F);
    quit_requested = 1;
    race_frame();
    EXPECT_FLOAT_EQ(y, 4997.0F);
    EXPECT_EQ(view_y, 4877);
    EXPECT_EQ(drawn_frame().at(300, 100), BLACK);
}

} // namespace
} // namespace tarvik::test
