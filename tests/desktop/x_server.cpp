// Xvfb, which picks a free display number and writes it down when it is ready.
#include "tests/desktop/x_server.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <thread>

#include <stdlib.h>

namespace tarvik {

XServer::XServer(const std::vector<std::string>& further_arguments)
    : folder_(make_folder("display")) {
    const std::string screen = std::to_string(WIDTH) + "x" + std::to_string(HEIGHT) + "x24";
    std::vector<std::string> command = {"Xvfb", "-displayfd", "1",   "-screen", "0",
                                        screen, "-nolisten",  "tcp", "-noreset"};
    command.insert(command.end(), further_arguments.begin(), further_arguments.end());
    const std::filesystem::path output = folder_ / "number";
    server_.emplace(command, ChildProcess::Options{.output = output, .errors = folder_ / "log"});

    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (display_.empty() && server_->is_running() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        std::ifstream file(output);
        std::string number;
        if (std::getline(file, number) && !file.eof()) { // a line is whole once it has its end
            display_ = ":" + number;
        }
    }
}

XServer::~XServer() {
    // An idle server can miss a signal until the next one wakes it.
    for (int attempt = 0; attempt < 50 && server_->is_running(); ++attempt) {
        server_->send(SIGTERM);
        server_->wait(std::chrono::milliseconds(100));
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::filesystem::path make_folder(const std::string& name) {
    std::string pattern = testing::TempDir() + "tarvik-" + name + "-XXXXXX";
    return mkdtemp(pattern.data());
}

} // namespace tarvik
