// Plain sequences of system calls. Where a failure is ignored, the game is meant to go on.
#include "shell/window.h"

#include "shell/screen.h"
#include "shell/window_procedure.h"

namespace tarvik {

HINSTANCE instance_handle = nullptr;
HWND window_handle = nullptr;
HDC device_context = nullptr;
HGLRC gl_context = nullptr;

namespace {

constexpr const char* WINDOW_CLASS_NAME = "Quillaby - Tarvik";
constexpr const char* WINDOW_TITLE = "Quillaby - Tarvik V0.1";

bool register_window_class() {
    WNDCLASSA window_class{};
    window_class.style = CS_OWNDC;
    window_class.lpfnWndProc = window_procedure;
    window_class.cbClsExtra = 0;
    window_class.cbWndExtra = 0;
    window_class.hInstance = GetModuleHandleA(nullptr);
    window_class.hIcon = nullptr;
    window_class.hCursor = nullptr;
    window_class.hbrBackground = nullptr;
    window_class.lpszMenuName = nullptr;
    window_class.lpszClassName = WINDOW_CLASS_NAME;
    return RegisterClassA(&window_class) != 0;
}

void set_up_gl_context() {
    device_context = GetDC(window_handle);

    // PFD_SUPPORT_OPENGL is left out on purpose (docs/oddities.md).
    PIXELFORMATDESCRIPTOR pixelf{};
    pixelf.nSize = sizeof(PIXELFORMATDESCRIPTOR);
    pixelf.nVersion = 1;
    pixelf.dwFlags =
        PFD_DRAW_TO_WINDOW | PFD_DOUBLEBUFFER | PFD_SWAP_LAYER_BUFFERS | PFD_GENERIC_ACCELERATED;
    pixelf.iPixelType = PFD_TYPE_RGBA;
    pixelf.cColorBits = 0;
    pixelf.cDepthBits = 16;
    pixelf.iLayerType = PFD_MAIN_PLANE;

    const int format = ChoosePixelFormat(device_context, &pixelf);
    SetPixelFormat(device_context, format, &pixelf);
    gl_context = wglCreateContext(device_context);
    wglMakeCurrent(device_context, gl_context);
    ShowWindow(window_handle, SW_SHOW);
}

} // namespace

void create_game_window() {
    register_window_class();
    screen_width = DEVICE_WIDTH;
    screen_height = DEVICE_HEIGHT;
    const int display_width = GetSystemMetrics(SM_CXSCREEN);
    const int display_height = GetSystemMetrics(SM_CYSCREEN);
    window_handle =
        CreateWindowExA(WS_EX_APPWINDOW, WINDOW_CLASS_NAME, WINDOW_TITLE, WS_POPUP,
                        (display_width - screen_width) / 2, (display_height - screen_height) / 2,
                        screen_width, screen_height, nullptr, nullptr, instance_handle, nullptr);
    if (window_handle == nullptr) {
        MessageBoxA(nullptr, "Window Creation Error", "Test", MB_OK);
    }
    set_up_gl_context();
}

void destroy_game_window() {
    ChangeDisplaySettingsA(nullptr, 0);
    ShowCursor(TRUE);
    wglMakeCurrent(nullptr, nullptr);
    wglDeleteContext(gl_context);
    ReleaseDC(window_handle, device_context);
    DestroyWindow(window_handle);
    UnregisterClassA(WINDOW_CLASS_NAME, instance_handle);
}

} // namespace tarvik
