// An archive unpacked into an empty folder, and its game on a display of its own, played by
// somebody who is not root.
#pragma once

// Before the X headers, whose macros have names that GoogleTest uses.
#include <gtest/gtest.h>

#include "tests/desktop/player.h"
#include "tests/desktop/x_server.h"
#include "tests/support/picture.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tarvik {

class PackageTest : public testing::Test {
  protected:
    using Environment = std::map<std::string, std::string>;

    /// A new empty folder that belongs to the player; goes with the test.
    std::filesystem::path new_folder();

    /// Unpacks an archive of build/package/ and returns the one folder in it.
    static std::filesystem::path unpack(const std::string& archive,
                                        const std::filesystem::path& into);

    /// Makes sure that nobody may write in a folder, not even its owner.
    static void forbid_writing(const std::filesystem::path& folder);

    /// Starts a command as the player, on the test's display.
    void start(const std::vector<std::string>& command, const std::filesystem::path& folder,
               const Environment& environment);

    /// Waits until the game shows the place of the start, with a colour where the gate's left post
    /// has its corner.
    void wait_for_game_with(unsigned long colour);

    /// Waits for what takes the game hundreds of frames.
    static bool waits_a_minute_until(const std::function<bool()>& condition);

    /// Waits until a status text stands in the game's window; white, logical coordinates.
    bool waits_for_text(const std::string& text, int x, int y) const;

    bool shows(const std::string& text, int x, int y) const;

    /// What the game has said on standard error.
    std::string errors() const;

    void TearDown() override;

    XServer server_;
    Player player_{server_.display()};
    std::optional<ChildProcess> game_;

  private:
    std::vector<std::filesystem::path> folders_;
    std::filesystem::path errors_ = make_folder("errors") / "errors";
};

/// The command that runs `command` as somebody without special rights, where we are root.
std::vector<std::string> as_player(std::vector<std::string> command);

/// Runs a command to its end and returns whether it succeeded.
bool run(const std::vector<std::string>& command, const ChildProcess::Options& options = {});

/// What is in a file; nothing if there is none.
std::string read(const std::filesystem::path& path);

/// Gives a folder and all in it to the player.
void give_to_player(const std::filesystem::path& folder);

} // namespace tarvik
