// Start and end of sway, its commands, and pictures of its screen.
#include "tests/wayland/sway.h"

#include "tests/desktop/player.h"
#include "tests/desktop/x_server.h"

#include <csignal>
#include <fstream>

#include <unistd.h>

namespace fs = std::filesystem;

namespace tarvik {

namespace {

constexpr int LARGEST_SCREEN = 4096;

// Once it runs, it writes its address down. No borders: a tile is the whole screen.
void write_configuration(const fs::path& folder) {
    std::ofstream(folder / "config") << "xwayland disable\n"
                                        "default_border none\n"
                                        "exec echo \"$WAYLAND_DISPLAY $SWAYSOCK\" > "
                                     << (folder / "started").string() << "\n";
}

// sway refuses to run as root. Its folder, which holds its sockets, then becomes nobody's.
std::vector<std::string> command_for_user(const fs::path& folder) {
    std::vector<std::string> command = {"sway", "--config", folder / "config"};
    if (geteuid() == 0) {
        constexpr uid_t NOBODY = 65534;
        if (chown(folder.c_str(), NOBODY, NOBODY) == 0) {
            const std::string id = std::to_string(NOBODY);
            command.insert(command.begin(), {"setpriv", "--reuid", id, "--regid", id,
                                             "--clear-groups", "--pdeathsig", "KILL"});
        }
    }
    return command;
}

} // namespace

bool Sway::is_installed() {
    const std::vector<std::string> command = {"sh", "-c", "command -v sway swaymsg grim setpriv"};
    return ChildProcess(command, {}).wait() == 0;
}

Sway::Sway() : folder_(make_folder("sway")) {
    write_configuration(folder_);
    compositor_.emplace(command_for_user(folder_),
                        ChildProcess::Options{.environment = {{"XDG_RUNTIME_DIR", folder_},
                                                              {"HOME", folder_},
                                                              {"DISPLAY", ""},
                                                              {"WAYLAND_DISPLAY", ""},
                                                              {"SWAYSOCK", ""},
                                                              {"WLR_BACKENDS", "headless"},
                                                              {"WLR_RENDERER", "pixman"},
                                                              {"WLR_LIBINPUT_NO_DEVICES", "1"}},
                                              .errors = folder_ / "log"});
    Player::waits_until([this] {
        std::ifstream file(folder_ / "started");
        std::string name;
        std::string command_socket;
        if (file >> name >> command_socket && !file.eof()) { // a line is whole once it has its end
            socket_ = folder_ / name;
            command_socket_ = command_socket;
        }
        return !socket_.empty() || !compositor_->is_running();
    });
}

Sway::~Sway() {
    compositor_->send(SIGTERM);
    compositor_->wait(std::chrono::seconds(10));
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

std::map<std::string, std::string> Sway::environment() const {
    return {{"XDG_RUNTIME_DIR", folder_}, {"WAYLAND_DISPLAY", socket_}, {"DISPLAY", ""}};
}

int Sway::run(const std::vector<std::string>& command) const {
    return ChildProcess(command, {.environment = environment()}).wait().value_or(-1);
}

bool Sway::tell(const std::string& command) const {
    return run({"swaymsg", "--socket", command_socket_, command}) == 0;
}

Picture Sway::look() const {
    const fs::path file = folder_ / "screen.png";
    constexpr const char* QUICKLY = "1";
    return run({"grim", "-l", QUICKLY, file}) == 0 ? read_png(file, LARGEST_SCREEN) : Picture{};
}

} // namespace tarvik
