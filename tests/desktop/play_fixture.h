// The real program on a display of its own, on a track that is road everywhere.
#pragma once

// Before the X headers, whose macros have names that GoogleTest uses.
#include <gtest/gtest.h>

#include "tests/desktop/player.h"
#include "tests/desktop/x_server.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tarvik {

// The window, and places in it: two of the status texts, and one that shows nothing but the track.
inline constexpr Area WINDOW = {0, 0, 640, 480};
inline constexpr Area BARE_PLACE = {600, 300, 1, 1}; // no text and no picture there
inline constexpr Area GEAR = {56, 58, 80, 22};
inline constexpr Area DIFFICULTY = {56, 86, 110, 22};

// Colours of the track and, as squares, of the archive's pictures.
inline constexpr unsigned long MARKER_COLOUR = 0xC81E28;
inline constexpr unsigned long ROAD_COLOUR = 0x3C3C3C;
inline constexpr unsigned long GRASS_COLOUR = 0x00C800;
inline constexpr unsigned long POINTER_COLOUR = 0x14B4F0;
inline constexpr int MARKER_SIZE = 16;
inline constexpr Area MARKER_AT_START = {304 + MARKER_SIZE, 64 + MARKER_SIZE, 1, 1};
inline constexpr int POINTER_SIZE = 4;

/// The frames that the window shows in the best second of a minute, which ends with the first good
/// one: a busy machine can make the game slower, but nothing may make it faster.
double best_rate(Player& player);

class PlayTest : public testing::Test {
  protected:
    explicit PlayTest(const std::vector<std::string>& server_arguments = {});
    /// Ends the game, if nothing else has: normally and silently.
    void TearDown() override;

    using Command = std::vector<std::string>;
    using Environment = std::map<std::string, std::string>;

    /// Starts it, where that is given, by another command or with a larger environment than usual.
    void start_game(const std::string& display, const Command& command = {},
                    const Environment& further_environment = {});

    /// Does so and waits until the car is at the start, or throws. The very first frame still shows
    /// another part of the track.
    void start_race(const Command& command = {}, const Environment& further_environment = {});

    /// Runs a command to its end and returns what it prints; the running test fails if the command
    /// does.
    static std::string output_of(const Command& command);

    XServer server_;
    Player player_{server_.display()};
    TemporaryFolder folder_; ///< with data: all is road, with a marker and a pointer
    std::unique_ptr<ChildProcess> game_;
    int expected_exit_code_ = 0; ///< other than 0: with words on standard error
};

using Play = PlayTest;

} // namespace tarvik
