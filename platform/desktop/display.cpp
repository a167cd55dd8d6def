// Start of SDL's video, with everything switched off that the game has no use for.
#include "platform/desktop/display.h"

#include "platform/desktop/close_signals.h"
#include "platform/desktop/game_controllers.h"
#include "platform/desktop/standard_streams.h"
#include "platform/desktop/x11_errors.h"
#include "platform/desktop/x11_keyboard.h"

#include <SDL.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace tarvik {

namespace {

bool keys_from_x11 = false;

void hint(const char* name, const char* value) {
    SDL_SetHintWithPriority(name, value, SDL_HINT_OVERRIDE);
}

void set_hints() {
    hint(SDL_HINT_APP_NAME, "Tarvik");
    hint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    hint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");
    hint(SDL_HINT_MOUSE_AUTO_CAPTURE, "0");
    hint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    hint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
    hint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0"); // the window seldom fills the screen
    hint(SDL_HINT_VIDEO_WAYLAND_ALLOW_LIBDECOR, "0");       // nor does it have a frame
    hint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");           // a detour through OpenGL
}

// The driver is always named. Left to itself SDL would rather draw into nothing than say that
// there is no display.
bool start_video(const char* driver) {
    hint(SDL_HINT_VIDEODRIVER, driver);
    return SDL_Init(SDL_INIT_VIDEO) == 0;
}

bool start_x11() {
    setenv("SDL_VIDEO_X11_WMCLASS", "Tarvik", 1);
    // The game reads keys, not text. An input method, or an accent key that waits for its letter,
    // would keep presses from it.
    setenv("XMODIFIERS", "@im=none", 1);
    setenv("XCOMPOSEFILE", "/dev/null", 1);
    const bool started = start_video("x11");
    // SDL has read them by now. Under Wayland the first would cause a complaint on standard error,
    // and the second give the window another name than the desktop entry's.
    unsetenv("XCOMPOSEFILE");
    unsetenv("SDL_VIDEO_X11_WMCLASS");
    return started;
}

// Where there is no server at all, libwayland would complain on standard error.
bool start_wayland() {
    return std::getenv("XDG_RUNTIME_DIR") != nullptr && start_video("wayland");
}

void start_video_or_exit() {
    const char* variable = std::getenv("TARVIK_DISPLAY");
    const std::string_view wanted = variable != nullptr ? variable : "";
    if ((wanted == "wayland" || !start_x11()) && (wanted == "x11" || !start_wayland())) {
        exit_with_error("no display", wanted.empty()
                                          ? "neither an X11 nor a Wayland server can be reached"
                                          : "TARVIK_DISPLAY asks for one that cannot be reached");
    }
}

void choose_key_source() {
    keys_from_x11 = is_x11() && open_x11_keyboard();
    if (keys_from_x11) {
        SDL_EventState(SDL_SYSWMEVENT, SDL_ENABLE); // these carry the X events
        SDL_EventState(SDL_KEYDOWN, SDL_IGNORE);
        SDL_EventState(SDL_KEYUP, SDL_IGNORE);
    }
}

} // namespace

void open_display_or_exit() {
    secure_standard_streams();
    watch_close_signals();
    watch_x11_errors();
    set_hints();
    SDL_SetMainReady();
    // SDL keeps the screen saver away, as the game does on Windows by swallowing its command.
    start_video_or_exit();
    SDL_StopTextInput();
    choose_key_source();
    watch_game_controllers();
}

void exit_with_error(const char* problem, const char* reason) {
    std::fprintf(stderr, "%s: %s (%s)\n", program_invocation_short_name, problem, reason);
    SDL_Quit();
    std::exit(EXIT_FAILURE);
}

bool is_x11() {
    const char* driver = SDL_GetCurrentVideoDriver();
    return driver != nullptr && std::string_view(driver) == "x11";
}

void close_display() {
    SDL_Quit();
}

bool has_x11_keyboard() {
    return keys_from_x11;
}

} // namespace tarvik
