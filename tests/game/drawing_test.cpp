// Pixels, sprites at the edges, and what covers what.
#include "race/view.h"
#include "render/frame_buffer.h"
#include "render/graphics_archive.h"
#include "render/presentation.h"
#include "render/sprite.h"
#include "render/sprite_drawing.h"
#include "tests/support/race_test.h"

#include <algorithm>

namespace tarvik::test {
namespace {

class Drawing : public RaceTest {
  protected:
    static void load_images(const std::vector<Image>& images) {
        release_sprite_table();
        create_sprite_table();
        install_data({}, {}, archive_of(images));
        load_graphics_archive();
        clear_frame();
    }

    /// An image of 4 by 4 pixels whose red is 10 * row + column + 1.
    static Image numbered_image() {
        Image image = plain_image(30, 4, 0x000007);
        for (std::size_t i = 0; i < 16; ++i) {
            image.bytes[i * 3] = static_cast<std::uint8_t>(i / 4 * 10 + i % 4 + 1);
        }
        return image;
    }

    /// Where pixels of (9, 9, 9) are, with nothing but sprite 30 in the frame.
    static std::string nines(void (*draw)(std::int32_t, std::int32_t, std::int32_t), int at_x,
                             int at_y) {
        clear_frame();
        draw(at_x, at_y, 30);
        return pixels_of(0x090909);
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
    plot(319, 239, 255, 256 + 255, 0); // of which the low 8 bits count
    EXPECT_EQ(pixels_of(YELLOW), "319,239");
    clear_frame();
    EXPECT_EQ(pixels_of(YELLOW), "");
}

TEST_F(Drawing, OnlyBlackPixelsOfSpritesAreTransparent) {
    Image image = plain_image(30, 2, 0x000001);
    image.bytes[5] = 0; // second pixel black
    load_images({image});
    plot(11, 10, 255, 255, 255);
    draw_sprite(10, 10, 30);
    EXPECT_EQ(pixels_of(0x000001), "10,10 10,11 11,11");
    EXPECT_EQ(pixels_of(WHITE), "11,10");
}

TEST_F(Drawing, SpritesAreCutAtTheEdgesOrClampedToThem) {
    load_images({numbered_image()});
    using Reds = std::vector<std::uint32_t>;
    const auto reds = [](auto draw, int at_x, int at_y,
                         std::initializer_list<std::pair<int, int>> seen) {
        clear_frame();
        draw(at_x, at_y, 30);
        Reds found;
        for (const auto& [seen_x, seen_y] : seen) {
            found.push_back(drawn_picture().at(seen_x, seen_y) >> 16U);
        }
        return found;
    };
    EXPECT_EQ(reds(draw_sprite, -2, -1, {{0, 0}, {1, 2}, {2, 0}}), (Reds{13, 34, 0}));
    EXPECT_EQ(reds(draw_sprite_clamped, -2, -1, {{0, 0}, {1, 0}, {0, 2}, {1, 2}}),
              (Reds{13, 14, 33, 34})); // at 0,0 the last of six pixels that land there
    EXPECT_EQ(reds(draw_sprite_clamped, 318, 238, {{318, 238}, {319, 239}}), (Reds{1, 12}));
    // Wholly left of the view, and wholly above it.
    EXPECT_EQ(reds(draw_sprite_clamped, -100, 50, {{0, 50}, {0, 53}, {1, 50}}), (Reds{4, 34, 0}));
    EXPECT_EQ(reds(draw_sprite_clamped, 50, -100, {{50, 0}, {50, 1}}), (Reds{31, 0}));
}

TEST_F(Drawing, OddlyShapedSpritesShowOnlyWhatTheyHold) {
    load_images({{30, 4, 1, 1, {9, 9, 9, 9}}}); // one whole pixel
    EXPECT_EQ(nines(draw_sprite, 0, 0), "0,0");
    load_images({{30, 2, 3, 4, std::vector<std::uint8_t>(24, 9)}}); // more than its square
    EXPECT_EQ(nines(draw_sprite, 0, 0), "0,0 1,0 0,1 1,1");
    load_images({{30, -1, -1, 3, {9, 9, 9}}});
    for (const std::int32_t none : {7, -1, SPRITE_COUNT}) {
        draw_sprite(0, 0, none);
    }
    EXPECT_EQ(pixels_of(0x090909), "");
    EXPECT_EQ(nines(draw_sprite, 0, 0), "");

    constexpr std::int32_t WIDTH = 26754; // whose square just fits the archive's sizes
    constexpr int HELD = WIDTH + 2;       // one row and two pixels
    load_images({{30, WIDTH, WIDTH, 3, std::vector<std::uint8_t>(std::size_t{HELD} * 3, 9)}});
    EXPECT_EQ(nines(draw_sprite, -WIDTH + 2, 7), "0,7 1,7");
    EXPECT_EQ(nines(draw_sprite_clamped, -WIDTH + 2, 7), "0,7 1,7 0,8");
    EXPECT_TRUE(nines(draw_sprite_clamped, -1, -1).ends_with(" 318,0 319,0"));
    for (const std::int32_t far : {INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(nines(draw_sprite, far, far), "");
        EXPECT_EQ(nines(draw_sprite, far, 0), "");
        EXPECT_EQ(nines(draw_sprite_clamped, INT32_MAX, far), "");
    }
    EXPECT_EQ(nines(draw_sprite_clamped, 0, INT32_MAX), "");
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
    const Picture picture = drawn_picture();
    EXPECT_EQ(picture.at(155, 119), 0x010101U); // the marker covers a rear corner
    EXPECT_EQ(picture.at(155, 110), WHITE);     // and not a front one
    EXPECT_EQ(picture.at(160, 109), WHITE);     // the car is drawn after its move
    EXPECT_EQ(picture.at(160, 114), 0xFF0000U); // the ghost covers the marker
    EXPECT_EQ(picture.at(161, 127), 0x020202U); // the pointer covers it all
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
    const Picture picture = drawn_picture();
    EXPECT_EQ(picture.at(12, 19), YELLOW);
    EXPECT_EQ(picture.at(14, 19), 0xFF0000U);
    EXPECT_EQ(picture.at(0, 92), 0x010101U);
    EXPECT_EQ(picture.at(1, 92), ROAD);
}

TEST_F(Drawing, EveryCellOfTheViewIsPainted) {
    view_x = view_y = 5000;
    const std::vector<int> grass = {0, 5, 10, 16, 17, 18, 19, 319};
    for (const int column : grass) {
        track_grid[5100 * 10000 + 5000 + column] = CELL_OFF_TRACK;
        track_grid[5239 * 10000 + 5000 + column] = CELL_OFF_TRACK;
    }
    race_frame();
    const Picture picture = drawn_picture();
    for (int column = 0; column < 320; ++column) {
        const bool is_grass = std::find(grass.begin(), grass.end(), column) != grass.end();
        EXPECT_EQ(picture.at(column, 100), is_grass ? GRASS : ROAD) << column;
        EXPECT_EQ(picture.at(column, 239), is_grass ? GRASS : ROAD) << column;
    }
}

TEST_F(Drawing, AFrameThatIsNotShownMovesTheCarAndHasNoTrack) {
    place(5000.0F, 5000.0F, 180.0F, 3.0F);
    quit_requested = 1;
    race_frame();
    EXPECT_FLOAT_EQ(y, 4997.0F);
    EXPECT_EQ(view_y, 4877);
    EXPECT_EQ(drawn_picture().at(300, 100), BLACK);
}

} // namespace
} // namespace tarvik::test
