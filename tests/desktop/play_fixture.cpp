// Setting the real program up: its data, its display, its start.
#include "tests/desktop/play_fixture.h"

#include <csignal>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

namespace tarvik {

namespace {

// Of 1,400 pictures all but two have no pixels.
void write_graphics(const std::filesystem::path& path) {
    std::ofstream file(path, std::ios::binary);
    for (int number = 0; number < 1400; ++number) {
        const int side = number == 30 ? MARKER_SIZE : number == 250 ? POINTER_SIZE : 0;
        const unsigned long colour = number == 30 ? MARKER_COLOUR : POINTER_COLOUR;
        for (const int value : {side, side, 3}) {
            file.write(reinterpret_cast<const char*>(&value), sizeof value);
        }
        for (int byte = 0; byte < 3 * side * side; ++byte) {
            file.put(static_cast<char>(colour >> (16 - byte % 3 * 8)));
        }
    }
}

} // namespace

double pictures_in_a_second(Player& player) {
    const int first = player.count_pictures();
    const auto start = std::chrono::steady_clock::now();
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    return (player.count_pictures() - first) / passed.count();
}

void make_data(const std::filesystem::path& folder) {
    std::filesystem::create_directory(folder / "data");
    // Cells of 0 are road, and so is a file that is one hole.
    std::ofstream(folder / "data" / "race1.map");
    std::filesystem::resize_file(folder / "data" / "race1.map", 100'000'000);
    write_graphics(folder / "data" / "graphics.dat");
}

PlayTest::PlayTest(const std::vector<std::string>& server_arguments) : server_(server_arguments) {
    make_data(folder_);
}

void PlayTest::TearDown() {
    if (game_) {
        game_->send(SIGTERM);
        EXPECT_EQ(game_->wait(), expected_exit_code_);
        const std::string words = read(folder_ / "errors");
        EXPECT_EQ(words.empty(), expected_exit_code_ == 0) << words;
    }
    game_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
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
        throw std::runtime_error("the race does not start: " + read(folder_ / "errors"));
    }
}

std::string PlayTest::read(const std::filesystem::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace tarvik
