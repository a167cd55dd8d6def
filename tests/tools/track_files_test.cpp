// Maps from drawings and pictures and back, with the real program.
#include "tests/tools/program_run.h"
#include "tests/tools/temporary_folder.h"
#include "tools/files/png_file.h"
#include "tools/track/track.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace tarvik {
namespace {

using Names = std::vector<std::string>;

std::string drawing(const std::string& attributes, const std::string& content) {
    return "<svg xmlns='http://www.w3.org/2000/svg' " + attributes + ">" + content + "</svg>";
}

bool is_road(const std::string& map, int x, int y) {
    return map.at(static_cast<std::size_t>(y) * MAP_SIDE + static_cast<std::size_t>(x)) ==
           static_cast<char>(CELL_ROAD);
}

// A page of 100 by 100 units, without a viewBox: a unit is 100 cells.
TEST(TrackFiles, a_drawing_becomes_road_and_grass_by_its_colours) {
    const TemporaryFolder folder;
    const std::vector<std::pair<std::string, bool>> colours = {
        {"#000", true},     {"#3c3c3c", true},  {"#9f9f9f", true},  {"#00f", true},
        {"#a0a0a0", false}, {"#fff", false},    {"#00c800", false}, {"#006400", false},
        {"#228b22", false}, {"#ffff00", false}, {"none", false}};
    std::string squares;
    for (std::size_t i = 0; i < colours.size(); ++i) {
        squares += "<rect x='" + std::to_string(i) + "' width='1' height='100' fill='" +
                   colours[i].first + "'/>";
    }
    write_file(folder / "a.svg", drawing("width='100' height='100'", squares));
    ASSERT_EQ(run_tarvik_data(folder, "track build a.svg a.map").error, "");
    const std::string map = read_file(folder / "a.map");
    ASSERT_EQ(map.size(), MAP_BYTES);
    for (std::size_t i = 0; i < colours.size(); ++i) {
        const int first = static_cast<int>(i) * 100;
        for (const auto& [x, y] : {std::pair(first, 0), {first + 99, 249}, {first, 250}}) {
            EXPECT_EQ(is_road(map, x, y), colours[i].second) << colours[i].first;
        }
        EXPECT_EQ(is_road(map, first + 50, 9999), colours[i].second) << colours[i].first;
    }
}

TEST(TrackFiles, a_preview_with_a_pixel_a_cell_gives_the_same_map_back) {
    const TemporaryFolder folder;
    write_file(folder / "a.svg",
               drawing("viewBox='0 0 10 10'", "<circle cx='4' cy='5' r='3.3' fill='none' "
                                              "stroke='#3c3c3c' stroke-width='.1'/>"));
    ASSERT_EQ(run_tarvik_data(folder, "track build a.svg a.map").exit_code, 0);
    ASSERT_EQ(run_tarvik_data(folder, "track preview a.map a.png --size 10000").error, "");
    ASSERT_EQ(run_tarvik_data(folder, "track build a.png b.map").exit_code, 0);
    const std::string map = read_file(folder / "a.map");
    EXPECT_TRUE(map == read_file(folder / "b.map"));
    EXPECT_TRUE(is_road(map, 7300, 5000));
}

// The same ring by way of a small picture: the edges lie where they were, to a fraction of a pixel.
TEST(TrackFiles, a_small_picture_is_scaled_up_with_smooth_edges) {
    const TemporaryFolder folder;
    write_file(folder / "a.svg",
               drawing("viewBox='0 0 10 10'", "<circle cx='5' cy='5' r='4' fill='none' "
                                              "stroke='#3c3c3c' stroke-width='.4'/>"));
    ASSERT_EQ(run_tarvik_data(folder, "track build a.svg a.map").exit_code, 0);
    ASSERT_EQ(run_tarvik_data(folder, "track preview a.map a.png --size 500").error, "");
    EXPECT_EQ(read_png(folder / "a.png", 500).width, 500);
    ASSERT_EQ(run_tarvik_data(folder, "track build a.png a.map").exit_code, 0);
    const std::string map = read_file(folder / "a.map");
    for (int degree = 0; degree < 360; ++degree) {
        const auto road_at = [&](double radius) {
            const double angle = degree * 3.14159265 / 180;
            return is_road(map, static_cast<int>(5000 + radius * std::cos(angle)),
                           static_cast<int>(5000 + radius * std::sin(angle)));
        };
        ASSERT_TRUE(road_at(3812) && road_at(4188)) << degree;
        ASSERT_TRUE(!road_at(3788) && !road_at(4212)) << degree;
    }
}

TEST(TrackFiles, refuses_bad_inputs_and_keeps_the_earlier_map) {
    const TemporaryFolder folder;
    write_file(folder / "kept.map", "earlier");
    write_file(folder / "text.svg", "no drawing\n");
    write_file(folder / "cut.svg", "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 9 9'><g>");
    write_file(folder / "oblong.svg", drawing("viewBox='0 0 20 10'", ""));
    write_file(folder / "unsized.svg", drawing("", ""));
    write_file(folder / "good.svg", drawing("viewBox='0 0 10 10'", ""));
    write_file(folder / "text.png", "no picture\n");
    write_png(folder / "oblong.png", Picture{2, 1, {0, 0, 0, 255, 0, 0, 0, 255}});
    write_file(folder / "empty.map", "");
    const Names before = folder.names();

    const auto refused = [&](const std::string& arguments, const std::string& words,
                             const std::string& first = "") {
        const ProgramRun run = run_tarvik_data(folder, arguments, first);
        EXPECT_EQ(run.exit_code, 1) << arguments;
        EXPECT_NE(run.error.find(words), std::string::npos) << run.error;
        EXPECT_EQ(run.error.find('\n'), run.error.size() - 1) << run.error;
        EXPECT_EQ(read_file(folder / "kept.map"), "earlier");
        EXPECT_EQ(folder.names(), before);
    };
    refused("track build nowhere.svg kept.map", "cannot read nowhere.svg: No such file");
    refused("track build . kept.map", "cannot read .: Is a directory");
    refused("track build text.svg kept.map", "text.svg is not an SVG drawing");
    refused("track build cut.svg kept.map", "cut.svg is not an SVG drawing");
    refused("track build oblong.svg kept.map", "oblong.svg is not square: its page is 20 by 10");
    refused("track build unsized.svg kept.map", "unsized.svg has no size");
    refused("track build good.svg nowhere/a.map", "cannot write nowhere/a.map: No such file");
    refused("track build good.svg .", "cannot write .: it is a folder");
    refused("track build good.svg /dev/full", "cannot write /dev/full: No space left on device");
    refused("track build good.svg kept.map", "cannot write kept.map: File too large",
            "ulimit -f 100;");
    refused("track build nowhere.png kept.map", "cannot read nowhere.png");
    refused("track build text.png kept.map", "text.png is not a PNG picture");
    refused("track build oblong.png kept.map", "oblong.png is not square: 2 by 1");
    refused("track preview empty.map kept.map", "it has 0 bytes, a map has 100000000");
    refused("track preview empty.map kept.map --size 0", "--size");
    refused("track check empty.map", "it has 0 bytes, a map has 100000000");
    refused("track check", "TRACK is required");
    refused("", "subcommand is required");
}

bool comes_true(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!condition() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return condition();
}

TEST(TrackFiles, a_watched_drawing_has_its_map_made_again_whenever_it_is_saved) {
    const TemporaryFolder folder;
    const auto page = [](int column) { // with a road in one column
        return drawing("width='100' height='100'",
                       "<path stroke='#000' d='M " + std::to_string(column) + ".5,0 V 100'/>");
    };
    const auto shows = [&](int column) {
        return comes_true([&] {
            std::ifstream map(folder / "a.map", std::ios::binary);
            map.seekg(std::streamoff{5000} * MAP_SIDE + column * 100 + 50);
            return map.get() == CELL_ROAD;
        });
    };
    write_file(folder / "a.svg", page(1));
    const std::string command = "cd '" + folder.path().string() + "'; exec '" +
                                TARVIK_DATA_PROGRAM + "' track watch a.svg a.map 2>faults >said";
    std::FILE* watch = popen(command.c_str(), "w");
    ASSERT_NE(watch, nullptr);
    EXPECT_TRUE(shows(1)); // drawn since the map was made
    write_file(folder / "a.svg", page(2));
    EXPECT_TRUE(shows(2));
    write_file(folder / "b.svg", page(3));
    std::filesystem::rename(folder / "b.svg", folder / "a.svg");
    EXPECT_TRUE(shows(3));
    std::filesystem::rename(folder / "a.svg", folder / "a.svg~"); // as editors keep the old one
    write_file(folder / "a.svg", page(4));
    EXPECT_TRUE(shows(4));
    write_file(folder / "a.svg", page(5).substr(0, 80));
    EXPECT_TRUE(comes_true([&] { return !read_file(folder / "faults").empty(); }));
    EXPECT_TRUE(shows(4));
    EXPECT_EQ(pclose(watch), 0);
    EXPECT_THAT(read_file(folder / "said"),
                testing::StartsWith("a.svg is saved: press [ to race on it\n"));
}

} // namespace
} // namespace tarvik
