// Xvfb, which picks a free display number and writes it down when it is ready.
#include "tests/desktop/x_server.h"

#include "tests/desktop/player.h"

#include <csignal>

namespace tarvik {

XServer::XServer(const std::vector<std::string>& further_arguments) {
    const std::string screen = std::to_string(WIDTH) + "x" + std::to_string(HEIGHT) + "x24";
    std::vector<std::string> command = {"Xvfb", "-displayfd", "1",   "-screen", "0",
                                        screen, "-nolisten",  "tcp", "-noreset"};
    command.insert(command.end(), further_arguments.begin(), further_arguments.end());
    const std::filesystem::path output = folder_ / "number";
    server_.emplace(command, ChildProcess::Options{.output = output, .errors = folder_ / "log"});
    std::string number;
    Player::waits_until([&] {
        std::ifstream file(output); // its line is whole once it has its end
        return (std::getline(file, number) && !file.eof()) || !server_->is_running();
    });
    if (number.empty() || !server_->is_running()) {
        throw std::runtime_error("Xvfb did not start: " + read_file(folder_ / "log"));
    }
    display_ = ":" + number;
}

XServer::~XServer() {
    // An idle server can miss a signal until the next one wakes it.
    while (server_->is_running()) {
        server_->send(SIGTERM);
        server_->wait(std::chrono::milliseconds(100));
    }
}

} // namespace tarvik
