// From the frame buffer to the canvas, 60 times a second.
#include "platform/common/pacing.h"
#include "platform/web/controllers.h"
#include "platform/web/laps.h"
#include "platform/web/page.h"

#include <emscripten.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarvik {

namespace {

/// The frame as the canvas wants it; shown by the next swap.
std::vector<DWORD> frame;
int frame_width = 0;
int frame_height = 0;

constexpr DWORD OPAQUE = 0xFF000000U;

/// A row of red, green, blue into a row of little-endian words.
void convert_row(const std::uint8_t* from, DWORD* to, int width) {
    for (int x = 0; x < width; ++x, from += 3) {
        to[x] = OPAQUE | static_cast<DWORD>(from[2]) << 16U | static_cast<DWORD>(from[1]) << 8U |
                from[0];
    }
}

} // namespace

void wait_for_next_frame() {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    static FrameClock::time_point due{};
    const FrameClock::time_point now = FrameClock::now();
    due = next_due(due, now);
    page_wait_for_frame(Milliseconds(due - now).count());
}

} // namespace tarvik

using namespace tarvik;

extern "C" {

// Every frame covers the whole canvas, so there is nothing to clear.
void glClear(GLbitfield) {}

/// The only format the game uses: rows from the bottom up, red, green, blue, without padding.
void glDrawPixels(GLsizei width, GLsizei height, GLenum, GLenum, const GLvoid* pixels) {
    frame_width = width;
    frame_height = height;
    frame.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const auto* row = static_cast<const std::uint8_t*>(pixels);
    for (int y = height - 1; y >= 0; --y, row += 3 * width) {
        convert_row(row, frame.data() + y * width, width);
    }
}

BOOL WINAPI SwapBuffers(HDC) {
    page_show_frame(frame.data(), frame_width, frame_height);
    report_lap();
    wait_for_next_frame();
    return TRUE;
}

/// In steps, because a tap on a controller that is not polled meanwhile is lost.
void WINAPI Sleep(DWORD milliseconds) {
    constexpr double PART = 15;
    const double end = emscripten_get_now() + milliseconds;
    for (double left = milliseconds; left > 0; left = end - emscripten_get_now()) {
        emscripten_sleep(static_cast<unsigned>(std::ceil(std::min(left, PART))));
        look_at_controllers();
    }
}

// The canvas needs neither a pixel format nor a context: any handle will do.
int WINAPI ChoosePixelFormat(HDC, const PIXELFORMATDESCRIPTOR*) {
    return 1;
}

BOOL WINAPI SetPixelFormat(HDC, int, const PIXELFORMATDESCRIPTOR*) {
    return TRUE;
}

HGLRC WINAPI wglCreateContext(HDC device_context) {
    return reinterpret_cast<HGLRC>(device_context);
}

BOOL WINAPI wglMakeCurrent(HDC, HGLRC) {
    return TRUE;
}

BOOL WINAPI wglDeleteContext(HGLRC) {
    return TRUE;
}
}
