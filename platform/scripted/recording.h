// What the calls share: the window's procedure, handles, and writing the calls down.
#pragma once

#include "platform/win32.h"

namespace tarvik::scripted {

// What the game is given as handles; none of them is ever dereferenced.
const HWND WINDOW = reinterpret_cast<HWND>(0x10);
const HDC DEVICE_CONTEXT = reinterpret_cast<HDC>(0x20);
const HGLRC GL_CONTEXT = reinterpret_cast<HGLRC>(0x30);
const HMODULE MODULE = reinterpret_cast<HMODULE>(0x40);

/// Procedure of the registered class; null while there is none.
extern WNDPROC window_procedure;

/// The name of one of the handles above, "null", or "?" for anything else.
const char* name_of(const void* handle);

/// Adds a line to the calls if they are being written down; printf's format.
#ifdef __GNUC__
__attribute__((format(printf, 1, 2)))
#endif
void record(const char* format, ...);

} // namespace tarvik::scripted
