// Start, wait and clean end of a child process.
#include "tests/desktop/child_process.h"

#include <csignal>
#include <stdexcept>
#include <thread>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvik {

namespace {

// A shell that becomes the command. Nothing is left behind when the test itself is killed, and
// signals that the test was told to ignore are not ignored.
constexpr const char* BECOME = R"(exec >"$1" 2>"$2"; cd "$3" && shift 3 &&
    exec setpriv --pdeathsig KILL env --default-signal "$@")";

} // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& command, const Options& options) {
    std::vector<std::string> words = {"sh",           "-c",           BECOME,        "sh",
                                      options.output, options.errors, options.folder};
    for (const auto& [name, value] : options.environment) {
        words.push_back(name + "=" + value);
    }
    words.insert(words.end(), command.begin(), command.end());
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    if (posix_spawnp(&id_, "sh", nullptr, nullptr, arguments.data(), environ) != 0) {
        throw std::runtime_error("cannot start sh");
    }
}

ChildProcess::~ChildProcess() {
    if (is_running()) {
        send(SIGKILL);
        wait();
    }
}

bool ChildProcess::is_running() {
    return !wait(std::chrono::milliseconds(0)).has_value();
}

void ChildProcess::send(int signal) const {
    if (!exit_code_) {
        kill(id_, signal);
    }
}

std::optional<int> ChildProcess::wait(std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!exit_code_) {
        int status = 0;
        if (waitpid(id_, &status, WNOHANG) == id_) {
            exit_code_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
        } else if (std::chrono::steady_clock::now() >= end) {
            break;
        } else {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    }
    return exit_code_;
}

} // namespace tarvik
