// A window that exists in name only.
#include "platform/scripted/recording.h"
#include "platform/scripted/scripted.h"

namespace tarvik::scripted {

int display_width = 1920;
int display_height = 1080;
bool refuse_window = false;
WNDPROC window_procedure = nullptr;

} // namespace tarvik::scripted

using namespace tarvik::scripted;

extern "C" {

ATOM WINAPI RegisterClassA(const WNDCLASSA* c) {
    record("RegisterClassA style=0x%X extra=%d,%d instance=%s icon=%s cursor=%s brush=%s menu=%s "
           "class=\"%s\"",
           c->style, c->cbClsExtra, c->cbWndExtra, name_of(c->hInstance), name_of(c->hIcon),
           name_of(c->hCursor), name_of(c->hbrBackground),
           c->lpszMenuName == nullptr ? "null" : c->lpszMenuName, c->lpszClassName);
    window_procedure = c->lpfnWndProc;
    return 1;
}

BOOL WINAPI UnregisterClassA(LPCSTR class_name, HINSTANCE instance) {
    record("UnregisterClassA \"%s\" %s", class_name, name_of(instance));
    window_procedure = nullptr;
    return TRUE;
}

HWND WINAPI CreateWindowExA(DWORD extended_style, LPCSTR class_name, LPCSTR title, DWORD style,
                            int x, int y, int width, int height, HWND parent, HMENU menu,
                            HINSTANCE instance, LPVOID creation_data) {
    record("CreateWindowExA 0x%X \"%s\" \"%s\" 0x%X at %d,%d size %d,%d %s %s %s %s",
           static_cast<unsigned>(extended_style), class_name, title, static_cast<unsigned>(style),
           x, y, width, height, name_of(parent), name_of(menu), name_of(instance),
           name_of(creation_data));
    return refuse_window ? nullptr : WINDOW;
}

BOOL WINAPI ShowWindow(HWND window, int show_command) {
    record("ShowWindow %s %d", name_of(window), show_command);
    return FALSE;
}

BOOL WINAPI DestroyWindow(HWND window) {
    record("DestroyWindow %s", name_of(window));
    if (window != nullptr && window_procedure != nullptr) {
        window_procedure(window, WM_DESTROY, 0, 0);
    }
    return TRUE;
}

int WINAPI GetSystemMetrics(int index) {
    record("GetSystemMetrics %d", index);
    return index == SM_CXSCREEN ? display_width : display_height;
}

HDC WINAPI GetDC(HWND window) {
    record("GetDC %s", name_of(window));
    return DEVICE_CONTEXT;
}

int WINAPI ReleaseDC(HWND window, HDC device_context) {
    record("ReleaseDC %s %s", name_of(window), name_of(device_context));
    return 1;
}

LONG WINAPI ChangeDisplaySettingsA(DEVMODEA* mode, DWORD flags) {
    record("ChangeDisplaySettingsA %s %u", name_of(mode), static_cast<unsigned>(flags));
    return 0;
}

int WINAPI ShowCursor(BOOL show) {
    record("ShowCursor %d", show);
    return show != FALSE ? 0 : -1;
}

int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type) {
    record("MessageBoxA %s \"%s\" \"%s\" %u", name_of(owner), text, caption, type);
    return 1;
}

HMODULE WINAPI GetModuleHandleA(LPCSTR module_name) {
    record("GetModuleHandleA %s", module_name == nullptr ? "null" : module_name);
    return MODULE;
}
}
