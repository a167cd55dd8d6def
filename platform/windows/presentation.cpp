// Showing frames: enlarged by whole pixels, 60 a second.
#include "platform/common/pacing.h"
#include "platform/windows/game_window.h"
#include "platform/windows/system_call.h"

namespace tarvik {

namespace {

HANDLE make_timer() {
    // From Windows 10 1803 on. An older system's timer goes by its clock's ticks of up to 15.6 ms,
    // and frames come less evenly, but as many of them.
    constexpr DWORD HIGH_RESOLUTION = 0x00000002; // not in every compiler's headers
    const HANDLE timer =
        CreateWaitableTimerExA(nullptr, nullptr, HIGH_RESOLUTION, TIMER_ALL_ACCESS);
    return timer != nullptr ? timer : CreateWaitableTimerA(nullptr, FALSE, nullptr);
}

} // namespace

void wait_for_next_frame() {
    using TimerTicks = std::chrono::duration<LONGLONG, std::ratio<1, 10'000'000>>;
    static const HANDLE timer = make_timer();
    static FrameClock::time_point due{};

    const FrameClock::time_point now = FrameClock::now();
    due = next_due(due, now);
    if (due > now) {
        LARGE_INTEGER time{};
        time.QuadPart = -std::chrono::ceil<TimerTicks>(due - now).count(); // negative: from now on
        SetWaitableTimer(timer, &time, 0, nullptr, nullptr, FALSE);
        WaitForSingleObject(timer, INFINITE);
    }
}

} // namespace tarvik

using namespace tarvik;

extern "C" {

void APIENTRY glDrawPixels(GLsizei width, GLsizei height, GLenum format, GLenum type,
                           const GLvoid* pixels) {
    static const auto draw = system_call<decltype(glDrawPixels)>("opengl32", "glDrawPixels");
    const Viewport viewport = current_viewport(WindowFromDC(wglGetCurrentDC()));
    const int shown_width = LOGICAL_WIDTH * viewport.factor;
    const int shown_height = LOGICAL_HEIGHT * viewport.factor;
    glViewport(viewport.left, viewport.below, shown_width, shown_height);
    glRasterPos2i(-1, -1); // the lower left corner of that
    glPixelZoom(static_cast<GLfloat>(shown_width) / static_cast<GLfloat>(width),
                static_cast<GLfloat>(shown_height) / static_cast<GLfloat>(height));
    draw(width, height, format, type, pixels);
}

BOOL WINAPI SwapBuffers(HDC device_context) {
    static const auto swap = system_call<decltype(SwapBuffers)>("gdi32", "SwapBuffers");
    const BOOL swapped = swap(device_context);
    wait_for_next_frame();
    return swapped;
}
}
