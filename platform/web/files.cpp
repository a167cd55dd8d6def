// Files: the page has fetched them, packed; they are unpacked while the game reads.
#include "platform/web/page.h"

#include <algorithm>
#include <string>

namespace {

int file_of(HANDLE handle) {
    return static_cast<int>(reinterpret_cast<LONG_PTR>(handle));
}

} // namespace

extern "C" {

// A file that is missing would be created empty, so it opens all the same.
HANDLE WINAPI CreateFileA(LPCSTR name, DWORD, DWORD, LPSECURITY_ATTRIBUTES, DWORD, DWORD, HANDLE) {
    std::string path(name);
    std::replace(path.begin(), path.end(), '\\', '/');
    const std::size_t start = path.rfind("./", 0) == 0 ? 2 : 0;
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(page_open_file(path.c_str() + start)));
}

BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD wanted, LPDWORD transferred, LPOVERLAPPED) {
    *transferred = page_read_file(file_of(file), buffer, wanted);
    return TRUE;
}

BOOL WINAPI CloseHandle(HANDLE handle) {
    return page_close_file(file_of(handle));
}
}
