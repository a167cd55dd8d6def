// The font and the texts on the screen.
#include "race/track_view.h"
#include "render/glyph_table.h"
#include "render/presentation.h"
#include "render/text.h"
#include "tests/support/race_test.h"

namespace tarvik::test {
namespace {

/// Whether exactly the set cells of `text`, drawn with the game's font at logical (x, y), have
/// `colour` in the rectangle that the text takes.
bool shows_text(const std::string& text, int x, int y, std::uint32_t colour) {
    const Frame frame = drawn_frame();
    for (const char character : text) {
        const char* glyph = glyph_table[static_cast<unsigned char>(character)];
        const int width = glyph[0] - '0';
        for (int row = 1; row <= GLYPH_ROWS; ++row) {
            for (int column = 0; column <= width && x + column < LOGICAL_WIDTH; ++column) {
                const bool set = column < width && glyph[row * GLYPH_ROW_STRIDE + column] == '1';
                if ((frame.at(x + column, y + row) == colour) != set) {
                    return false;
                }
            }
        }
        x += width + 1;
    }
    return true;
}

class Text : public RaceTest {
  protected:
    static std::string drawn(const char* text, int at_x, int at_y) {
        clear_frame();
        std::snprintf(text_buffer, TEXT_BUFFER_SIZE, "%s", text);
        draw_text(at_x, at_y, 255, 255, 255);
        return pixels_of(WHITE);
    }
};

TEST_F(Text, DrawsGlyphsSideBySide) {
    EXPECT_EQ(drawn("A", 0, 0), "1,3 0,4 2,4 0,5 1,5 2,5 0,6 2,6 0,7 2,7");
    EXPECT_EQ(drawn("", 0, 0), "");
    EXPECT_EQ(drawn("AA", 317, 235), "318,238 317,239 319,239"); // cut at the view's edges
    EXPECT_EQ(drawn("\\", 0, 0), "0,4 1,5");                     // no padding
    EXPECT_EQ(drawn("                          .", 100, 0), "179,7");
}

TEST_F(Text, SkipsCharactersWithoutAGlyph) {
    EXPECT_EQ(drawn("\x01`A{|}~\x7F\x80\xFF\xE9"
                    "A",
                    0, 0),
              drawn("AA", 0, 0));
}

TEST_F(Text, TheFontIsComplete) {
    std::uint32_t checksum = 2166136261U; // of all glyphs, by FNV-1a: one cell changed is noticed
    for (int code = 0; code < GLYPH_COUNT; ++code) {
        const char* glyph = glyph_table[code];
        ASSERT_EQ(glyph == nullptr, code < 32 || code == 96 || code > 122) << code;
        for (const char cell : std::string(glyph == nullptr ? "" : glyph)) {
            checksum = (checksum ^ static_cast<unsigned char>(cell)) * 16777619U;
        }
    }
    EXPECT_EQ(checksum, 3437754212U);
}

TEST_F(Text, TheStatusShowsTheRaceAsItIs) {
    const auto shows = [](const char* text, int at_x, int at_y) {
        draw_track_and_hud();
        return shows_text(text, at_x, at_y, WHITE);
    };
    EXPECT_TRUE(shows("Best Cycle : 999999", 146 + 26 * 3, 16));
    gear[PLAYER_SLOT] = 5;
    best_cycle[PLAYER_SLOT] = 4321;
    last_cycle[PLAYER_SLOT] = 9876;
    cycle[PLAYER_SLOT] = 120;
    penalty[PLAYER_SLOT] = 41.9F;
    for (const auto& [level, name] :
         {std::pair(EASY, "Easy"), {THOUGH, "Though"}, {ADVANCED, "Advanced"}}) {
        difficulty = level;
        EXPECT_TRUE(shows(name, 30, 44)) << name;
    }
    EXPECT_TRUE(shows("Gear : 5", 30, 30));
    EXPECT_TRUE(shows("Best Cycle : 4321", 146 + 26 * 3, 16));
    EXPECT_TRUE(shows("Race ended : 9876           Cycle : 120", 146, 30));
    EXPECT_TRUE(shows("Punition : 41", 146 + 26 * 3, 44));
}

TEST_F(Text, TheOverlayNamesTheBuildAndTheKeys) {
    race_frame();
    for (const auto& [text, row] : {std::pair("WIN32TARVIK001", 14),
                                    {"Press A,Z,UP,DOWN,LEFT,RIGHT,ESCAPE,1,2,3,[,]", 216},
                                    {"Tarvik: six gears, two tracks, five ghosts and you", 226}}) {
        EXPECT_TRUE(shows_text(text, 12, row, YELLOW)) << text;
    }
    EXPECT_EQ(pixels_of(YELLOW).find("319,"), std::string::npos) << "the lines must fit";
}

} // namespace
} // namespace tarvik::test
