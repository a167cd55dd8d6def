// The system's own version of a call that this layer defines itself.
//
// The game is linked with this layer's definition, since objects go before import libraries; the
// system's is looked up at run time. That needs nothing of the linker that Visual Studio's lacks.
#pragma once

namespace tarvik {

void* address_in_system(const char* library, const char* name);

/// The call `name` of a library that the program is linked with, such as "gdi32".
template <typename Call>
Call* system_call(const char* library, const char* name) {
    return reinterpret_cast<Call*>(address_in_system(library, name));
}

} // namespace tarvik
