// Laps through the box, their results and their ghosts.
#include "race/ghosts.h"
#include "race/laps.h"
#include "render/presentation.h"
#include "tests/support/race_test.h"

namespace tarvik::test {
namespace {

class Lap : public RaceTest {
  protected:
    static bool starts_at(float at_x, float at_y) {
        x = at_x;
        y = at_y;
        cycle[PLAYER_SLOT] = 0;
        check_lap();
        return cycle[PLAYER_SLOT] == 1;
    }

    static void complete(std::int32_t frame_count, float with_penalty) {
        x = y = 2400.0F;
        cycle[PLAYER_SLOT] = frame_count;
        penalty[PLAYER_SLOT] = with_penalty;
        check_lap();
    }
};

TEST_F(Lap, StartsInsideTheOpenBoxOnly) {
    EXPECT_TRUE(starts_at(2392.001F, 2407.999F));
    for (const float edge : {2392.0F, 2408.0F}) {
        EXPECT_FALSE(starts_at(edge, 2400.0F)) << edge;
        EXPECT_FALSE(starts_at(2400.0F, edge)) << edge;
    }
}

TEST_F(Lap, ResultsAddTheTruncatedPenaltyAndKeepItOnDisplay) {
    struct Result {
        std::int32_t frame_count;
        float penalty;
        std::int32_t last, best, count;
    };
    for (const Result& each : {Result{1250, 37.6F, 1287, 1287, 0},
                               {1288, 0.0F, 1288, 1287, 0},
                               {301, 0.0F, 301, 301, 0},
                               {300, 5.0F, 301, 301, 300}}) { // too short to count
        complete(each.frame_count, each.penalty);
        EXPECT_EQ(last_cycle[PLAYER_SLOT], each.last);
        EXPECT_EQ(best_cycle[PLAYER_SLOT], each.best);
        EXPECT_EQ(cycle[PLAYER_SLOT], each.count);
        EXPECT_EQ(penalty[PLAYER_SLOT], each.penalty);
    }
    EXPECT_TRUE(starts_at(2400.0F, 2400.0F));
    EXPECT_EQ(penalty[PLAYER_SLOT], 0.0F);
}

TEST_F(Lap, RecordsWhereTheCarWasPointingWhereItDoes) {
    place(5000.0F, 5000.0F, 90.0F, 0.25F);
    cycle[PLAYER_SLOT] = 7;
    key_down[VK_LEFT] = 1;
    frames(1);
    EXPECT_EQ(ghost_x[PLAYER_SLOT][7], 5000.0F);
    EXPECT_FLOAT_EQ(ghost_heading[PLAYER_SLOT][7], 90.0F + 1.45F);
    EXPECT_EQ(ghost_x[PLAYER_SLOT][8], GHOST_NOWHERE);
    EXPECT_EQ(cycle[PLAYER_SLOT], 8);

    cycle[PLAYER_SLOT] = 0; // no lap, no recording
    record_lap_frame();
    EXPECT_EQ(ghost_x[PLAYER_SLOT][0], GHOST_NOWHERE);
}

TEST_F(Lap, GhostsMoveThroughAllSlotsAndKeepOlderEndsAfterShorterLaps) {
    ghost_x[PLAYER_SLOT][GHOST_FRAMES - 1] = 42.0F;
    for (int lap = 1; lap <= 7; ++lap) {
        const std::int32_t length = lap == 7 ? 310 : 400; // the last lap is shorter
        for (cycle[PLAYER_SLOT] = 2; cycle[PLAYER_SLOT] < length; ++cycle[PLAYER_SLOT]) {
            const auto place_of_lap = static_cast<float>(lap);
            place(place_of_lap * 1000, place_of_lap, place_of_lap * 10, 0.0F);
            record_lap_frame();
        }
        complete(length, 0.0F);
    }
    const auto entries = [](float** buffers, int frame) {
        std::vector<float> found;
        for (int slot = PLAYER_SLOT; slot <= LAST_GHOST_SLOT + 1; ++slot) {
            found.push_back(buffers[slot][frame]);
        }
        return found;
    };
    using Floats = std::vector<float>;
    EXPECT_EQ(entries(ghost_x, 300), (Floats{7000, 7000, 6000, 5000, 4000, 3000, 111}));
    EXPECT_EQ(entries(ghost_y, 300), (Floats{7, 7, 6, 5, 4, 3, 111}));
    EXPECT_EQ(entries(ghost_heading, 300), (Floats{70, 70, 60, 50, 40, 30, 180}));
    EXPECT_EQ(entries(ghost_x, 350), (Floats{6000, 6000, 6000, 5000, 4000, 3000, 111}));
    EXPECT_EQ(entries(ghost_x, 0), Floats(7, 111.0F));
    EXPECT_EQ(ghost_x[FIRST_GHOST_SLOT][GHOST_FRAMES - 1], 42.0F);

    // The player's recording and the newest ghost are equal, not the same.
    ghost_x[PLAYER_SLOT][300] = 1.0F;
    EXPECT_EQ(ghost_x[FIRST_GHOST_SLOT][300], 7000.0F);
}

TEST_F(Lap, GhostsAreDrawnInTheirColoursAtTheFrameOfTheLap) {
    cycle[PLAYER_SLOT] = 9;
    for (int slot = FIRST_GHOST_SLOT; slot <= LAST_GHOST_SLOT; ++slot) {
        ghost_x[slot][9] = static_cast<float>(slot * 30) + 0.5F;
        ghost_y[slot][9] = 60.5F;
        ghost_heading[slot][9] = 0.0F;
    }
    clear_frame();
    draw_ghosts();
    int column = 60; // each a nose, pointing down, and a rear corner
    for (const std::uint32_t colour : {0xFF0000U, 0x0000FFU, 0x00FF00U, 0xFFFF00U, 0x00FFFFU}) {
        EXPECT_EQ(drawn_frame().at(column, 66), colour);
        EXPECT_EQ(drawn_frame().at(column - 4, 56), colour);
        column += 30;
    }
}

} // namespace
} // namespace tarvik::test
