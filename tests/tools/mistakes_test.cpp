// The small mistakes of somebody who draws a first track: each gets a message that says what to do.
#include "tests/tools/program_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace tarvik {
namespace {

using testing::HasSubstr;

/// Checks docs/empty-track.svg, changed by commands of sed.
ProgramRun check(const std::string& changes, const std::string& option = "") {
    const TemporaryFolder folder;
    write_file(folder / "changes", changes);
    return run_in(folder, "sed -f changes '" TARVIK_SOURCE_FOLDER
                          "/docs/empty-track.svg' >mine.svg; "
                          "tarvik-data track check mine.svg " +
                              option);
}

/// Adds a line on top of everything.
std::string line(const std::string& path, const std::string& colour = "#3c3c3c", int width = 60) {
    return "s|</svg>|<path fill='none' stroke='" + colour + "' stroke-width='" +
           std::to_string(width) + "' d='" + path + "'/>&|\n";
}

/// Puts all that is drawn into a group.
std::string group(const std::string& attributes) {
    return "s|</defs>|&<g " + attributes + ">|; s|</svg>|</g>&|\n";
}

struct Mistake {
    std::string name;
    std::string changes;
    std::string message;
};

class Mistakes : public testing::TestWithParam<Mistake> {};

TEST_P(Mistakes, are_named_with_their_cure) {
    const ProgramRun run = check(GetParam().changes);
    EXPECT_THAT(run.text, HasSubstr(GetParam().message));
    EXPECT_EQ(run.exit_code == 0, run.text.ends_with("mine.svg can be raced\n"));
}

const std::string NO_SIZE = R"(s/width="10000" height="10000" viewBox="0 0 10000 10000"//)";

INSTANTIATE_TEST_SUITE_P(
    Drawings, Mistakes,
    testing::Values(
        Mistake{"light_grey_line", "/Road/ s/#3c3c3c/#c0c0c0/",
                "note: #c0c0c0 counts as grass: lines drawn in it are no road; draw roads in "
                "#3c3c3c\n"},
        Mistake{"filled_loop", "/Road/ s/none/#000/", "no fill wanted"},
        Mistake{"page_of_another_size",
                "s/0 0 10000 10000/0 0 5000 5000/\n" + group("transform='scale(.5)'"),
                "2 cells a unit: a road of 120 cells is a line of 60 units"},
        Mistake{"page_not_square", "s/0 0 10000 10000/0 0 10000 7500/",
                "its page is 10000 by 7500; begin with a copy of docs/empty-track.svg"},
        Mistake{"page_without_a_size", NO_SIZE,
                "give it a viewBox, as in viewBox=\"0 0 10000 10000\""},
        Mistake{"nothing_drawn", group("visibility='hidden'"),
                "there is no road: draw one in #3c3c3c"},
        Mistake{"gap", line("M 5000,1300 V 1700", "#fff"), "the road ends here"},
        // In the units of a page of half the size with its corner elsewhere.
        Mistake{"grass_over_the_box",
                "s/0 0 10000 10000/-100 50 5000 5000/\n" +
                    line("M 2300,2396 H 2500", "#00c800", 8) +
                    group("transform='translate(-100,50) scale(.5)'"),
                "fault at (1096, 1246): the start/finish box, (1096, 1246) to (1104, 1254), is"}),
    [](const testing::TestParamInfo<Mistake>& tried) { return tried.param.name; });

// White paper is no mistake, nor is a long line whose edges are blended.
TEST(Check, says_nothing_of_a_drawing_without_mistakes_but_its_measures) {
    for (const std::string background : {"#00c800", "#fff"}) {
        const ProgramRun run = check("/<rect/ s/#00c800/" + background + "/\n" +
                                     line("M 9002.6,2000 V 8000", "#3c3c3c", 61));
        EXPECT_THAT(run.text, testing::StartsWith("note at ("));
        EXPECT_THAT(run.text, testing::EndsWith(" frames at top speed\nmine.svg can be raced\n"));
        EXPECT_EQ(run.exit_code, 0);
    }
}

// This tells ./play whether there is anything to drive.
TEST(Check, tells_a_track_with_faults_from_one_that_leads_nowhere) {
    EXPECT_EQ(check(line("M 3200,1150 V 4050"), "--driven").exit_code, 0);
    EXPECT_EQ(check(line("M 5000,1300 V 1700", "#fff"), "--driven").exit_code, 1);
}

} // namespace
} // namespace tarvik
