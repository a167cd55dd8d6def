// tarvik-showing: what the game in its window takes of a processor, beside bare showing.
//
// Wants a display whose window manager, if there is one, lets programs choose their window's size.
#include "bench/bare_showing.h"
#include "bench/row.h"
#include "game/start_up.h"
#include "platform/common/pacing.h"
#include "platform/desktop/display.h"
#include "race/race_frame.h"
#include "race/track_grid.h"
#include "tools/demo/data_folder.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <functional>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

using namespace tarvik;
using namespace tarvik::bench;

constexpr int ROUNDS = 7;
constexpr int PICTURES = 60;

double process_time() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Processor time of one frame, averaged over PICTURES of them.
double time_of_picture(const std::function<void()>& show) {
    const double start = process_time();
    for (int i = 0; i < PICTURES; ++i) {
        show();
    }
    return (process_time() - start) / PICTURES;
}

/// Until the window has its new size, and has drawn in it.
void give_size(Display* display, int width, int height) {
    Window window = None;
    int revert_to = 0;
    XGetInputFocus(display, &window, &revert_to);
    XMoveResizeWindow(display, window, 0, 0, static_cast<unsigned>(width),
                      static_cast<unsigned>(height));
    XSync(display, False);
    time_of_picture(race_frame);
}

void compare_at(Display* display, int width, int height) {
    give_size(display, width, height);
    std::vector<double> game;
    std::vector<double> floor;
    for (int round = 0; round < ROUNDS; ++round) {
        game.push_back(time_of_picture(race_frame));
        BareShowing bare(display, width, height);
        floor.push_back(time_of_picture([&bare] {
            bare.show();
            wait_for_next_picture();
        }));
    }
    const auto line = [width, height](const char* what, double seconds) {
        std::printf("%4d x %-4d  %-12s  %.2f ms a picture, %4.1f %% of a core at 60 a second\n",
                    width, height, what, seconds * 1e3, seconds * 60 * 100);
    };
    line("the game", median(game));
    line("bare showing", median(floor));
}

void run() {
    open_display_or_exit();
    start_up();
    load_track_map(".\\data\\race1.map");
    race_frame();
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        throw std::runtime_error("only X servers can be measured");
    }
    compare_at(display, 640, 480);
    compare_at(display, DisplayWidth(display, 0), DisplayHeight(display, 0));
    XCloseDisplay(display);
    shut_down();
    close_display();
}

} // namespace

int main() {
    try {
        const std::string fault = demo::enter_data_folder({}, 1);
        if (!fault.empty()) {
            throw std::runtime_error(fault);
        }
        run();
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tarvik-showing: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
