// OpenGL and its binding, as far as an onlooker needs them.
#include "platform/scripted/recording.h"
#include "platform/scripted/scripted.h"

#include <cstring>

namespace tarvik::scripted {

namespace {

FrameHook frame_hook = nullptr;

// What glDrawPixels was given last, shown by the next swap.
const std::uint8_t* drawn_pixels = nullptr;
int drawn_width = 0;
int drawn_height = 0;

void record_format(const char* call, HDC device_context, const PIXELFORMATDESCRIPTOR* wanted) {
    if (!recording) {
        return;
    }
    BYTE bytes[sizeof *wanted];
    std::memcpy(bytes, wanted, sizeof bytes);
    std::string line = std::string(call) + " " + name_of(device_context) + " ";
    for (const BYTE byte : bytes) {
        constexpr const char* DIGITS = "0123456789ABCDEF";
        line += DIGITS[byte >> 4U];
        line += DIGITS[byte & 15U];
    }
    calls.push_back(line);
}

} // namespace

void set_frame_hook(FrameHook hook) {
    frame_hook = hook;
}

} // namespace tarvik::scripted

using namespace tarvik::scripted;

extern "C" {

int WINAPI ChoosePixelFormat(HDC device_context, const PIXELFORMATDESCRIPTOR* wanted) {
    record_format("ChoosePixelFormat", device_context, wanted);
    return 7;
}

BOOL WINAPI SetPixelFormat(HDC device_context, int format, const PIXELFORMATDESCRIPTOR* wanted) {
    record_format(format == 7 ? "SetPixelFormat 7" : "SetPixelFormat ?", device_context, wanted);
    return TRUE;
}

HGLRC WINAPI wglCreateContext(HDC device_context) {
    record("wglCreateContext %s", name_of(device_context));
    return GL_CONTEXT;
}

BOOL WINAPI wglMakeCurrent(HDC device_context, HGLRC context) {
    record("wglMakeCurrent %s %s", name_of(device_context), name_of(context));
    return TRUE;
}

BOOL WINAPI wglDeleteContext(HGLRC context) {
    record("wglDeleteContext %s", name_of(context));
    return TRUE;
}

void APIENTRY glClear(GLbitfield mask) {
    record("glClear 0x%X", mask);
}

void APIENTRY glDrawPixels(GLsizei width, GLsizei height, GLenum format, GLenum type,
                           const GLvoid* pixels) {
    record("glDrawPixels %d %d 0x%X 0x%X", width, height, format, type);
    drawn_pixels = static_cast<const std::uint8_t*>(pixels);
    drawn_width = width;
    drawn_height = height;
}

BOOL WINAPI SwapBuffers(HDC device_context) {
    record("SwapBuffers %s", name_of(device_context));
    if (frame_hook != nullptr && drawn_pixels != nullptr) {
        frame_hook(drawn_pixels, drawn_width, drawn_height);
    }
    return TRUE;
}
}
