// All of the game's OpenGL calls outside the context's creation and deletion.
#include "render/presentation.h"

#include "platform/win32.h"
#include "render/frame_buffer.h"
#include "shell/window.h"

#include <cstring>

namespace tarvik {

void clear_frame() {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    std::memset(frame_buffer, 0, frame_bytes());
}

void present_frame() {
    glDrawPixels(screen_width, screen_height, GL_RGB, GL_UNSIGNED_BYTE, frame_buffer);
    SwapBuffers(device_context);
}

} // namespace tarvik
