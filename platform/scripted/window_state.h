// What the scripted platform's calls know of the window class.
#pragma once

#include "platform/win32.h"

namespace tarvik::scripted {

/// Procedure of the registered class; null while there is none.
extern WNDPROC window_procedure;

} // namespace tarvik::scripted
