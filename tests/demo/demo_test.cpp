// The real tarvik-demo: how it drives the game's own tracks, and what it refuses.
// Before the X headers, whose macros have names that GoogleTest uses.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/desktop/player.h"
#include "tests/desktop/x_server.h"
#include "tests/tools/program_run.h"
#include "tools/files/png_file.h"
#include "tools/track/track.h"

#include <cstdio>
#include <iterator>
#include <string>

namespace tarvik {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

ProgramRun drive(const TemporaryFolder& folder, const std::string& arguments) {
    return run_in(folder, "tarvik-demo --headless " + arguments);
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

class Demo : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Races, Demo, testing::Values(1, 2));

// Five laps for the ghosts, and one to see them together.
TEST_P(Demo, drives_six_laps_cleanly_and_shows_what_they_were_like) {
    const TemporaryFolder folder;
    const ProgramRun run =
        drive(folder, "--race " + std::to_string(GetParam()) + " --seed 7 --report --pictures a");
    EXPECT_EQ(run.exit_code, 0);
    EXPECT_THAT(run.text, HasSubstr("6 laps, 6 without penalty, 0 resets"));
    EXPECT_THAT(run.text, ContainsRegex("best result (5[5-9]|60)[0-9]{2}\n"));
    EXPECT_THAT(run.text, HasSubstr("tight bends 4, gate yes, five ghosts together yes"));
    for (const std::string name : {"bend-1", "bend-4", "gate", "ghosts"}) {
        EXPECT_EQ(read_png(folder / ("a/" + name + ".png"), 640).height, 480) << name;
    }
    // In the top gear for two fifths of the lap and more, and never in the first one for long.
    EXPECT_THAT(run.text, ContainsRegex("gear 1 +0\\.[0-9] s"));
    EXPECT_THAT(run.text, ContainsRegex("gear 6 +[0-9.]+ s +[45][0-9]\\."));
    EXPECT_THAT(run.text, ContainsRegex("braking zones: (9|1[0-9])\n"));
    EXPECT_THAT(run.text, ContainsRegex(GetParam() == 1 ? "bend 11 at .* right 161 degrees"
                                                        : "bend 11 at .* left  158 degrees"));
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
    EXPECT_EQ(read_png(folder / "b/frame-05000.png", 640).height, 480);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "a"), {}), 2);
    const Picture picture = read_png(folder / "a/frame-05000.png", 640);
    EXPECT_EQ(picture.rgba[0], 24) << "the pointer is not at its top left";
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

TEST(DemoWindow, drives_on_the_track_that_was_asked_for) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "data");
    write_file(folder / "data/graphics.dat", "");
    write_file(folder / "data/race1.map", std::string(MAP_BYTES, '\0'));
    write_file(folder / "ring.svg",
               "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 10000 10000'>"
               "<circle cx='2200' cy='2400' r='200' fill='none' stroke='#000' stroke-width='50'/>"
               "</svg>");
    ASSERT_EQ(run_in(folder, "tarvik-data track build ring.svg data/race2.map").text, "");
    const XServer server;
    Player player(server.display());
    const std::string command =
        "exec tarvik-demo --race 2 --difficulty 1 --laps 1 --seed 1 --from . >said";
    ChildProcess demo({"/bin/sh", "-c", in_folder(folder, command)},
                      {.environment = {{"DISPLAY", server.display()}, {"WAYLAND_DISPLAY", ""}}});
    ASSERT_TRUE(Player::waits_until([&] { return player.count_shown_windows() > 0; }));
    EXPECT_EQ(demo.wait(std::chrono::minutes(2)), 0);
    EXPECT_THAT(read_file(folder / "said"), StartsWith("lap 1: result"));
}

TEST(DemoOptions, are_explained_or_refused_in_one_line) {
    const TemporaryFolder folder;
    for (const std::string words :
         {"--race 3", "--race two", "--difficulty", "--laps 0", "--seed -1", "--seed 4294967296",
          "--fast", "race2", "--every 60", "--style wild", "--from nowhere"}) {
        const ProgramRun run = drive(folder, words);
        EXPECT_EQ(run.exit_code, 1) << words;
        EXPECT_THAT(run.text, StartsWith("tarvik-demo: "));
        EXPECT_EQ(run.text.find('\n'), run.text.size() - 1) << run.text;
    }
    // A window has no pictures to write.
    const std::string text = run_in(folder, "tarvik-demo --pictures x").text;
    EXPECT_THAT(text, StartsWith("tarvik-demo: --pictures requires --headless"));
}

} // namespace
} // namespace tarvik
