// The real program on a display of its own, on a track that is road everywhere.
#pragma once

// Before the X headers, whose macros have names that GoogleTest uses.
#include <gtest/gtest.h>

#include "tests/desktop/player.h"
#include "tests/desktop/x_server.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace tarvik {

class PlayTest : public testing::Test {
  protected:
    // Parts of the status texts.
    static constexpr Area GEAR = {56, 58, 80, 22};
    static constexpr Area DIFFICULTY = {56, 86, 110, 22};

    // Pictures of the archive, as squares of one colour.
    static constexpr unsigned long MARKER_COLOUR = 0xC81E28;
    static constexpr unsigned long POINTER_COLOUR = 0x14B4F0;
    static constexpr int MARKER_SIZE = 16;
    static constexpr Area MARKER_AT_START = {304 + MARKER_SIZE, 64 + MARKER_SIZE, 1, 1};
    static constexpr int POINTER_SIZE = 4;

    void SetUp() override {
        ASSERT_FALSE(server_.display().empty()) << "Xvfb did not start";
        folder_ = make_folder("play");
        std::filesystem::create_directory(folder_ / "data");
        // Cells of 0 are road, and so is a file that is one hole.
        std::ofstream(folder_ / "data" / "race1.map");
        std::filesystem::resize_file(folder_ / "data" / "race1.map", 100'000'000);
        write_graphics();
    }

    void TearDown() override {
        game_.reset();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    /// Starts the game and waits until the car stands at the start. The very first picture still
    /// shows another part of the track.
    void start_race() {
        start_game(server_.display());
        ASSERT_TRUE(player_.finds_game_with(MARKER_COLOUR, MARKER_AT_START.x, MARKER_AT_START.y))
            << read(folder_ / "errors");
    }

    void start_game(const std::string& display) {
        // The drivers below OpenGL keep memory to the end.
        game_.emplace(std::vector<std::string>{TARVIK_PROGRAM},
                      ChildProcess::Options{.folder = folder_,
                                            .environment = {{"DISPLAY", display},
                                                            {"WAYLAND_DISPLAY", ""},
                                                            {"ASAN_OPTIONS", "detect_leaks=0"}},
                                            .errors = folder_ / "errors"});
    }

    static std::string read(const std::filesystem::path& path) {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    XServer server_;
    Player player_{server_.display()};
    std::filesystem::path folder_;
    std::optional<ChildProcess> game_;

  private:
    void write_graphics() {
        constexpr int RECORDS = 1400;
        constexpr int MARKER = 30;
        constexpr int POINTER = 250;
        std::ofstream file(folder_ / "data" / "graphics.dat", std::ios::binary);
        for (int record = 0; record < RECORDS; ++record) {
            if (record == MARKER) {
                write_square(file, MARKER_SIZE, MARKER_COLOUR);
            } else if (record == POINTER) {
                write_square(file, POINTER_SIZE, POINTER_COLOUR);
            } else {
                file.write("\0\0\0\0\0\0\0\0\0\0\0", 12);
            }
        }
    }

    static void write_square(std::ofstream& file, char size, unsigned long colour) {
        const char header[12] = {size, 0, 0, 0, size, 0, 0, 0, 3, 0, 0, 0};
        file.write(header, sizeof header);
        for (int pixel = 0; pixel < size * size; ++pixel) {
            for (unsigned int shift : {16U, 8U, 0U}) {
                file.put(static_cast<char>(colour >> shift & 0xFFU));
            }
        }
    }
};

} // namespace tarvik
