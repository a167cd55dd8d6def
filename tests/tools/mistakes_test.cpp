// The small mistakes of somebody who draws a first track: each gets a message that says what to do.
#include "tests/tools/program_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tarvik {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

struct Edit {
    std::string from; ///< in docs/empty-track.svg
    std::string to;
};

struct Mistake {
    std::string name;
    std::vector<Edit> edits;
    std::string message;
};

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
    EXPECT_EQ(run.exit_code == 0, run.text.ends_with("mine.svg can be raced\n"));
}

INSTANTIATE_TEST_SUITE_P(
    Drawings, Mistakes,
    testing::Values(
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
        // In the units of a page of half the size with its corner elsewhere.
        Mistake{"grass_over_the_box",
                {{"viewBox=\"0 0 10000 10000\">", "viewBox=\"-100 50 5000 5000\"><g "
                                                  "transform=\"translate(-100,50) scale(.5)\">"},
                 line("M 2300,2396 H 2500", "#00c800", 8),
                 {END, "</g></svg>"}},
                "fault at (1096, 1246): the start/finish box, (1096, 1246) to (1104, 1254), is"}),
    [](const testing::TestParamInfo<Mistake>& tried) { return tried.param.name; });

// White paper is no mistake, nor is a long line whose edges are blended.
TEST(Check, says_nothing_of_a_drawing_without_mistakes_but_its_measures) {
    const TemporaryFolder folder;
    for (const std::string background : {"#00c800", "#fff"}) {
        write_file(folder / "mine.svg", edited({"",
                                                {{"fill=\"#00c800\"", "fill=\"" + background + '"'},
                                                 line("M 9002.6,2000 V 8000", "#3c3c3c", 61)},
                                                ""}));
        const ProgramRun run = run_tarvik_data(folder, "track check mine.svg");
        EXPECT_THAT(run.text, StartsWith("note at ("));
        EXPECT_THAT(run.text, EndsWith(" frames at top speed\nmine.svg can be raced\n"));
        EXPECT_EQ(run.exit_code, 0);
    }
}

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

} // namespace
} // namespace tarvik
