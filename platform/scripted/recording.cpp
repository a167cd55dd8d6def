// The list of calls.
#include "platform/scripted/recording.h"

#include "platform/scripted/scripted.h"

#include <cstdarg>
#include <cstdio>

namespace tarvik::scripted {

bool recording = false;
std::vector<std::string> calls;

const char* name_of(const void* handle) {
    if (handle == nullptr) {
        return "null";
    }
    if (handle == WINDOW) {
        return "window";
    }
    if (handle == DEVICE_CONTEXT) {
        return "dc";
    }
    if (handle == GL_CONTEXT) {
        return "context";
    }
    return handle == MODULE ? "module" : "?";
}

void record(const char* format, ...) {
    if (!recording) {
        return;
    }
    char line[512];
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    calls.emplace_back(line);
}

} // namespace tarvik::scripted
