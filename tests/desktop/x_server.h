// A display of its own for a test, without a screen: tests running at once do not interfere.
#pragma once

#include "tests/desktop/child_process.h"
#include "tests/support/temporary_folder.h"

namespace tarvik {

class XServer {
  public:
    static constexpr int WIDTH = 1366;
    static constexpr int HEIGHT = 768;

    /// Starts the server and waits until it answers; throws if it does not.
    explicit XServer(const std::vector<std::string>& further_arguments = {});
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;
    ~XServer();

    /// The value for DISPLAY.
    const std::string& display() const {
        return display_;
    }

  private:
    TemporaryFolder folder_;
    std::optional<ChildProcess> server_;
    std::string display_;
};

} // namespace tarvik
