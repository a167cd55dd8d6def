// Which cars are put back, and what that takes from the player.
#include "race/car_motion.h"
#include "race/crash.h"
#include "tests/support/race_test.h"

#include <cstring>

namespace tarvik::test {
namespace {

class Crash : public RaceTest {
  protected:
    static int first_draw(std::uint32_t seed) {
        srand(seed);
        return rand();
    }

    /// Whether a car with so many corners off the road is put back, after a given seed.
    static bool resets(std::int32_t at_difficulty, std::int32_t with_hits, std::uint32_t seed) {
        difficulty = at_difficulty;
        x = 1000.0F;
        hits = with_hits;
        srand(seed);
        apply_crash_rules();
        return x == 2400.0F;
    }

    /// The same, where nothing may be drawn.
    static bool resets_without_a_draw(std::int32_t at_difficulty, std::int32_t with_hits) {
        const bool reset = resets(at_difficulty, with_hits, 9);
        const int next = rand();
        EXPECT_EQ(next, first_draw(9));
        return reset;
    }
};

TEST_F(Crash, AdvancedResetsAtThreeCornersWithoutADraw) {
    for (const std::int32_t corners : {0, 1, 2, 3, 4}) {
        EXPECT_EQ(resets_without_a_draw(ADVANCED, corners), corners >= 3);
    }
    EXPECT_FALSE(resets_without_a_draw(EASY, 0));
    EXPECT_FALSE(resets_without_a_draw(THOUGH, 0));
}

TEST_F(Crash, EasierLevelsResetByChance) {
    int resets_seen = 0;
    for (std::uint32_t i = 0; i < 4000; ++i) {
        const std::uint32_t seed = i * 2654435761U;
        const int draw = first_draw(seed);
        ASSERT_EQ(resets(THOUGH, 1, seed), draw % 160 == 1) << "seed " << seed;
        ASSERT_EQ(resets(EASY, 4, seed), draw % 260 == 1) << "seed " << seed;
        resets_seen += draw % 260 == 1 ? 1 : 0;
    }
    EXPECT_GT(resets_seen, 0);
}

TEST_F(Crash, GivesUpALapBeyondItsLimitWithoutADraw) {
    cycle[PLAYER_SLOT] = 990000;
    EXPECT_FALSE(resets_without_a_draw(EASY, 0));
    cycle[PLAYER_SLOT] = 990001;
    EXPECT_TRUE(resets_without_a_draw(EASY, 4));
    EXPECT_EQ(cycle[PLAYER_SLOT], 0);
}

TEST_F(Crash, AResetKeepsBestLapGhostsAndSettingsOnly) {
    place(2400.0F, 2400.0F, 77.0F, 2.0F);
    best_cycle[PLAYER_SLOT] = 700;
    ghost_x[2][5] = 42.0F;
    race_number = 2;
    cycle[PLAYER_SLOT] = 400; // a lap that the box would complete
    for (std::int32_t* value : {gear, last_cycle, steer_count}) {
        value[PLAYER_SLOT] = 3;
    }
    std::memset(track_grid, CELL_OFF_TRACK, TRACK_MAP_BYTES);
    race_frame();
    EXPECT_EQ(std::pair(x, y), std::pair(2400.0F, 2480.0F));
    EXPECT_EQ(degrees, 180.0F);
    EXPECT_EQ(velocity, 0.0F);
    EXPECT_EQ(penalty[PLAYER_SLOT], 0.0F);
    for (const std::int32_t* value : {gear, cycle, last_cycle, steer_count, frames_since_steer}) {
        EXPECT_EQ(value[PLAYER_SLOT], 0);
    }
    EXPECT_EQ(best_cycle[PLAYER_SLOT], 700);
    EXPECT_EQ(ghost_x[2][5], 42.0F);
    EXPECT_EQ(race_number, 2);
}

} // namespace
} // namespace tarvik::test
