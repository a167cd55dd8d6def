// The small mistakes of somebody who draws a first track: each gets a message that says what to do.
#include "tests/tools/program_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

namespace tarvik {
namespace {

using testing::HasSubstr;

struct Edit {
    std::string from; ///< in docs/empty-track.svg
    std::string to;
};

struct Mistake {
    std::string name;
    std::vector<Edit> edits;
    std::string message;
};

void PrintTo(const Mistake& mistake, std::ostream* out) {
    *out << mistake.name;
}

std::string edited(const Mistake& mistake) {
    std::string drawing = read_file(TARVIK_SOURCE_FOLDER "/docs/empty-track.svg");
    for (const Edit& edit : mistake.edits) {
        const std::size_t place = drawing.find(edit.from);
        EXPECT_NE(place, std::string::npos) << edit.from;
        drawing.replace(place, edit.from.size(), edit.to);
    }
    return drawing;
}

const std::string ROAD_STYLE = R"(fill="none" stroke="#3c3c3c"
     stroke-width="120")";
const std::string END = "</svg>";

/// A line added on top of everything.
Edit line(const std::string& path, const std::string& colour = "#3c3c3c", int width = 60) {
    return {END, "<path fill='none' stroke='" + colour + "' stroke-width='" +
                     std::to_string(width) + "' d='" + path + "'/></svg>"};
}

class Mistakes : public testing::TestWithParam<Mistake> {};

TEST_P(Mistakes, are_named_with_their_cure) {
    const TemporaryFolder folder;
    write_file(folder / "mine.svg", edited(GetParam()));
    const ProgramRun run = run_tarvik_data(folder, "track check mine.svg");
    EXPECT_THAT(run.text, HasSubstr(GetParam().message));
    EXPECT_EQ(run.exit_code == 0, run.text.ends_with(" can be raced\n"));
}

INSTANTIATE_TEST_SUITE_P(
    Drawings, Mistakes,
    testing::Values(
        Mistake{"none", {}, "mine.svg can be raced\n"},
        Mistake{"light_grey_line",
                {{ROAD_STYLE, R"(fill="none" stroke="#c0c0c0" stroke-width="120")"}},
                "note: #c0c0c0 counts as grass: lines drawn in it are no road; draw roads in "
                "#3c3c3c\n"},
        Mistake{"green_line",
                {{ROAD_STYLE, R"(fill="none" stroke="#208020" stroke-width="120")"}},
                "note: #208020 counts as grass"},
        Mistake{"filled_loop",
                {{ROAD_STYLE, R"(fill="#000" stroke="#3c3c3c" stroke-width="120")"}},
                "no fill wanted"},
        Mistake{"page_of_another_size",
                {{"viewBox=\"0 0 10000 10000\">", "viewBox=\"0 0 5000 5000\"><g "
                                                  "transform=\"scale(.5)\">"},
                 {END, "</g></svg>"}},
                "2 cells a unit: a road of 120 cells is a line of 60 units"},
        Mistake{"page_not_square",
                {{"viewBox=\"0 0 10000 10000\"", "viewBox=\"0 0 10000 7500\""}},
                "its page is 10000 by 7500; begin with a copy of docs/empty-track.svg"},
        Mistake{"page_without_a_size",
                {{"width=\"10000\" height=\"10000\" viewBox=\"0 0 10000 10000\"", ""}},
                "give it a viewBox, as in viewBox=\"0 0 10000 10000\""},
        Mistake{"nothing_drawn",
                {{"</defs>", "</defs><g visibility='hidden'>"}, {END, "</g></svg>"}},
                "there is no road: draw one in #3c3c3c"},
        Mistake{"half_saved", {{END, ""}}, "is not an SVG drawing"},
        Mistake{"gap", {line("M 5000,1300 V 1700", "#fff")}, "the road ends here"},
        Mistake{"thin_line",
                {{ROAD_STYLE, R"(fill="none" stroke="#3c3c3c" stroke-width="4")"}},
                "the road is too narrow: 4 "},
        Mistake{"line_over_the_gate",
                {line("M 2400,1900 V 2900", "#3c3c3c", 120)},
                "the gate can be missed"},
        Mistake{"grass_over_the_box",
                {line("M 2300,2390 H 2500", "#00c800", 20)},
                "the start/finish box"},
        Mistake{"grass_over_the_start",
                {line("M 2300,2490 H 2500", "#00c800", 20)},
                "the car does not start on the road"},
        Mistake{"grass_before_the_start",
                {line("M 2300,2440 H 2500", "#00c800", 20)},
                "the way straight up from the start to the box"},
        Mistake{"second_road", {line("M 3200,1150 V 4050")}, "the road divides here"}),
    [](const testing::TestParamInfo<Mistake>& tried) { return tried.param.name; });

// This tells ./play whether there is anything to drive.
TEST(Check, tells_a_track_with_faults_from_one_that_leads_nowhere) {
    const TemporaryFolder folder;
    const auto exit_code = [&](const Edit& edit) {
        write_file(folder / "mine.svg", edited({"", {edit}, ""}));
        return run_tarvik_data(folder, "track check --driven mine.svg").exit_code;
    };
    EXPECT_EQ(exit_code(line("M 3200,1150 V 4050")), 0);
    EXPECT_EQ(exit_code(line("M 5000,1300 V 1700", "#fff")), 1);
}

// On a page of half the size, with its corner elsewhere, the same place has other numbers.
TEST(Units, are_those_of_the_drawing) {
    const TemporaryFolder folder;
    const std::string head = "<svg xmlns='http://www.w3.org/2000/svg' viewBox='";
    const std::string box = "<rect width='10000' height='10000' fill='#000' transform='";
    const std::string hole = "'/><path stroke='#fff' stroke-width='8' transform='";
    const std::string cut = "' d='M 2300,2396 H 2500'/></svg>";
    const auto fault = [&](const std::string& view_box, const std::string& transform) {
        write_file(folder / "mine.svg",
                   head + view_box + "'>" + box + transform + hole + transform + cut);
        return run_tarvik_data(folder, "track check mine.svg").text;
    };
    EXPECT_THAT(fault("0 0 10000 10000", ""), HasSubstr("fault at (2392, 2392)"));
    EXPECT_THAT(fault("-100 50 5000 5000", "translate(-100,50) scale(.5)"),
                HasSubstr("fault at (1096, 1246)"));
}

} // namespace
} // namespace tarvik
