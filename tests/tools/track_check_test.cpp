// The check of a track: every fault is found, named and placed, and nothing harmless is blamed.
#include "tools/track/track_check.h"

#include "tests/tools/small_track.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace tarvik {
namespace {

std::string all_faults(const TrackReport& report) {
    std::ostringstream text;
    for (const Finding& fault : report.faults) {
        text << '(' << fault.cell.x << ", " << fault.cell.y << "): " << fault.text << '\n';
    }
    return text.str();
}

// One fault, with these words, at a cell of this area.
void expect_fault(const SmallTrack& track, const std::string& words, Cell top_left,
                  Cell bottom_right) {
    const TrackReport report = check_track(track.view());
    ASSERT_EQ(report.faults.size(), 1U) << all_faults(report);
    const Finding& fault = report.faults[0];
    EXPECT_NE(fault.text.find(words), std::string::npos) << all_faults(report);
    EXPECT_TRUE(fault.cell.x >= top_left.x && fault.cell.x <= bottom_right.x &&
                fault.cell.y >= top_left.y && fault.cell.y <= bottom_right.y)
        << all_faults(report);
}

void expect_no_fault(const SmallTrack& track) {
    const TrackReport report = check_track(track.view());
    EXPECT_TRUE(report.can_be_raced()) << all_faults(report);
}

TEST(TrackCheck, accepts_a_good_track_and_measures_it) {
    const TrackReport report = check_track(SmallTrack().view());
    EXPECT_TRUE(report.can_be_raced()) << all_faults(report);
    EXPECT_TRUE(report.warnings.empty());
    ASSERT_EQ(report.facts.size(), 3U);
    EXPECT_EQ(report.facts[0].text, "the road is narrowest here: 24 cells");
    EXPECT_NEAR(report.facts[0].cell.y, 2400, 10);
    EXPECT_EQ(report.facts[1].text, "away from the gate it is narrowest here: 100 cells");
}

TEST(TrackCheck, wants_start_and_box_on_the_road) {
    SmallTrack box;
    box.grass(2407, 2392, 2407, 2392);
    expect_fault(box, "box", {2407, 2392}, {2407, 2392});
    SmallTrack start;
    start.grass(2395, 2484, 2395, 2484);
    expect_fault(start, "start", {2395, 2484}, {2395, 2484});
    SmallTrack lane;
    lane.grass(2350, 2440, 2449, 2440);
    expect_fault(lane, "straight up", {2395, 2440}, {2395, 2440});
}

TEST(TrackCheck, finds_where_the_road_is_cut) {
    SmallTrack wide;
    wide.grass(1900, 2500, 1940, 2690);
    expect_fault(wide, "ends here", {1899, 2550}, {1899, 2649});
    SmallTrack hairline;
    hairline.grass(1500, 2300, 1690, 2300);
    expect_fault(hairline, "ends here", {1550, 2299}, {1649, 2299});
    SmallTrack at_once;
    at_once.grass(2350, 2391, 2449, 2391);
    expect_fault(at_once, "ends here", {2388, 2392}, {2411, 2399});
}

TEST(TrackCheck, finds_where_the_road_is_too_narrow) {
    SmallTrack pinch; // one row of cells that leaves a gap of 8
    pinch.grass(1500, 2300, 1599, 2300);
    pinch.grass(1608, 2300, 1690, 2300);
    expect_fault(pinch, "8 cells wide", {1600, 2300}, {1607, 2300});
    SmallTrack far_from_gate; // would do at the gate
    far_from_gate.grass(1500, 2300, 1589, 2350);
    far_from_gate.grass(1610, 2300, 1690, 2350);
    expect_fault(far_from_gate, "20 cells wide", {1590, 2300}, {1609, 2350});
    SmallTrack just_wide_enough;
    just_wide_enough.grass(1500, 2300, 1587, 2350);
    just_wide_enough.grass(1612, 2300, 1690, 2350);
    const TrackReport report = check_track(just_wide_enough.view());
    EXPECT_TRUE(report.can_be_raced()) << all_faults(report);
    EXPECT_EQ(report.warnings.size(), 1U);
}

TEST(TrackCheck, finds_a_gate_that_can_be_missed) {
    SmallTrack left; // one column is enough
    left.road(2387, 2392, 2387, 2407);
    expect_fault(left, "gate can be missed", {2387, 2392}, {2387, 2408});
    SmallTrack right;
    right.road(2400, 2380, 2440, 2420);
    expect_fault(right, "gate can be missed", {2408, 2392}, {2440, 2408});
    SmallTrack behind_a_post; // a lane of its own beside the box
    behind_a_post.road(2350, 2300, 2380, 2500);
    expect_fault(behind_a_post, "gate can be missed", {2350, 2392}, {2391, 2408});
    SmallTrack thin_lips; // a car leaps over what is thinner than a frame's drive
    thin_lips.road(2350, 2300, 2449, 2500);
    thin_lips.grass(2350, 2400, 2387, 2401);
    thin_lips.grass(2412, 2400, 2449, 2401);
    const TrackReport report = check_track(thin_lips.view());
    EXPECT_FALSE(report.can_be_raced());
}

TEST(TrackCheck, finds_a_loop_too_short_for_a_lap) {
    SmallTrack track;
    track.grass(1500, 2000, 2349, 2690);
    track.road(2250, 2330, 2449, 2354);
    track.road(2250, 2490, 2449, 2514);
    track.road(2250, 2330, 2274, 2514);
    expect_fault(track, "too short", {2400, 2480}, {2400, 2480});
}

TEST(TrackCheck, finds_second_ways) {
    SmallTrack bar;
    bar.road(2000, 2200, 2019, 2549);
    expect_fault(bar, "divides", {1980, 2150}, {2039, 2600});
    SmallTrack hairline; // enough for two corners of a car
    hairline.road(2000, 2200, 2000, 2549);
    expect_fault(hairline, "divides", {1980, 2150}, {2039, 2600});
    SmallTrack around_the_gate;
    around_the_gate.road(2450, 2150, 2550, 2199);
    around_the_gate.road(2500, 2150, 2550, 2600);
    around_the_gate.road(2450, 2560, 2550, 2600);
    expect_fault(around_the_gate, "gate can be missed", {2500, 2400}, {2550, 2400});
}

TEST(TrackCheck, finds_shortcuts_for_a_car_with_two_corners_on_the_road) {
    SmallTrack thin_strip; // 10 cells of grass between two arms
    thin_strip.road(1950, 2200, 2049, 2539);
    expect_fault(thin_strip, "two corners", {1940, 2150}, {2060, 2600});
    SmallTrack broad_strip;
    broad_strip.road(1950, 2200, 2049, 2520);
    expect_no_fault(broad_strip);
}

TEST(TrackCheck, finds_decoration_that_shortens_a_lap) {
    SmallTrack bar; // does not touch the road
    bar.road(2000, 2206, 2019, 2543);
    expect_fault(bar, "decoration", {1980, 2190}, {2039, 2560});
    SmallTrack stepping_stones;
    for (int y = 2206; y < 2545; y += 14) {
        stepping_stones.road(2000, y, 2009, y + 9);
    }
    expect_fault(stepping_stones, "decoration", {1980, 2190}, {2039, 2560});
    SmallTrack past_the_gate;
    past_the_gate.road(2360, 2370, 2385, 2430);
    const TrackReport report = check_track(past_the_gate.view());
    EXPECT_FALSE(report.can_be_raced());
}

TEST(TrackCheck, notes_what_is_beside_the_road) {
    SmallTrack dead_end;
    dead_end.road(1950, 2200, 2049, 2399);
    const TrackReport stub = check_track(dead_end.view());
    EXPECT_TRUE(stub.can_be_raced()) << all_faults(stub);
    EXPECT_NE(stub.facts.back().text.find("dead end"), std::string::npos);
    EXPECT_NEAR(stub.facts.back().cell.y, 2399, 2);
    SmallTrack two_lines; // around grass in a wide part
    two_lines.road(1800, 2000, 2200, 2199);
    two_lines.grass(1900, 2090, 2100, 2110);
    const TrackReport choice = check_track(two_lines.view());
    EXPECT_TRUE(choice.can_be_raced()) << all_faults(choice);
    SmallTrack close;
    close.road(1664, 2300, 1671, 2307);
    EXPECT_TRUE(check_track(close.view()).warnings.empty());
    close.road(1663, 2300, 1663, 2300);
    ASSERT_EQ(check_track(close.view()).warnings.size(), 1U);
}

TEST(TrackCheck, leaves_harmless_decoration_alone) {
    SmallTrack track;
    for (int y = 2220; y < 2540; y += 40) { // posts along the road and across the grass
        track.road(1664, y, 1671, y + 7);
        track.road(2000, y, 2007, y + 7);
    }
    track.road(1800, 2300, 1900, 2400); // a large sign with a hole in it
    track.grass(1830, 2330, 1870, 2370);
    track.road(2450, 2140, 2500, 2160); // a ring on a stalk
    track.road(2500, 2050, 2690, 2250);
    track.grass(2530, 2080, 2660, 2220);
    track.grass(1595, 2300, 1604, 2309); // a post on the road
    expect_no_fault(track);
}

} // namespace
} // namespace tarvik
