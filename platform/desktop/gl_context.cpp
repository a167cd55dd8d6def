// Device context, OpenGL context and the swap that shows a picture.
#include "platform/common/pacing.h"
#include "platform/desktop/game_window.h"

#include <SDL.h>

using namespace tarvik;

extern "C" {

HDC WINAPI GetDC(HWND window) {
    return reinterpret_cast<HDC>(window);
}

int WINAPI ReleaseDC(HWND, HDC device_context) {
    return device_context != nullptr ? 1 : 0;
}

// The window has had its pixel format since it was created: double-buffered, depth of 16 bits or
// more. So there is one format to choose.
int WINAPI ChoosePixelFormat(HDC device_context, const PIXELFORMATDESCRIPTOR*) {
    return device_context != nullptr ? 1 : 0;
}

BOOL WINAPI SetPixelFormat(HDC device_context, int format, const PIXELFORMATDESCRIPTOR*) {
    return device_context != nullptr && format == 1 ? TRUE : FALSE;
}

HGLRC WINAPI wglCreateContext(HDC device_context) {
    if (device_context == nullptr) {
        return nullptr;
    }
    return static_cast<HGLRC>(SDL_GL_CreateContext(sdl_window(device_context)));
}

BOOL WINAPI wglMakeCurrent(HDC device_context, HGLRC context) {
    if (SDL_GL_MakeCurrent(sdl_window(device_context), context) != 0) {
        return FALSE;
    }
    if (context != nullptr) {
        SDL_GL_SetSwapInterval(1); // refused by some drivers; the pacing holds without it
    }
    return TRUE;
}

BOOL WINAPI wglDeleteContext(HGLRC context) {
    SDL_GL_DeleteContext(context);
    return context != nullptr ? TRUE : FALSE;
}

BOOL WINAPI SwapBuffers(HDC device_context) {
    if (device_context != nullptr) {
        SDL_GL_SwapWindow(sdl_window(device_context));
    }
    wait_for_next_picture();
    return device_context != nullptr ? TRUE : FALSE;
}

} // extern "C"
