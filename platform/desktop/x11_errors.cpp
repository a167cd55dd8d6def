// The two handlers that Xlib calls.
#include "platform/desktop/x11_errors.h"

#include "platform/desktop/game_window.h"

#include <SDL.h>
#include <SDL_syswm.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace tarvik {

namespace {

// Nothing that the game holds is worth keeping, and whatever would tidy up at exit would use what
// has been lost.
[[noreturn]] void end_without(const char* lost) {
    std::fprintf(stderr, "%s: the %s has been taken away\n", program_invocation_short_name, lost);
    std::_Exit(EXIT_FAILURE);
}

// A request can come too late at any time; and a driver that is refused one reports that no context
// could be created.
int pass_over(Display*, XErrorEvent* error) {
    if (error->error_code == BadDrawable || error->error_code == BadWindow) {
        note_x11_window_lost(error->resourceid);
    }
    return 0;
}

int end_without_display(Display*) {
    end_without("display");
}

} // namespace

void watch_x11_errors() {
    XSetErrorHandler(pass_over);
    XSetIOErrorHandler(end_without_display);
}

void note_x11_window_lost(unsigned long window) {
    SDL_SysWMinfo game;
    SDL_VERSION(&game.version);
    if (game_window() != nullptr &&
        SDL_GetWindowWMInfo(sdl_window(game_window()), &game) == SDL_TRUE &&
        game.info.x11.window == window) {
        end_without("window");
    }
}

} // namespace tarvik
