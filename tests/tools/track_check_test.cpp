// The check of a track: every fault is found, named and placed, and nothing harmless is blamed.
#include "tools/track/track_check.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tuple>

namespace tarvik {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

struct Area { // all edges included
    int left;
    int top;
    int right;
    int bottom;
};

struct Fill {
    std::uint8_t cell;
    Area area;
};
constexpr Fill road(int left, int top, int right, int bottom) {
    return {2, {left, top, right, bottom}}; // as is every value but that of grass
}
constexpr Fill grass(int left, int top, int right, int bottom) {
    return {CELL_GRASS, {left, top, right, bottom}};
}

/// A rectangular loop with its middle lines at x 1600 and 2400, y 2150 and 2600; the road is 100
/// cells wide, and 24 cells on both sides of the start/finish box. It is driven up through the box,
/// to the left along the top, down, and back along the bottom.
const std::vector<Fill> LOOP = {road(1550, 2100, 2449, 2649), grass(1650, 2200, 2349, 2549),
                                grass(2350, 2350, 2387, 2450), grass(2412, 2350, 2449, 2450)};

/// Checks the loop as these changes make it.
TrackReport check(const std::vector<Fill>& changes) {
    constexpr int SIDE = 2700;
    std::vector<std::uint8_t> cells(static_cast<std::size_t>(SIDE) * SIDE, CELL_GRASS);
    const TrackView track{cells.data(), SIDE};
    for (const auto& fills : {LOOP, changes}) {
        for (const auto& [cell, area] : fills) {
            for (int y = area.top; y <= area.bottom; ++y) {
                std::fill_n(&cells[track.index(area.left, y)], area.right - area.left + 1, cell);
            }
        }
    }
    return check_track(track);
}

std::vector<Fill> stepping_stones() {
    std::vector<Fill> stones;
    for (int y = 2206; y < 2545; y += 14) {
        stones.push_back(road(2000, y, 2009, y + 9));
    }
    return stones;
}

/// A name, how a small track is changed, the one fault that it then has, and where it is found.
using Faulty = std::tuple<const char*, std::vector<Fill>, const char*, Area>;

class TrackCheck : public testing::TestWithParam<Faulty> {};

TEST_P(TrackCheck, finds_the_fault) {
    const auto& [name, changes, words, area] = GetParam();
    const TrackReport report = check(changes);
    ASSERT_THAT(report.faults, SizeIs(1));
    const auto& [cell, text] = report.faults[0];
    EXPECT_THAT(text, HasSubstr(words));
    EXPECT_TRUE(cell.x >= area.left && cell.x <= area.right && cell.y >= area.top &&
                cell.y <= area.bottom)
        << "it is at (" << cell.x << ", " << cell.y << ")";
}

INSTANTIATE_TEST_SUITE_P(
    Tracks, TrackCheck,
    testing::Values(
        Faulty("box", {grass(2407, 2392, 2407, 2392)}, "box", {2407, 2392, 2407, 2392}),
        Faulty("start", {grass(2395, 2484, 2395, 2484)}, "start", {2395, 2484, 2395, 2484}),
        Faulty("lane", {grass(2350, 2440, 2449, 2440)}, "straight up", {2395, 2440, 2395, 2440}),
        Faulty("hair_cut", {grass(1500, 2300, 1690, 2300)}, "ends here", {1550, 2299, 1649, 2299}),
        // One row of cells that leaves a gap of 8, and a gap that would do at the gate.
        Faulty("pinch", {grass(1500, 2300, 1599, 2300), grass(1608, 2300, 1690, 2300)},
               "8 cells wide, even at the gate it must be 16", {1600, 2300, 1607, 2300}),
        Faulty("narrow_far_from_gate",
               {grass(1500, 2300, 1589, 2350), grass(1610, 2300, 1690, 2350)},
               "20 cells wide, away from the gate it must be 24", {1590, 2300, 1609, 2350}),
        Faulty("column_left_of_gate", {road(2387, 2392, 2387, 2407)}, "gate can be missed",
               {2387, 2392, 2387, 2408}),
        Faulty("road_around_gate",
               {road(2450, 2150, 2550, 2199), road(2500, 2150, 2550, 2600),
                road(2450, 2560, 2550, 2600)},
               "gate can be missed", {2500, 2400, 2550, 2400}),
        Faulty("loop_too_short",
               {grass(1500, 2000, 2349, 2690), road(2250, 2330, 2449, 2354),
                road(2250, 2490, 2449, 2514), road(2250, 2330, 2274, 2514)},
               "too short", {2400, 2480, 2400, 2480}),
        // Enough for two corners of a car.
        Faulty("second_hairline", {road(2000, 2200, 2000, 2549)}, "divides",
               {1980, 2150, 2039, 2600}),
        Faulty("ten_cells_of_grass_between_arms", {road(1950, 2200, 2049, 2539)}, "two corners",
               {1940, 2150, 2060, 2600}),
        Faulty("stepping_stones", stepping_stones(), "decoration shortens a lap",
               {1980, 2190, 2039, 2560}),
        Faulty("decoration_past_gate", {road(2360, 2370, 2385, 2430)}, "gate",
               {2340, 2300, 2449, 2500})),
    [](const testing::TestParamInfo<Faulty>& tried) { return std::get<0>(tried.param); });

TEST(TrackCheck, accepts_a_good_track_and_measures_it) {
    const TrackReport report = check({});
    EXPECT_THAT(report.faults, IsEmpty());
    EXPECT_THAT(report.warnings, IsEmpty());
    ASSERT_THAT(report.facts, SizeIs(3));
    EXPECT_EQ(report.facts[0].text, "the road is narrowest here: 24 cells");
    EXPECT_NEAR(report.facts[0].cell.y, 2400, 10);
    EXPECT_EQ(report.facts[1].text, "away from the gate it is narrowest here: 100 cells");
    EXPECT_EQ(report.facts[2].text, "a lap is about 2421 cells long, 733 frames at top speed");
    const auto along_the_border = {road(1550, 2650, 2449, 2699), grass(1650, 2550, 2349, 2659)};
    EXPECT_EQ(check(along_the_border).facts[1].text,
              "away from the gate it is narrowest here: 40 cells");
}

TEST(TrackCheck, only_warns_of_what_can_be_raced) {
    const auto warnings = [](const std::vector<Fill>& changes) {
        const TrackReport report = check(changes);
        EXPECT_THAT(report.faults, IsEmpty());
        return report.warnings;
    };
    EXPECT_THAT(warnings({grass(1500, 2300, 1587, 2350), grass(1612, 2300, 1690, 2350)}), SizeIs(1))
        << "just wide enough";
    EXPECT_THAT(warnings({road(1664, 2300, 1671, 2307)}), IsEmpty()) << "14 cells from the road";
    EXPECT_THAT(warnings({road(1663, 2300, 1671, 2307)}), SizeIs(1));
    EXPECT_THAT(warnings({road(1950, 2200, 2049, 2520)}), IsEmpty()) << "30 cells between arms";
    EXPECT_THAT(warnings({grass(1595, 2300, 1604, 2309)}), SizeIs(1)) << "a post on the road";
    EXPECT_THAT(warnings({road(1800, 2300, 1900, 2400), grass(1830, 2330, 1870, 2370), // a sign
                          road(2450, 2140, 2500, 2160), road(2500, 2050, 2690, 2250),
                          grass(2530, 2080, 2660, 2220)}), // a ring on a stalk
                IsEmpty());
    std::vector<Fill> posts; // along the road and across the grass
    for (int y = 2220; y < 2540; y += 40) {
        posts.push_back(road(1664, y, 1671, y + 7));
        posts.push_back(road(2000, y, 2007, y + 7));
    }
    EXPECT_THAT(warnings(posts), IsEmpty());
}

TEST(TrackCheck, notes_dead_ends_and_lines_to_choose_from) {
    const TrackReport stub = check({road(1950, 2200, 2049, 2399)});
    EXPECT_THAT(stub.faults, IsEmpty());
    EXPECT_THAT(stub.facts.back().text, HasSubstr("dead end"));
    EXPECT_NEAR(stub.facts.back().cell.y, 2399, 2);
    const TrackReport choice = check({road(1800, 2000, 2200, 2199), grass(1900, 2090, 2100, 2110)});
    EXPECT_THAT(choice.faults, IsEmpty());
    EXPECT_THAT(choice.facts.front().text, HasSubstr("both ways are about as long"));
}

} // namespace
} // namespace tarvik
