// The choice between OpenGL and the processor.
//
// Without a card behind it OpenGL, too, computes each pixel on the processor, and takes several
// times as long and a hundred megabytes (docs/performance.md).
#include "platform/desktop/renderer.h"

#include "platform/desktop/display.h"

#include <SDL.h>
#include <SDL_opengl.h>

#include <filesystem>
#include <string_view>

namespace tarvik {

namespace {

// Where there is no device, loading OpenGL only to be told so would cost the start 0.1 s.
bool may_have_graphics_card() {
    for (const char* device : {"/dev/dri", "/dev/nvidiactl", "/dev/dxg"}) {
        std::error_code ignored;
        if (std::filesystem::exists(device, ignored)) {
            return true;
        }
    }
    return false;
}

// Asks the context that an OpenGL renderer has just made current.
bool is_software(std::string_view opengl_name) {
    for (const char* software : {"llvmpipe", "softpipe", "swrast", "Software Rasterizer"}) {
        if (opengl_name.find(software) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

bool has_card_behind_it() {
    const char*(APIENTRY * get_string)(GLenum) = nullptr;
    get_string = reinterpret_cast<decltype(get_string)>(SDL_GL_GetProcAddress("glGetString"));
    const char* name = get_string != nullptr ? get_string(GL_RENDERER) : nullptr;
    return name != nullptr && !is_software(name);
}

// The layer keeps the pace itself; vsync only prevents torn frames. A display that is slower than
// the game would slow it down (59 is what SDL makes of 59.94), and a Wayland compositor never asks
// a hidden window for a frame, with or without X11 between them.
bool wants_vsync(SDL_Window* window) {
    constexpr int SLOWEST = 59;
    SDL_DisplayMode mode{};
    const bool is_slow = SDL_GetCurrentDisplayMode(SDL_GetWindowDisplayIndex(window), &mode) == 0 &&
                         mode.refresh_rate > 0 && mode.refresh_rate < SLOWEST;
    const char* compositor = SDL_getenv("WAYLAND_DISPLAY");
    return is_x11() && !is_slow && (compositor == nullptr || *compositor == '\0');
}

} // namespace

SDL_Renderer* make_renderer(SDL_Window* window) {
    // SDL's software renderer needs window memory, which Wayland does not provide.
    const bool on_wayland = !is_x11();
    const Uint32 sync = wants_vsync(window) ? SDL_RENDERER_PRESENTVSYNC : 0;
    const bool is_chosen = SDL_GetHint(SDL_HINT_RENDER_DRIVER) != nullptr;
    if (on_wayland || is_chosen || may_have_graphics_card()) {
        SDL_Renderer* renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_ACCELERATED | sync);
        if (on_wayland || (renderer != nullptr && (is_chosen || has_card_behind_it()))) {
            return renderer;
        }
        SDL_DestroyRenderer(renderer);
    }
    return SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
}

} // namespace tarvik
