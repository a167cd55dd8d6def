// Which cars are put back, and what that takes from the player.
#include "race/car_motion.h"
#include "race/crash.h"
#include "tests/support/race_test.h"

#include <set>

namespace tarvik::test {
namespace {

class Crash : public RaceTest {
  protected:
    /// Whether a car with so many corners off the road is put back, after a given seed.
    static bool resets(std::int32_t at_difficulty, std::int32_t with_hits, std::uint32_t seed) {
        difficulty = at_difficulty;
        x = 1000.0F;
        srand(seed);
        hits = with_hits;
        apply_crash_rules();
        return x == 2400.0F;
    }

    static bool drew_nothing_since(std::uint32_t seed) {
        const int next = rand();
        return next == first_draw(seed);
    }

    static int first_draw(std::uint32_t seed) {
        srand(seed);
        return rand();
    }
};

TEST_F(Crash, AdvancedResetsAtThreeCornersWithoutADraw) {
    for (const std::uint32_t seed : {1U, 2U, 3U}) {
        for (const std::int32_t corners : {0, 1, 2, 3, 4}) {
            EXPECT_EQ(resets(ADVANCED, corners, seed), corners >= 3);
            EXPECT_TRUE(drew_nothing_since(seed));
        }
        for (const std::int32_t level : {EASY, THOUGH}) {
            EXPECT_FALSE(resets(level, 0, seed));
            EXPECT_TRUE(drew_nothing_since(seed));
        }
    }
}

TEST_F(Crash, EasierLevelsResetByChance) {
    std::set<int> chances;
    for (std::uint32_t i = 0; i < 4000; ++i) {
        const std::uint32_t seed = i * 2654435761U;
        const int draw = first_draw(seed);
        ASSERT_EQ(resets(THOUGH, 1, seed), draw % 160 == 1) << "seed " << seed;
        ASSERT_EQ(resets(EASY, 4, seed), draw % 260 == 1) << "seed " << seed;
        chances.insert({draw % 160, 1000 + draw % 260});
    }
    EXPECT_TRUE(chances.contains(1) && chances.contains(1001));
}

TEST_F(Crash, GivesUpALapBeyondItsLimitWithoutADraw) {
    cycle[PLAYER_SLOT] = 990000;
    EXPECT_FALSE(resets(EASY, 0, 9));
    cycle[PLAYER_SLOT] = 990001;
    EXPECT_TRUE(resets(EASY, 4, 9));
    EXPECT_TRUE(drew_nothing_since(9));
    EXPECT_EQ(cycle[PLAYER_SLOT], 0);
}

TEST_F(Crash, AResetKeepsBestLapGhostsAndSettingsOnly) {
    place(2400.0F, 2400.0F, 77.0F, 2.0F);
    best_cycle[PLAYER_SLOT] = 700;
    ghost_x[2][5] = 42.0F;
    difficulty = ADVANCED;
    race_number = 2;
    gear[PLAYER_SLOT] = 3;
    cycle[PLAYER_SLOT] = 400;
    last_cycle[PLAYER_SLOT] = 800;
    steer_count[PLAYER_SLOT] = 20;
    penalty[PLAYER_SLOT] = 0.0F;
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
