// The two OpenGL calls and what OpenGL needs on Windows, on SDL's renderer.
#include "platform/desktop/presentation.h"

#include "platform/common/pacing.h"
#include "platform/common/viewport.h"
#include "platform/desktop/display.h"
#include "platform/desktop/game_window.h"
#include "platform/desktop/renderer.h"

#include <SDL.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace tarvik {

namespace {

SDL_Renderer* renderer = nullptr;
SDL_Texture* texture = nullptr; // one pixel for each logical one

Viewport current_viewport() {
    int width = 0;
    int height = 0;
    SDL_GetRendererOutputSize(renderer, &width, &height);
    return viewport_in(width, height);
}

// Every logical pixel is a block of equal ones, of which the first will do.
void convert_row(const GLubyte* from, Uint32* to) {
    constexpr std::ptrdiff_t BLOCK_BYTES = std::ptrdiff_t{GAME_PIXELS} * 3;
    for (int x = 0; x < LOGICAL_WIDTH; ++x, from += BLOCK_BYTES) {
        to[x] = Uint32{from[0]} << 16U | Uint32{from[1]} << 8U | from[2];
    }
}

} // namespace

void show_frame_again() {
    const Viewport viewport = current_viewport();
    const SDL_Rect place = {viewport.left, viewport.top, LOGICAL_WIDTH * viewport.factor,
                            LOGICAL_HEIGHT * viewport.factor};
    if (viewport.left != 0 || viewport.top != 0 || viewport.below != 0 || viewport.right != 0) {
        SDL_RenderClear(renderer); // black around the frame
    }
    SDL_RenderCopy(renderer, texture, nullptr, &place);
    SDL_RenderPresent(renderer);
}

bool find_game_pixel(POINT place, POINT& pixel) {
    int window_width = 0;
    int window_height = 0;
    SDL_GetWindowSize(SDL_RenderGetWindow(renderer), &window_width, &window_height);
    // While a button is held SDL goes on reporting the mouse outside the window; Windows does not.
    if (place.x < 0 || place.y < 0 || place.x >= window_width || place.y >= window_height) {
        return false;
    }
    // A Wayland compositor may count several pixels of the display as one.
    int width = 0;
    int height = 0;
    SDL_GetRendererOutputSize(renderer, &width, &height);
    const int x = place.x * width / window_width;
    const int y = place.y * height / window_height;
    const Viewport viewport = viewport_in(width, height);
    pixel = {viewport.game_x(x), viewport.game_y(y)};
    return viewport.contains(x, y);
}

} // namespace tarvik

using namespace tarvik;

extern "C" {

HDC WINAPI GetDC(HWND window) {
    return reinterpret_cast<HDC>(window);
}

int WINAPI ReleaseDC(HWND, HDC device_context) {
    return device_context != nullptr ? 1 : 0;
}

int WINAPI ChoosePixelFormat(HDC device_context, const PIXELFORMATDESCRIPTOR*) {
    return device_context != nullptr ? 1 : 0;
}

BOOL WINAPI SetPixelFormat(HDC device_context, int format, const PIXELFORMATDESCRIPTOR*) {
    return device_context != nullptr && format == 1 ? TRUE : FALSE;
}

HGLRC WINAPI wglCreateContext(HDC device_context) {
    if (device_context == nullptr || renderer != nullptr) {
        return nullptr;
    }
    renderer = make_renderer(sdl_window(device_context));
    texture = SDL_CreateTexture(renderer, SDL_PIXELFORMAT_RGB888, SDL_TEXTUREACCESS_STREAMING,
                                LOGICAL_WIDTH, LOGICAL_HEIGHT);
    if (texture == nullptr) {
        exit_with_error("this display can show nothing", SDL_GetError());
    }
    // Black until the first frame: a new texture may hold anything.
    const std::vector<Uint32> black(std::size_t{LOGICAL_WIDTH} * LOGICAL_HEIGHT);
    SDL_UpdateTexture(texture, nullptr, black.data(), LOGICAL_WIDTH * int{sizeof(Uint32)});
    return reinterpret_cast<HGLRC>(renderer);
}

BOOL WINAPI wglMakeCurrent(HDC, HGLRC) {
    return TRUE;
}

BOOL WINAPI wglDeleteContext(HGLRC context) {
    if (context == nullptr) {
        return FALSE;
    }
    SDL_DestroyRenderer(renderer); // and its texture
    renderer = nullptr;
    texture = nullptr;
    return TRUE;
}

// The next frame covers all of the last one.
void glClear(GLbitfield) {}

/// The only format the game uses: rows from the bottom up, red, green, blue, without padding.
void glDrawPixels(GLsizei width, GLsizei height, GLenum, GLenum, const GLvoid* pixels) {
    void* rows = nullptr;
    int row_bytes = 0;
    if (texture == nullptr || SDL_LockTexture(texture, nullptr, &rows, &row_bytes) != 0) {
        return;
    }
    const std::ptrdiff_t game_row_bytes = std::ptrdiff_t{width} * 3;
    for (std::ptrdiff_t y = 0; y < LOGICAL_HEIGHT; ++y) {
        const std::ptrdiff_t game_row = height - 1 - y * GAME_PIXELS;
        convert_row(static_cast<const GLubyte*>(pixels) + game_row * game_row_bytes,
                    reinterpret_cast<Uint32*>(static_cast<char*>(rows) + y * row_bytes));
    }
    SDL_UnlockTexture(texture);
}

BOOL WINAPI SwapBuffers(HDC device_context) {
    if (renderer != nullptr) {
        show_frame_again();
    }
    wait_for_next_frame();
    return device_context != nullptr ? TRUE : FALSE;
}

} // extern "C"
