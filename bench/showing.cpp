// tarvik-showing: what the game in its window takes of a processor, beside bare showing.
//
// Wants a display whose window manager, if there is one, lets programs choose their window's size.
#include "bench/race.h"
#include "game/start_up.h"
#include "platform/common/pacing.h"
#include "platform/desktop/display.h"
#include "platform/desktop/game_window.h"
#include "race/race_frame.h"

#include <SDL.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <exception>
#include <functional>
#include <limits>
#include <vector>

namespace {

using namespace tarvik;

constexpr int ROUNDS = 7;
constexpr int FRAMES = 60;

/// Processor time of one frame in seconds, averaged over FRAMES of them. The X server's own is not
/// in it.
double time_of_frame(const std::function<void()>& show) {
    const std::clock_t start = std::clock();
    for (int i = 0; i < FRAMES; ++i) {
        show();
    }
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / FRAMES;
}

/// The least work that showing a frame can be: bytes that are already in the screen's format go
/// into a window's memory, which an X server shares, and a request says so.
double time_of_bare_frame(int width, int height) {
    SDL_Window* window = SDL_CreateWindow("bare showing", 0, 0, width, height, 0);
    const SDL_Surface* surface = SDL_GetWindowSurface(window);
    const auto bytes = static_cast<std::size_t>(surface->pitch) * static_cast<std::size_t>(height);
    const std::vector<char> frame(bytes, '\x5A');
    const double seconds = time_of_frame([&] {
        std::memcpy(surface->pixels, frame.data(), frame.size());
        SDL_UpdateWindowSurface(window);
        wait_for_next_frame();
    });
    SDL_DestroyWindow(window);
    return seconds;
}

/// The least of some rounds: other programs only ever add.
void compare_at(int width, int height) {
    SDL_SetWindowSize(sdl_window(game_window()), width, height);
    time_of_frame(race_frame); // until the window has its new size, and has drawn in it
    double game = std::numeric_limits<double>::infinity();
    double floor = game;
    for (int round = 0; round < ROUNDS; ++round) {
        game = std::min(game, time_of_frame(race_frame));
        floor = std::min(floor, time_of_bare_frame(width, height));
    }
    const auto print = [&](const char* what, double seconds) {
        std::printf("%4d x %-4d  %-12s  %.2f ms a frame, %4.1f %% of a core at 60 a second\n",
                    width, height, what, seconds * 1e3, seconds * 60 * 100);
    };
    print("the game", game);
    print("bare showing", floor);
}

} // namespace

int main() {
    try {
        open_display_or_exit();
        bench::start_race();
        race_frame();
        SDL_DisplayMode display{};
        SDL_GetDesktopDisplayMode(0, &display);
        compare_at(640, 480);
        compare_at(display.w, display.h);
        shut_down();
        close_display();
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tarvik-showing: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
