// The command line: what is accepted, and what is refused with one line and exit code 1.
#include "tools/demo/options.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tarvik::demo {
namespace {

ParsedOptions parse(std::vector<std::string> words) {
    words.insert(words.begin(), "tarvik-demo");
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    return parse_options(static_cast<int>(arguments.size()), arguments.data());
}

TEST(DemoOptions, TakesEverythingThatHelpNames) {
    const ParsedOptions parsed = parse({"--headless", "--race", "2", "--difficulty", "1", "--laps",
                                        "3", "--seed", "4294967295", "--pictures", "shots",
                                        "--every", "60", "--style", "cautious", "--report"});
    ASSERT_TRUE(parsed.options);
    EXPECT_TRUE(parsed.options->headless);
    EXPECT_EQ(parsed.options->race, 2);
    EXPECT_EQ(parsed.options->difficulty, 1);
    EXPECT_EQ(parsed.options->laps, 3);
    EXPECT_EQ(parsed.options->seed, 4294967295U);
    EXPECT_EQ(parsed.options->pictures, "shots");
    EXPECT_EQ(parsed.options->every, 60);
    EXPECT_EQ(parsed.options->style, Style::CAUTIOUS);
    EXPECT_TRUE(parsed.options->report);
}

TEST(DemoOptions, DrivesSixLapsHeadlessAndForEverInAWindow) {
    EXPECT_EQ(parse({"--headless"}).options->laps, 6);
    EXPECT_FALSE(parse({}).options->laps);
}

TEST(DemoOptions, AnswersFaultsWithOneLineAndExitCodeOne) {
    const std::vector<std::vector<std::string>> faults = {
        {"--race", "3"},
        {"--race", "two"},
        {"--difficulty"},
        {"--laps", "0"},
        {"--seed", "-1"},
        {"--seed", "4294967296"},
        {"--fast"},
        {"--headless", "race2"},
        {"--pictures", "x"}, // a window has no pictures to write
        {"--headless", "--every", "60"},
        {"--style", "wild"},
    };
    for (const std::vector<std::string>& words : faults) {
        SCOPED_TRACE(words.front() + " " + words.back());
        testing::internal::CaptureStderr();
        const ParsedOptions parsed = parse(words);
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_FALSE(parsed.options);
        EXPECT_EQ(parsed.exit_code, 1);
        EXPECT_EQ(said.rfind("tarvik-demo: ", 0), 0U) << said;
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
    }
}

TEST(DemoOptions, HelpExitsWithCodeZero) {
    testing::internal::CaptureStdout();
    const ParsedOptions parsed = parse({"--help"});
    EXPECT_NE(testing::internal::GetCapturedStdout().find("--headless"), std::string::npos);
    EXPECT_FALSE(parsed.options);
    EXPECT_EQ(parsed.exit_code, 0);
}

} // namespace
} // namespace tarvik::demo
