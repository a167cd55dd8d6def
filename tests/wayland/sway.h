// A Wayland compositor of its own for a test: sway, which tiles, without a screen.
#pragma once

#include "tests/desktop/child_process.h"
#include "tools/files/png_file.h"

namespace tarvik {

class Sway {
  public:
    /// Whether sway is available, and grim, which captures its screen.
    static bool is_installed();

    /// Starts it and waits until it answers.
    Sway();
    Sway(const Sway&) = delete;
    Sway& operator=(const Sway&) = delete;
    ~Sway();

    /// The path of its socket; empty when it did not start.
    const std::string& socket() const {
        return socket_;
    }

    /// What a program needs to know in order to find it.
    std::map<std::string, std::string> environment() const;

    /// Gives it a command, as its configuration would, and returns whether it did that.
    bool tell(const std::string& command) const;

    /// What its screen shows, in pixels of the screen.
    Picture look() const;

  private:
    int run(const std::vector<std::string>& command) const;

    std::filesystem::path folder_;
    std::optional<ChildProcess> compositor_;
    std::string socket_;
    std::string command_socket_;
};

} // namespace tarvik
