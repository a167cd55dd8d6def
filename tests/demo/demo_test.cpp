// The real tarvik-demo: how it drives the game's own tracks, and what it refuses.
#include "tests/tools/program_run.h"
#include "tools/files/png_file.h"
#include "tools/track/track.h"

#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace tarvik {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

ProgramRun drive(const TemporaryFolder& folder, const std::string& arguments) {
    return run_program(program_beside("tarvik-demo"), folder, "--headless " + arguments);
}

/// Frames of the one lap that is driven.
int result_of(const std::string& arguments) {
    const TemporaryFolder folder;
    const ProgramRun run = drive(folder, "--laps 1 " + arguments);
    EXPECT_EQ(run.exit_code, 0) << run.text;
    int result = 0;
    std::sscanf(run.text.c_str(), "seed %*u lap 1: result %d", &result);
    return result;
}

class Demo : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(Races, Demo, testing::Values("1", "2"),
                         [](const auto& race) { return race.param; });

// Five laps for the ghosts, and one to see them together.
TEST_P(Demo, drives_six_laps_cleanly_and_shows_what_they_were_like) {
    const TemporaryFolder folder;
    const ProgramRun run =
        drive(folder, "--race " + GetParam() + " --seed 7 --report --pictures shots");
    EXPECT_EQ(run.exit_code, 0);
    EXPECT_THAT(run.text, HasSubstr("6 laps, 6 without penalty, 0 resets"));
    EXPECT_THAT(run.text, ContainsRegex("best result (5[5-9]|60)[0-9]{2}\n"));
    EXPECT_THAT(run.text, HasSubstr("tight bends 4, gate yes, five ghosts together yes"));
    for (const std::string name : {"bend-1", "bend-4", "gate", "ghosts"}) {
        EXPECT_EQ(read_png(folder / ("shots/" + name + ".png"), 640).height, 480) << name;
    }
    // In the top gear for two fifths of the lap and more, and never in the first one for long.
    EXPECT_THAT(run.text, ContainsRegex("gear 1 +0\\.[0-9] s"));
    EXPECT_THAT(run.text, ContainsRegex("gear 6 +[0-9.]+ s +[45][0-9]\\."));
    EXPECT_THAT(run.text, ContainsRegex("braking zones: (9|1[0-9])\n"));
    EXPECT_THAT(run.text, ContainsRegex("bend 10 at \\( *[0-9]+, *[0-9]+\\): +(left|right)"));
}

TEST(DemoDrive, is_the_same_with_the_same_seed_and_slower_in_other_styles) {
    const int best = result_of("--seed 5");
    EXPECT_EQ(result_of("--seed 5 --style best"), best);
    EXPECT_NE(result_of("--seed 6"), best);
    const int middle = result_of("--seed 5 --style middle");
    EXPECT_GT(middle, best + best / 20);
    EXPECT_GT(result_of("--seed 5 --style cautious"), middle + middle / 10);
}

TEST(DemoDrive, is_pictured_in_its_last_lap_at_the_chosen_difficulty) {
    const TemporaryFolder folder;
    EXPECT_EQ(drive(folder, "--laps 2 --seed 7 --pictures a --every 2500").exit_code, 0);
    drive(folder, "--laps 2 --seed 7 --pictures b --every 5000 --difficulty 1");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "a"), {}), 2);
    // The pictures name the difficulty.
    EXPECT_NE(read_file(folder / "a/frame-05000.png"), read_file(folder / "b/frame-05000.png"));
}

TEST(DemoDrive, does_not_begin_without_a_whole_track_that_leads_round) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "data");
    const auto refused = [&](const std::string& words) {
        const ProgramRun run = drive(folder, "--seed 1 --from .");
        EXPECT_EQ(run.exit_code, 1);
        EXPECT_THAT(run.text, HasSubstr(words));
    };
    refused("data/race1.map cannot be read: No such file");
    write_file(folder / "data/race1.map", "short");
    refused("data/race1.map has 5 bytes instead of 100000000");
    write_file(folder / "data/race1.map", std::string(MAP_BYTES, static_cast<char>(CELL_GRASS)));
    refused("data/graphics.dat are missing");
    write_file(folder / "data/graphics.dat", "");
    refused("tarvik-demo: track 1 has no road that leads");
}

TEST(DemoOptions, are_explained_or_refused_in_one_line) {
    const TemporaryFolder folder;
    EXPECT_EQ(drive(folder, "--help").exit_code, 0);
    for (const std::string words :
         {"--race 3", "--race two", "--difficulty", "--laps 0", "--seed -1", "--seed 4294967296",
          "--fast", "race2", "--every 60", "--style wild", "--from nowhere"}) {
        const ProgramRun run = drive(folder, words);
        EXPECT_EQ(run.exit_code, 1) << words;
        EXPECT_THAT(run.text, StartsWith("tarvik-demo: "));
        EXPECT_EQ(run.text.find('\n'), run.text.size() - 1) << run.text;
    }
    // A window has no pictures to write.
    const ProgramRun run =
        run_program(program_beside("tarvik-demo"), folder, "--pictures x", "unset DISPLAY;");
    EXPECT_THAT(run.text, StartsWith("tarvik-demo: --pictures requires --headless"));
}

} // namespace
} // namespace tarvik
