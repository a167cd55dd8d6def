// Maps from drawings and pictures and back, and packed pictures, with the real program.
#include "tests/tools/program_run.h"
#include "tools/files/png_file.h"
#include "tools/track/track.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace tarvik {
namespace {

std::string drawing(const std::string& attributes, const std::string& content) {
    return "<svg xmlns='http://www.w3.org/2000/svg' " + attributes + ">" + content + "</svg>";
}

bool is_road(const std::string& map, int x, int y) {
    return map.at(static_cast<std::size_t>(y) * MAP_SIDE + static_cast<std::size_t>(x)) ==
           static_cast<char>(CELL_ROAD);
}

/// On a page of 10 by 10 units, 1000 cells each, 400 cells wide and 4000 from the middle.
const std::string RING = drawing("viewBox='0 0 10 10'", "<circle cx='5' cy='5' r='4' fill='none' "
                                                        "stroke='#3c3c3c' stroke-width='.4'/>");

// A page of 100 by 100 units, without a viewBox: a unit is 100 cells.
TEST(DataFiles, a_drawing_becomes_road_and_grass_by_its_colours) {
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
    ASSERT_EQ(run_in(folder, "tarvik-data track build a.svg a.map").text, "");
    const std::string map = read_file(folder / "a.map");
    ASSERT_EQ(map.size(), MAP_BYTES);
    for (std::size_t i = 0; i < colours.size(); ++i) {
        const int first = static_cast<int>(i) * 100;
        for (const auto& [x, y] :
             {std::pair(first, 0), {first + 99, 249}, {first, 250}, {first + 50, 9999}}) {
            EXPECT_EQ(is_road(map, x, y), colours[i].second) << colours[i].first;
        }
    }
}

TEST(DataFiles, a_map_comes_back_from_a_preview_the_same_or_with_smooth_edges) {
    const TemporaryFolder folder;
    write_file(folder / "a.svg", RING);
    for (const std::string arguments :
         {"build a.svg a.map", "preview a.map cells.png --size 10000", "import cells.png cells.map",
          "preview a.map small.png --size 500", "import small.png small.map"}) {
        ASSERT_EQ(run_in(folder, "tarvik-data track " + arguments).text, "");
    }
    EXPECT_TRUE(read_file(folder / "a.map") == read_file(folder / "cells.map"));

    // The edges are where they were, to a fraction of the small picture's pixels of 20 cells.
    EXPECT_EQ(read_png(folder / "small.png", 500).width, 500);
    const std::string map = read_file(folder / "small.map");
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

/// All white.
Picture plain_picture(int width, int height) {
    return {width, height,
            std::vector<std::uint8_t>(static_cast<std::size_t>(width * height) * 4, 255)};
}

// An empty record is 12 zero bytes. A pipe or a link stays one, and an earlier file's permissions
// are those of the new one.
TEST(DataFiles, pictures_are_packed_as_the_game_reads_them) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "in");
    write_png(folder / "in/3-sign.png",
              Picture{2, 2, {1, 2, 3, 255, 0, 0, 0, 255, 200, 100, 0, 127, 4, 5, 6, 128}});
    write_png(folder / "in/1399.PNG", plain_picture(1, 1));
    write_file(folder / "in/notes.txt", "left out");
    const auto [exit_code, text] =
        run_in(folder, "mkfifo pipe; tarvik-data pictures pack in pipe & "
                       "timeout 60 cat pipe >read; wait; test -p pipe && "
                       "echo earlier >kept && chmod 640 kept && ln -s kept link && "
                       "tarvik-data pictures pack in link && cmp read kept && "
                       "test -L link && stat -c %a kept && cat read");
    EXPECT_EQ(exit_code, 0);
    EXPECT_EQ(text, "640\n" + std::string(3 * 12, '\0') +
                        std::string("\2\0\0\0\2\0\0\0\3\0\0\0", 12) +
                        std::string("\1\2\3\0\0\0\0\0\0\4\5\6", 12) + std::string(1395 * 12, '\0') +
                        std::string("\1\0\0\0\1\0\0\0\3\0\0\0\xff\xff\xff", 15));
}

TEST(DataFiles, bad_inputs_are_refused_in_a_line_and_the_earlier_file_is_kept) {
    const TemporaryFolder folder;
    run_in(folder, "mkdir none flat wide car late twice");
    write_file(folder / "good.svg", RING);
    write_file(folder / "kept", "earlier");
    write_file(folder / "text.svg", "no drawing\n");
    write_file(folder / "text.png", "no picture\n");
    write_file(folder / "empty.map", "");
    write_png(folder / "flat/1.png", plain_picture(3, 2));
    write_png(folder / "wide/1.png", plain_picture(1025, 1));
    write_png(folder / "car/car.png", plain_picture(1, 1));
    write_png(folder / "late/1400.png", plain_picture(1, 1));
    write_png(folder / "twice/7.png", plain_picture(1, 1));
    write_png(folder / "twice/007.png", plain_picture(1, 1));
    const std::set<std::string> before = folder.names();
    const auto refused = [&](const std::string& arguments, const std::string& words) {
        const auto [exit_code, text] = run_in(folder, "ulimit -f 100; tarvik-data " + arguments);
        EXPECT_EQ(exit_code, 1) << arguments;
        EXPECT_THAT(text, testing::StartsWith("tarvik-data: " + words));
        EXPECT_EQ(text.find('\n'), text.size() - 1) << text;
        EXPECT_EQ(read_file(folder / "kept"), "earlier");
        EXPECT_EQ(folder.names(), before);
    };
    refused("track build nowhere.svg kept", "cannot read nowhere.svg: No such file");
    refused("track watch nowhere.svg kept", "cannot read nowhere.svg: No such file");
    refused("track build . kept", "cannot read .: Is a directory");
    refused("track build text.svg kept", "text.svg is not an SVG drawing");
    refused("track build good.svg nowhere/a.map", "cannot write nowhere/a.map: No such file");
    refused("track build good.svg /dev/full", "cannot write /dev/full: No space left on device");
    refused("track build good.svg kept", "cannot write kept: File too large");
    refused("track build text.png kept", "text.png is damaged or not a PNG picture");
    refused("track build flat/1.png kept", "flat/1.png is not square: 3 by 2");
    refused("track preview empty.map kept",
            "empty.map is not a track map: it has 0 bytes, a map has 100000000");
    refused("track check /dev/zero", "/dev/zero is not a track map: it has more bytes");
    refused("track preview empty.map kept --size 0", "--size");
    refused("", "A subcommand is required");
    refused("pictures pack none kept", "no PNG files in none");
    refused("pictures pack wide kept", "wide/1.png is 1025 by 1 pixels, more than the 1024 by");
    refused("pictures pack car kept", "car/car.png: the name must be a sprite number");
    refused("pictures pack late kept", "late/1400.png: sprite numbers end at 1399");
    refused("pictures pack twice kept", "twice/007.png and twice/7.png have the same number");
    EXPECT_EQ(run_in(folder, "tarvik-data track check empty.map 2>/dev/null").text, "");
}

// The program is started again when it was done before the signal came.
TEST(DataFiles, a_map_is_whole_and_alone_when_a_signal_comes_while_it_is_written) {
    const TemporaryFolder folder;
    write_file(folder / "a.svg", RING);
    for (const std::string signal : {"INT", "TERM", "HUP"}) {
        run_in(folder, "until [ ${code:-0} -gt 128 ]; do rm -f a.map; env --default-signal "
                       "tarvik-data track build a.svg a.map & until ls | grep -q map; do :; done; "
                       "kill -" +
                           signal + " $!; wait $!; code=$?; done");
        EXPECT_THAT(folder.names(), testing::ElementsAre("a.map", "a.svg")) << signal;
        EXPECT_EQ(std::filesystem::file_size(folder / "a.map"), MAP_BYTES) << signal;
    }
}

TEST(DataFiles, a_watched_drawing_has_its_map_made_again_whenever_it_is_saved) {
    const TemporaryFolder folder;
    const auto page = [](int column) { // with a road in one column
        return drawing("width='100' height='100'",
                       "<path stroke='#000' d='M " + std::to_string(column) + ".5,0 V 100'/>");
    };
    write_file(folder / "a.svg", page(1));
    run_in(folder, "mkfifo said");
    const std::string command = "exec timeout 300 tarvik-data track watch a.svg a.map >said 2>&1";
    std::FILE* watch = popen(in_folder(folder, command).c_str(), "w");
    std::ifstream said(folder / "said");
    const auto says = [&](const std::string& words) {
        std::string line;
        while (std::getline(said, line) && !line.starts_with(words)) {
        }
        return said.good();
    };
    const auto shows = [&](int column) {
        return says("a.svg is saved: press [ to race on it") &&
               is_road(read_file(folder / "a.map"), column * 100 + 50, 5000);
    };
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
    EXPECT_TRUE(says("tarvik-data: a.svg is not an SVG drawing"));
    EXPECT_TRUE(is_road(read_file(folder / "a.map"), 450, 5000));
    EXPECT_EQ(pclose(watch), 0);
}

} // namespace
} // namespace tarvik
