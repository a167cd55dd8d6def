// A Wayland compositor of its own for a test: sway, which tiles, in a window on an X display.
#pragma once

#include "tests/desktop/child_process.h"
#include "tests/support/temporary_folder.h"

namespace tarvik {

class Sway {
  public:
    /// Starts it and waits until it answers; throws if it does not.
    explicit Sway(const std::string& display);
    Sway(const Sway&) = delete;
    Sway& operator=(const Sway&) = delete;
    ~Sway();

    /// What a program needs to know in order to find it.
    std::map<std::string, std::string> environment() const;

    /// Gives it a command, as its configuration would, and returns whether it did that.
    bool tell(const std::string& command) const;

  private:
    TemporaryFolder folder_;
    std::optional<ChildProcess> compositor_;
};

} // namespace tarvik
