// Start and end of sway, and its commands.
#include "tests/wayland/sway.h"

#include "tests/desktop/player.h"

#include <csignal>

#include <unistd.h>

namespace tarvik {

// No borders: a tile is the whole screen.
Sway::Sway(const std::string& display) {
    write_file(folder_ / "config", "xwayland disable\n"
                                   "default_border none\n"
                                   "output * resolution 640x480\n");
    std::vector<std::string> command = {"sway", "--config", folder_ / "config"};
    constexpr uid_t NOBODY = 65534;
    // sway refuses to run as root. Its folder, which holds its sockets, then becomes nobody's.
    if (geteuid() == 0 && chown((folder_ / "").c_str(), NOBODY, NOBODY) == 0) {
        const std::string id = std::to_string(NOBODY);
        command.insert(command.begin(), {"setpriv", "--reuid", id, "--regid", id, "--clear-groups",
                                         "--pdeathsig", "KILL"});
    }
    compositor_.emplace(command,
                        ChildProcess::Options{.environment = {{"XDG_RUNTIME_DIR", folder_ / ""},
                                                              {"HOME", folder_ / ""},
                                                              {"DISPLAY", display},
                                                              {"WAYLAND_DISPLAY", ""},
                                                              {"SWAYSOCK", folder_ / "commands"},
                                                              {"WLR_BACKENDS", "x11"},
                                                              {"WLR_RENDERER", "pixman"}},
                                              .errors = folder_ / "log"});
    Player::waits_until([this] { return tell("nop") || !compositor_->is_running(); });
    if (!compositor_->is_running()) {
        throw std::runtime_error("sway did not start: " + read_file(folder_ / "log"));
    }
}

Sway::~Sway() {
    compositor_->send(SIGTERM);
    compositor_->wait(std::chrono::seconds(10));
}

std::map<std::string, std::string> Sway::environment() const {
    return {{"XDG_RUNTIME_DIR", folder_ / ""}, {"WAYLAND_DISPLAY", "wayland-1"}};
}

bool Sway::tell(const std::string& command) const {
    return ChildProcess({"swaymsg", "--socket", folder_ / "commands", command}, {}).wait() == 0;
}

} // namespace tarvik
