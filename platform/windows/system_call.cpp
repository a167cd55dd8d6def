// Looking a call up in the system's libraries.
#include "platform/windows/system_call.h"

#include "platform/win32.h"

namespace tarvik {

void* address_in_system(const char* library, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(library), name));
}

} // namespace tarvik
