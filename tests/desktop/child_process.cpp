// Start, wait and clean end of a child process.
#include "tests/desktop/child_process.h"

#include <csignal>
#include <cstdlib>
#include <initializer_list>
#include <thread>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvik {

namespace {

void redirect(int descriptor, const std::filesystem::path& file) {
    const int target = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    dup2(target, descriptor);
    close(target);
}

[[noreturn]] void become(const std::vector<std::string>& command,
                         const ChildProcess::Options& options) {
    prctl(PR_SET_PDEATHSIG, SIGKILL); // leave nothing behind when the test itself is killed
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        std::signal(signal, SIG_DFL); // whatever the test itself was told to ignore
    }
    for (const auto& [name, value] : options.environment) {
        if (value.empty()) {
            unsetenv(name.c_str());
        } else {
            setenv(name.c_str(), value.c_str(), 1);
        }
    }
    redirect(STDOUT_FILENO, options.output);
    redirect(STDERR_FILENO, options.errors);
    std::vector<char*> arguments;
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    if (chdir(options.folder.c_str()) == 0) {
        execvp(arguments[0], arguments.data());
    }
    _exit(127);
}

} // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& command, const Options& options)
    : id_(fork()) {
    if (id_ == 0) {
        become(command, options);
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
