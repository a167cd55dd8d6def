// The game's only interface to the system it runs on.
//
// On Windows these are the system's own headers. Elsewhere this header declares, under their
// Windows names, just the types, constants and calls that the game and the platform layers use. The
// program that links the game brings the definitions (platform/desktop for playing,
// platform/scripted for tests). The two OpenGL calls, glClear and glDrawPixels, come from the
// system's <GL/gl.h> everywhere.
//
// Values, parameter types and field orders are those of the Windows SDK, so that the game's sources
// are the same on every system. LONG, DWORD, UINT and BOOL are 32 bits wide and WPARAM, LPARAM and
// LRESULT as wide as a pointer, even where `long` has 64 bits.
#pragma once

#ifdef _WIN32

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#else

#include <cstddef>
#include <cstdint>

#define WINAPI
#define CALLBACK

using BOOL = std::int32_t;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using SHORT = std::int16_t;
using LONG = std::int32_t;
using UINT = std::uint32_t;
using ATOM = WORD;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using LPVOID = void*;
using LPSTR = char*;
using LPCSTR = const char*;
using LPDWORD = DWORD*;

using HANDLE = void*;
using HWND = struct HWND__*;
using HDC = struct HDC__*;
using HGLRC = struct HGLRC__*;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;
using HMENU = struct HMENU__*;
using HICON = struct HICON__*;
using HCURSOR = HICON;
using HBRUSH = struct HBRUSH__*;

using WNDPROC = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);

#define TRUE 1
#define FALSE 0
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))

inline constexpr WORD LOWORD(LPARAM value) {
    return static_cast<WORD>(static_cast<ULONG_PTR>(value) & 0xFFFFU);
}
inline constexpr WORD HIWORD(LPARAM value) {
    return static_cast<WORD>((static_cast<ULONG_PTR>(value) >> 16U) & 0xFFFFU);
}

// Window classes and windows.
inline constexpr UINT CS_OWNDC = 0x0020;
inline constexpr DWORD WS_POPUP = 0x80000000U;
inline constexpr DWORD WS_EX_APPWINDOW = 0x00040000;
inline constexpr int SW_SHOW = 5;
inline constexpr int SM_CXSCREEN = 0;
inline constexpr int SM_CYSCREEN = 1;
inline constexpr UINT MB_OK = 0x00000000;

// Messages.
inline constexpr UINT PM_REMOVE = 0x0001;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_SYSKEYDOWN = 0x0104;
inline constexpr UINT WM_SYSKEYUP = 0x0105;
inline constexpr UINT WM_SYSCOMMAND = 0x0112;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_MBUTTONDOWN = 0x0207;
inline constexpr UINT WM_MBUTTONUP = 0x0208;
inline constexpr WPARAM SC_CLOSE = 0xF060;

// Virtual keys that have a name; letters and digits are their upper-case character codes.
inline constexpr int VK_ESCAPE = 0x1B;
inline constexpr int VK_LEFT = 0x25;
inline constexpr int VK_UP = 0x26;
inline constexpr int VK_RIGHT = 0x27;
inline constexpr int VK_DOWN = 0x28;
inline constexpr int VK_F1 = 0x70;
inline constexpr int VK_F2 = 0x71;
inline constexpr int VK_OEM_4 = 0xDB;
inline constexpr int VK_OEM_6 = 0xDD;

// Pixel formats.
inline constexpr DWORD PFD_DOUBLEBUFFER = 0x00000001;
inline constexpr DWORD PFD_DRAW_TO_WINDOW = 0x00000004;
inline constexpr DWORD PFD_SWAP_LAYER_BUFFERS = 0x00000800;
inline constexpr DWORD PFD_GENERIC_ACCELERATED = 0x00001000;
inline constexpr BYTE PFD_TYPE_RGBA = 0;
inline constexpr BYTE PFD_MAIN_PLANE = 0;

// Files.
inline constexpr DWORD FILE_READ_DATA = 0x0001;
inline constexpr DWORD FILE_WRITE_DATA = 0x0002;
inline constexpr DWORD FILE_SHARE_READ = 0x00000001;
inline constexpr DWORD OPEN_ALWAYS = 4;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x00000080;

struct POINT {
    LONG x;
    LONG y;
};

struct WNDCLASSA {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
};

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};
using LPMSG = MSG*;

struct PIXELFORMATDESCRIPTOR {
    WORD nSize;
    WORD nVersion;
    DWORD dwFlags;
    BYTE iPixelType;
    BYTE cColorBits;
    BYTE cRedBits;
    BYTE cRedShift;
    BYTE cGreenBits;
    BYTE cGreenShift;
    BYTE cBlueBits;
    BYTE cBlueShift;
    BYTE cAlphaBits;
    BYTE cAlphaShift;
    BYTE cAccumBits;
    BYTE cAccumRedBits;
    BYTE cAccumGreenBits;
    BYTE cAccumBlueBits;
    BYTE cAccumAlphaBits;
    BYTE cDepthBits;
    BYTE cStencilBits;
    BYTE cAuxBuffers;
    BYTE iLayerType;
    BYTE bReserved;
    DWORD dwLayerMask;
    DWORD dwVisibleMask;
    DWORD dwDamageMask;
};
static_assert(sizeof(PIXELFORMATDESCRIPTOR) == 40);

// The game passes null for these, so no one needs to know what is in them.
using LPSECURITY_ATTRIBUTES = struct SECURITY_ATTRIBUTES*;
using LPOVERLAPPED = struct OVERLAPPED*;
struct DEVMODEA;

extern "C" {

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous_instance, LPSTR command_line,
                   int show_command);

// Windows and messages.
ATOM WINAPI RegisterClassA(const WNDCLASSA* window_class);
BOOL WINAPI UnregisterClassA(LPCSTR class_name, HINSTANCE instance);
HWND WINAPI CreateWindowExA(DWORD extended_style, LPCSTR class_name, LPCSTR title, DWORD style,
                            int x, int y, int width, int height, HWND parent, HMENU menu,
                            HINSTANCE instance, LPVOID creation_data);
BOOL WINAPI ShowWindow(HWND window, int show_command);
BOOL WINAPI DestroyWindow(HWND window);
int WINAPI GetSystemMetrics(int index);
LRESULT WINAPI DefWindowProcA(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
BOOL WINAPI PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
LRESULT WINAPI DispatchMessageA(const MSG* message);
void WINAPI PostQuitMessage(int exit_code);
HDC WINAPI GetDC(HWND window);
int WINAPI ReleaseDC(HWND window, HDC device_context);
LONG WINAPI ChangeDisplaySettingsA(DEVMODEA* mode, DWORD flags);
int WINAPI ShowCursor(BOOL show);
int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type);
HMODULE WINAPI GetModuleHandleA(LPCSTR module_name);
SHORT WINAPI GetAsyncKeyState(int virtual_key);

// Pixel format, OpenGL context and buffer swap.
int WINAPI ChoosePixelFormat(HDC device_context, const PIXELFORMATDESCRIPTOR* wanted);
BOOL WINAPI SetPixelFormat(HDC device_context, int format, const PIXELFORMATDESCRIPTOR* wanted);
BOOL WINAPI SwapBuffers(HDC device_context);
HGLRC WINAPI wglCreateContext(HDC device_context);
BOOL WINAPI wglMakeCurrent(HDC device_context, HGLRC context);
BOOL WINAPI wglDeleteContext(HGLRC context);

// Files and waiting.
HANDLE WINAPI CreateFileA(LPCSTR name, DWORD access, DWORD share_mode,
                          LPSECURITY_ATTRIBUTES security, DWORD disposition, DWORD flags,
                          HANDLE template_file);
BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD wanted, LPDWORD transferred,
                     LPOVERLAPPED overlapped);
BOOL WINAPI CloseHandle(HANDLE handle);
void WINAPI Sleep(DWORD milliseconds);
}

#endif

#include <GL/gl.h>
