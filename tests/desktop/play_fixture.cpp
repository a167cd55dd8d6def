// Setting the real program up: its data, its display, its start.
#include "tests/desktop/play_fixture.h"

#include "tests/support/archive.h"

#include <algorithm>
#include <csignal>
#include <stdexcept>
#include <thread>

namespace tarvik {

double best_rate(Player& player) {
    double best = 0;
    for (int second = 0; second < 60 && best < 59; ++second) {
        const auto start = std::chrono::steady_clock::now();
        const int first = player.count_frames();
        std::this_thread::sleep_for(std::chrono::seconds(1));
        const int shown = player.count_frames() - first;
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
        best = std::max(best, shown / passed.count());
    }
    return best;
}

PlayTest::PlayTest(const std::vector<std::string>& server_arguments) : server_(server_arguments) {
    std::filesystem::create_directory(folder_ / "data");
    // Cells of 0 are road, and so is a file that is one hole.
    write_file(folder_ / "data/race1.map", "");
    std::filesystem::resize_file(folder_ / "data/race1.map", 100'000'000);
    const auto archive = test::archive_of({test::plain_image(30, MARKER_SIZE, MARKER_COLOUR),
                                           test::plain_image(250, POINTER_SIZE, POINTER_COLOUR)});
    write_file(folder_ / "data/graphics.dat", {archive.begin(), archive.end()});
}

void PlayTest::TearDown() {
    if (game_) {
        game_->send(SIGTERM);
        EXPECT_EQ(game_->wait(), expected_exit_code_);
        const std::string words = read_file(folder_ / "errors");
        EXPECT_EQ(words.empty(), expected_exit_code_ == 0) << words;
    }
}

void PlayTest::start_game(const std::string& display, const Command& command,
                          const Environment& further_environment) {
    Environment environment = further_environment;
    // The drivers below OpenGL keep memory to the end.
    environment.insert(
        {{"DISPLAY", display}, {"WAYLAND_DISPLAY", ""}, {"ASAN_OPTIONS", "detect_leaks=0"}});
    game_ = std::make_unique<ChildProcess>(command.empty() ? Command{TARVIK_PROGRAM} : command,
                                           ChildProcess::Options{.folder = folder_,
                                                                 .environment = environment,
                                                                 .errors = folder_ / "errors"});
}

void PlayTest::start_race(const Command& command, const Environment& further_environment) {
    start_game(server_.display(), command, further_environment);
    if (!player_.finds_game_with(MARKER_COLOUR, MARKER_AT_START.x, MARKER_AT_START.y)) {
        throw std::runtime_error("the race does not start: " + read_file(folder_ / "errors"));
    }
}

std::string PlayTest::output_of(const Command& command) {
    const TemporaryFolder folder;
    ChildProcess process(command, {.output = folder / "output"});
    EXPECT_EQ(process.wait(std::chrono::minutes(2)), 0) << command.front();
    return read_file(folder / "output");
}

} // namespace tarvik
