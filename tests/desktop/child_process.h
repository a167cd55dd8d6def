// A program that a test starts, watches and ends.
#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tarvik {

class ChildProcess {
  public:
    struct Options {
        std::filesystem::path folder = "/";                  ///< where it runs
        std::map<std::string, std::string> environment = {}; ///< set for it besides the usual
        std::filesystem::path output = "/dev/null";          ///< where standard output goes
        std::filesystem::path errors = "/dev/null";          ///< where standard error goes
    };

    ChildProcess(const std::vector<std::string>& command, const Options& options);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    pid_t id() const {
        return id_;
    }

    bool is_running();
    void send(int signal) const;

    /// The exit code; -signal where a signal ended it; nothing if it still runs when patience runs
    /// out.
    std::optional<int> wait(std::chrono::milliseconds patience = std::chrono::seconds(30));

  private:
    pid_t id_ = -1;
    std::optional<int> exit_code_;
};

} // namespace tarvik
