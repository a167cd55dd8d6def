// Switching tracks and difficulty, and the map files behind it.
#include "platform/scripted/scripted.h"
#include "race/race_selection.h"
#include "tests/support/race_test.h"

namespace tarvik::test {
namespace {

class Selection : public RaceTest {
  protected:
    static void type(std::initializer_list<int> keys) {
        for (const int key : keys) {
            key_down[key] = 1;
        }
        handle_race_keys();
        for (const int key : keys) {
            key_down[key] = 0;
        }
    }

    static scripted::File& map_file(int number) {
        return scripted::memory_files["data/race" + std::to_string(number) + ".map"];
    }
};

TEST_F(Selection, BracketsLoadATrackAndStartTheRaceAfresh) {
    map_file(1).bytes = plain_map(9);
    map_file(2).bytes = plain_map(2);
    last_cycle[PLAYER_SLOT] = 600;
    ghost_y[6][999999] = 1.0F;
    ghost_heading[0][0] = 1.0F;
    difficulty = THOUGH;
    const auto race_after = [](std::initializer_list<int> keys) {
        best_cycle[PLAYER_SLOT] = 500;
        x = 9.0F;
        track_grid[0] = 0;
        type(keys);
        EXPECT_EQ(best_cycle[PLAYER_SLOT], BEST_CYCLE_NONE);
        EXPECT_EQ(x, 2400.0F);
        EXPECT_EQ(track_grid[0], race_number == 1 ? 9 : 2);
        EXPECT_EQ(track_grid[TRACK_MAP_BYTES - 1], track_grid[0]);
        return race_number;
    };
    EXPECT_EQ(race_after({VK_OEM_6}), 2);
    EXPECT_EQ(last_cycle[PLAYER_SLOT], 0);
    EXPECT_EQ(ghost_y[6][999999], GHOST_NOWHERE);
    EXPECT_EQ(ghost_heading[0][0], GHOST_NO_HEADING);
    EXPECT_EQ(difficulty, THOUGH);
    EXPECT_EQ(race_after({VK_OEM_6}), 2);
    EXPECT_EQ(race_after({VK_OEM_4, VK_OEM_6}), 2); // first back to track 1, then on to track 2
    EXPECT_EQ(race_after({VK_OEM_4}), 1);
    EXPECT_EQ(race_after({VK_OEM_4}), 1);
}

TEST_F(Selection, TheNextFrameShowsTheNewTrack) {
    map_file(2).bytes = plain_map(CELL_OFF_TRACK);
    key_down[VK_OEM_6] = 1;
    for (const std::uint32_t colour : {ROAD, GRASS}) {
        race_frame();
        EXPECT_EQ(drawn_frame().at(300, 100), colour);
        EXPECT_EQ(key_down[VK_OEM_6], 1) << "held, it acts in every frame";
    }
}

TEST_F(Selection, ShortLongAndUnreadableMapsChangeOnlyTheCellsThatTheyHold) {
    map_file(2).bytes = {5};
    type({VK_OEM_6});
    EXPECT_EQ(track_grid[0], 5);
    EXPECT_EQ(track_grid[1], 0);

    map_file(2) = {.bytes = plain_map(7), .read_only = true};
    x = 9.0F;
    type({VK_OEM_6});
    EXPECT_EQ(track_grid[0], 5);
    EXPECT_EQ(x, 2400.0F) << "the race starts afresh all the same";

    map_file(2).read_only = false;
    map_file(2).bytes.push_back(8); // bytes beyond the grid are ignored
    type({VK_OEM_6});
    EXPECT_EQ(track_grid[TRACK_MAP_BYTES - 1], 7);
}

TEST_F(Selection, DigitsSetTheDifficultyOnlyTheHighestWins) {
    cycle[PLAYER_SLOT] = 44;
    type({'1'});
    EXPECT_EQ(difficulty, EASY);
    type({'2'});
    EXPECT_EQ(difficulty, THOUGH);
    type({'3', '1'});
    EXPECT_EQ(difficulty, ADVANCED);
    EXPECT_EQ(cycle[PLAYER_SLOT], 44);
}

TEST_F(Selection, FunctionKeysHoldTheGameOncePerPress) {
    key_down[VK_F1] = key_down[VK_F2] = 1;
    handle_race_keys();
    handle_race_keys();
    EXPECT_EQ(scripted::slept_ms, 700U);
}

} // namespace
} // namespace tarvik::test
